#include "window/mirrortoolbar.h"

#include "frame/widgetmanager.h"
#include "simulation/isimulation.h"
#include "simulation/simulationmanager.h"
#include "window/commands/windowactions.h"
#include "window/sectordisplay.h"

#include <QDoubleValidator>
#include <QLabel>
#include <QLineEdit>
#include <QScopedValueRollback>
#include <QSpinBox>

namespace {

constexpr const char* AXIS_NAMES[] = {"X", "Y", "Z"};
constexpr int MOST_SECTORS = 9999;

QString TextOf(double dValue) { return QString::number(dValue, 'g', QLocale::FloatingPointShortest); }

} // namespace

CMirrorToolBar::CMirrorToolBar(CWindowActions& actions, QWidget* pParent)
    : QToolBar("Mirror Toolbar", pParent)
{
    for (int nAxis = 0; nAxis < AXES; ++nAxis)
        AddAxis(actions, nAxis);
    ShowStored();
}

void CMirrorToolBar::AddAxis(CWindowActions& actions, int nAxis)
{
    const auto mirrorId = static_cast<ActionId_e>(ActionMirrorX + nAxis);
    const auto periodicId = static_cast<ActionId_e>(ActionPeriodicX + nAxis);
    if (nAxis > 0)
        addSeparator();
    m_mirrorActions[nAxis] = actions.Get(mirrorId);
    m_periodicActions[nAxis] = actions.Get(periodicId);
    m_mirrorActions[nAxis]->setIconText(QString("Mirror %1").arg(AXIS_NAMES[nAxis]));
    m_periodicActions[nAxis]->setIconText(QString("Periodic %1").arg(AXIS_NAMES[nAxis]));
    actions.Bind(mirrorId, this, &CMirrorToolBar::Store);
    actions.Bind(periodicId, this, &CMirrorToolBar::Store);
    addAction(m_mirrorActions[nAxis]);
    addWidget(new QLabel(" Offset: "));
    addWidget(m_offsetBoxes[nAxis] = MakeOffsetBox(nAxis));
    addAction(m_periodicActions[nAxis]);
    addWidget(new QLabel(" Sectors: "));
    addWidget(m_sectorBoxes[nAxis] = MakeSectorBox(nAxis));
}

QLineEdit* CMirrorToolBar::MakeOffsetBox(int nAxis)
{
    auto* const pBox = new QLineEdit;
    pBox->setToolTip(QString("Mirror %1-Axis Plane Offset").arg(AXIS_NAMES[nAxis]));
    pBox->setAccessibleName(pBox->toolTip());
    auto* const pValidator = new QDoubleValidator(pBox);
    pValidator->setLocale(QLocale::c());
    pBox->setValidator(pValidator);
    pBox->setMaximumWidth(pBox->fontMetrics().horizontalAdvance("-0.000000e-00"));
    connect(pBox, &QLineEdit::editingFinished, this, &CMirrorToolBar::Store);
    return pBox;
}

QSpinBox* CMirrorToolBar::MakeSectorBox(int nAxis)
{
    auto* const pBox = new QSpinBox;
    pBox->setToolTip(
        QString("Sector count for Periodic %1-Axis (geometry is 1/N around %1)").arg(AXIS_NAMES[nAxis]));
    pBox->setAccessibleName(pBox->toolTip());
    pBox->setRange(1, MOST_SECTORS);
    pBox->setKeyboardTracking(false); // "100" is typed through 1 and 10
    connect(pBox, qOverload<int>(&QSpinBox::valueChanged), this, &CMirrorToolBar::Store);
    return pBox;
}

void CMirrorToolBar::ShowStored()
{
    const QScopedValueRollback<bool> guard(m_bFilling, true);
    const ISimulation* const pSimulation = CWidgetManager::Instance().GetActiveSimulation();
    const qint64 nViewId = CWidgetManager::Instance().GetActiveViewId();
    const qint64 nSimulationId = pSimulation ? pSimulation->GetId() : -1;
    const SMirrorSetting mirror = CSimulationManager::Instance().GetMirror(nViewId, nSimulationId);
    const SSectorSetting sectors = CSimulationManager::Instance().GetSectors(nViewId, nSimulationId);
    for (int nAxis = 0; nAxis < AXES; ++nAxis) {
        m_mirrorActions[nAxis]->setChecked(mirror.bActive[nAxis]);
        m_periodicActions[nAxis]->setChecked(sectors.bActive[nAxis]);
        m_offsetBoxes[nAxis]->setText(TextOf(mirror.dOffset[nAxis]));
        m_sectorBoxes[nAxis]->setValue(static_cast<int>(sectors.nCount[nAxis]));
        m_offsetBoxes[nAxis]->setEnabled(pSimulation);
        m_sectorBoxes[nAxis]->setEnabled(pSimulation);
    }
}

SMirrorSetting CMirrorToolBar::MirrorFromWidgets(const SMirrorSetting& stored) const
{
    SMirrorSetting mirror = stored;
    for (int nAxis = 0; nAxis < AXES; ++nAxis) {
        mirror.bActive[nAxis] = m_mirrorActions[nAxis]->isChecked();
        bool bIsNumber = false;
        const double dOffset = m_offsetBoxes[nAxis]->text().toDouble(&bIsNumber);
        if (bIsNumber) // an empty box keeps the stored plane
            mirror.dOffset[nAxis] = dOffset;
    }
    return mirror;
}

SSectorSetting CMirrorToolBar::SectorsFromWidgets() const
{
    SSectorSetting sectors;
    for (int nAxis = 0; nAxis < AXES; ++nAxis) {
        sectors.bActive[nAxis] = m_periodicActions[nAxis]->isChecked();
        sectors.nCount[nAxis] = m_sectorBoxes[nAxis]->value();
    }
    return sectors;
}

void CMirrorToolBar::Store()
{
    if (m_bFilling)
        return;
    const ISimulation* const pSimulation = CWidgetManager::Instance().GetActiveSimulation();
    if (!pSimulation)
        return;
    // A box that loses the focus to the question must not ask it again.
    const QScopedValueRollback<bool> guard(m_bFilling, true);
    const CSimulationManager& manager = CSimulationManager::Instance();
    const qint64 nViewId = CWidgetManager::Instance().GetActiveViewId();
    const qint64 nSimulationId = pSimulation->GetId();
    const SMirrorSetting stored = manager.GetMirror(nViewId, nSimulationId);
    const SMirrorSetting mirror = MirrorFromWidgets(stored);
    const SSectorSetting sectors = SectorsFromWidgets();
    const bool bSame = mirror == stored && sectors == manager.GetSectors(nViewId, nSimulationId);
    const bool bApplied = !bSame && SectorDisplay::Apply(nViewId, nSimulationId, mirror, sectors);
    ShowStored();
    if (bApplied)
        emit SignalChanged();
}
