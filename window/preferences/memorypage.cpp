#include "window/preferences/memorypage.h"

#include "frame/memory/machinememory.h"
#include "frame/memory/memorymanager.h"
#include "frame/preferences/preferencekeys.h"
#include "ui_memorypage.h"

#include <algorithm>

namespace {

constexpr qint64 GIGABYTE = 1LL << 30;
constexpr int UNLIMITED = 0; // [GB]

QString InGigabytes(qint64 nBytes)
{
    return QString("%1 GB").arg(QString::number(double(nBytes) / GIGABYTE, 'g', 2));
}

} // namespace

CMemoryPage::CMemoryPage(CDataPack& pack, QWidget* pParent)
    : CPreferencesPage(pack, pParent), m_pUi(std::make_unique<Ui::CMemoryPage>())
{
    m_pUi->setupUi(this);
    connect(m_pUi->m_pMemoryLimitCB, &QCheckBox::toggled, this, &CMemoryPage::ChangeLimited);
    connect(m_pUi->m_pMemoryLimitE, qOverload<int>(&QSpinBox::valueChanged), this, &CMemoryPage::StoreLimit);
    Fill();
}

CMemoryPage::~CMemoryPage() = default;

void CMemoryPage::Fill()
{
    FillLimit();
    FillInfo();
}

void CMemoryPage::FillLimit()
{
    const QSignalBlocker box(m_pUi->m_pMemoryLimitCB), field(m_pUi->m_pMemoryLimitE);
    const qint64 nLimit = Get(m_pack, PreferenceKey::MEMORY_LIMIT);
    const bool bLimited = nLimit > 0;
    m_pUi->m_pMemoryLimitCB->setChecked(bLimited);
    m_pUi->m_pMemoryLimitE->setEnabled(bLimited);
    m_pUi->m_pMemoryLimitE->setMinimum(bLimited ? 1 : UNLIMITED);
    // It stands for the minimum, which is a limit like any other where there is one.
    m_pUi->m_pMemoryLimitE->setSpecialValueText(bLimited ? "" : "Unlimited");
    const qint64 nShown = std::min<qint64>(nLimit / GIGABYTE, m_pUi->m_pMemoryLimitE->maximum());
    m_pUi->m_pMemoryLimitE->setValue(int(nShown));
}

void CMemoryPage::FillInfo()
{
    const SMachineMemory machine = GetMachineMemory();
    m_pUi->m_pUsedMemoryE->setText(InGigabytes(CMemoryManager::Instance().GetTotalBytes()));
    m_pUi->m_pFreeMemoryE->setText(InGigabytes(machine.nFree));
    m_pUi->m_pTotalMemoryE->setText(InGigabytes(machine.nTotal));
}

void CMemoryPage::StoreLimit()
{
    Set(m_pack, PreferenceKey::MEMORY_LIMIT, m_pUi->m_pMemoryLimitE->value() * GIGABYTE);
}

void CMemoryPage::ChangeLimited(bool bLimited)
{
    // To start from: all that the machine has, so that the tick alone slows nothing down.
    const qint64 nLimit = std::max(GetMachineMemory().nTotal / GIGABYTE, 1LL);
    Set(m_pack, PreferenceKey::MEMORY_LIMIT, bLimited ? nLimit * GIGABYTE : 0);
    FillLimit();
}

void CMemoryPage::showEvent(QShowEvent* pEvent)
{
    FillInfo();
    CPreferencesPage::showEvent(pEvent);
}

void CMemoryPage::on_m_pClearMemoryB_clicked()
{
    CMemoryManager::Instance().FreeAll();
    FillInfo();
}
