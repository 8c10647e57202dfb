#include "window/preferences/formlabels.h"

#include <QFormLayout>
#include <QWidget>

#include <algorithm>

static QWidgetList FormLabels(const QWidget* pWidget)
{
    QWidgetList labels;
    for (const QFormLayout* const pForm : pWidget->findChildren<QFormLayout*>())
        for (int nRow = 0; nRow < pForm->rowCount(); ++nRow)
            if (QLayoutItem* const pItem = pForm->itemAt(nRow, QFormLayout::LabelRole);
                pItem && pItem->widget())
                labels.append(pItem->widget());
    return labels;
}

void AlignFormLabels(QWidget* pWidget)
{
    const QWidgetList labels = FormLabels(pWidget);
    int nWidth = 0;
    for (const QWidget* const pLabel : labels)
        nWidth = std::max(nWidth, pLabel->sizeHint().width());
    for (QWidget* const pLabel : labels)
        pLabel->setMinimumWidth(nWidth);
}
