#include "window/preferences/remotepage.h"

#include "frame/preferences/preferencekeys.h"
#include "ui_remotepage.h"

namespace {

QString ConnectionTypeName(qint64 nType) { return nType == 0 ? "Password" : "Key File"; }

} // namespace

CRemotePage::CRemotePage(CDataPack& pack, QWidget* pParent)
    : CPreferencesPage(pack, pParent), m_pUi(std::make_unique<Ui::CRemotePage>())
{
    m_pUi->setupUi(this);
    m_pUi->m_pComputerTable->horizontalHeader()->setStretchLastSection(false);
    m_pUi->m_pComputerTable->horizontalHeader()->setSectionResizeMode(0, QHeaderView::Stretch);
    m_pUi->m_pComputerTable->horizontalHeader()->setSectionResizeMode(1, QHeaderView::ResizeToContents);
    m_pUi->m_pComputerTable->verticalHeader()->setSectionResizeMode(QHeaderView::ResizeToContents);
    Fill();
}

CRemotePage::~CRemotePage() = default;

void CRemotePage::Fill()
{
    using namespace PreferenceKey;
    QTableWidget* const pTable = m_pUi->m_pComputerTable;
    pTable->setRowCount(0);
    for (const qint64 nId : m_pack.SubPackIds(REMOTE_PACK)) {
        const int nRow = pTable->rowCount();
        pTable->insertRow(nRow);
        auto* const pName = new QTableWidgetItem(Get(m_pack, REMOTE_NAME, nId));
        pName->setData(Qt::UserRole, nId);
        pTable->setItem(nRow, 0, pName);
        pTable->setItem(nRow, 1,
                        new QTableWidgetItem(ConnectionTypeName(Get(m_pack, REMOTE_AUTHENTICATION, nId))));
    }
}
