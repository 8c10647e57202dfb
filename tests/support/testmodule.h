#pragma once

#include "modules/base/ui/moduleinterface.h"

#include <QIcon>

/** A module with neutral answers for what the panel asks. */
class CTestModule : public CModuleInterface
{
public:
    using CModuleInterface::CModuleInterface;

    void ShowModuleWidgets(qint64 nViewId) override
    {
        HideModuleWidgets();
        if (IsShownIn(nViewId))
            ShowAll();
    }
    void UpdateActions(qint64, qint64) override { ++m_nUpdates; }
    void FillPopupMenu(QMenu*, qint64) override {}
    QVector<qint64> GetCategoryOrder() const override { return {}; }
    QStringList GetCategoryNames(qint64) const override { return {}; }
    QVector<SItemCategory> GetCategoryTree(qint64) const override { return {}; }
    QString GetItemToolTip(qint64) const override { return {}; }
    QString GetItemTypeName(qint64) const override { return "Unknown"; }
    QIcon GetItemIcon(qint64) const override { return {}; }
    qint64 GetCheckedItemMask(qint64) const override { return -1; }

    int m_nUpdates = 0;
};
