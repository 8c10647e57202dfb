#include "window/preferences/acceleratorpage.h"

#include "frame/accelerators.h"
#include "frame/preferences/preferencekeys.h"
#include "ui_acceleratorpage.h"

CAcceleratorPage::CAcceleratorPage(CDataPack& pack, QWidget* pParent)
    : CPreferencesPage(pack, pParent), m_pUi(std::make_unique<Ui::CAcceleratorPage>())
{
    m_pUi->setupUi(this);
    for (const char* const sName : KEY_PRESET_NAMES)
        m_pUi->m_pKeyPresetCB->addItem(sName);
    QTableWidget* const pTable = m_pUi->m_pAcceleratorTable;
    pTable->setRowCount(MOUSE_ACTION_COUNT);
    for (int nAction = 0; nAction < MOUSE_ACTION_COUNT; ++nAction) {
        pTable->setItem(nAction, 0, new QTableWidgetItem(GetMouseActionName(nAction)));
        pTable->setItem(nAction, 1, new QTableWidgetItem);
    }
    pTable->horizontalHeader()->setSectionResizeMode(0, QHeaderView::ResizeToContents);
    pTable->verticalHeader()->setSectionResizeMode(QHeaderView::ResizeToContents);
    m_binder.Bind(m_pUi->m_pKeyPresetCB, PreferenceKey::KEY_PRESET);
    connect(m_pUi->m_pKeyPresetCB, qOverload<int>(&QComboBox::currentIndexChanged), this,
            &CAcceleratorPage::FillTable);
    Fill();
}

CAcceleratorPage::~CAcceleratorPage() = default;

void CAcceleratorPage::Fill()
{
    CPreferencesPage::Fill();
    FillTable();
}

void CAcceleratorPage::FillTable()
{
    const int nPreset = m_pUi->m_pKeyPresetCB->currentIndex();
    for (int nAction = 0; nAction < MOUSE_ACTION_COUNT; ++nAction)
        m_pUi->m_pAcceleratorTable->item(nAction, 1)
            ->setText(GetAcceleratorText(GetAccelerator(nPreset, nAction)));
}
