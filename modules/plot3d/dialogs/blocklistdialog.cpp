#include "modules/plot3d/dialogs/blocklistdialog.h"

#include "ui_blocklistdialog.h"

CBlockListDialog::CBlockListDialog(const QVector<IVector3D>& sizes, const QVector<qint64>& chosen,
                                   QWidget* pParent)
    : QDialog(pParent), m_pUi(new Ui::CBlockListDialog)
{
    m_pUi->setupUi(this);
    for (int n = 0; n < sizes.size(); ++n) {
        const IVector3D& size = sizes[n];
        auto* const pItem = new QListWidgetItem(
            QString("Block %1 (%2 x %3 x %4)").arg(n + 1).arg(size.i).arg(size.j).arg(size.k),
            m_pUi->m_pBlockList);
        pItem->setCheckState(Qt::Unchecked);
    }
    for (const qint64 nBlock : chosen)
        if (QListWidgetItem* const pItem = m_pUi->m_pBlockList->item(int(nBlock)))
            pItem->setCheckState(Qt::Checked);
}

CBlockListDialog::~CBlockListDialog() = default;

QVector<qint64> CBlockListDialog::GetBlocks() const
{
    QVector<qint64> blocks;
    for (int n = 0; n < m_pUi->m_pBlockList->count(); ++n)
        if (m_pUi->m_pBlockList->item(n)->checkState() == Qt::Checked)
            blocks.append(n);
    return blocks;
}

void CBlockListDialog::Check(bool (*check)(const QListWidgetItem& item))
{
    for (int n = 0; n < m_pUi->m_pBlockList->count(); ++n) {
        QListWidgetItem* const pItem = m_pUi->m_pBlockList->item(n);
        pItem->setCheckState(check(*pItem) ? Qt::Checked : Qt::Unchecked);
    }
}

void CBlockListDialog::on_m_pAllB_clicked()
{
    Check([](const QListWidgetItem&) { return true; });
}

void CBlockListDialog::on_m_pNoneB_clicked()
{
    Check([](const QListWidgetItem&) { return false; });
}

void CBlockListDialog::on_m_pSelectedB_clicked()
{
    Check([](const QListWidgetItem& item) { return item.isSelected(); });
}
