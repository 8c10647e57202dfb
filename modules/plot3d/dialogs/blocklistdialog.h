#pragma once

#include "frame/vector3d.h"

#include <QDialog>
#include <QVector>

#include <memory>

class QListWidgetItem;

namespace Ui {
class CBlockListDialog;
}

/** Which blocks of a grid file are wanted: a list with check boxes. */
class CBlockListDialog : public QDialog
{
    Q_OBJECT

public:
    /** @param chosen  indices from 0 */
    CBlockListDialog(const QVector<IVector3D>& sizes, const QVector<qint64>& chosen, QWidget* pParent);
    ~CBlockListDialog() override;

    /** The checked ones, ascending, from 0. */
    QVector<qint64> GetBlocks() const;

private slots:
    void on_m_pAllB_clicked();
    void on_m_pNoneB_clicked();
    void on_m_pSelectedB_clicked();

private:
    void Check(bool (*check)(const QListWidgetItem& item));

    const std::unique_ptr<Ui::CBlockListDialog> m_pUi;
};
