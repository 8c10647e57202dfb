#include "view/docks/surfacedatadock.h"

#include "frame/widgetmanager.h"
#include "scene/itemdrag.h"
#include "scene/selectablemanager.h"
#include "simulation/isimulation.h"
#include "simulation/simulationmanager.h"
#include "ui_surfacedatadock.h"
#include "view/annotations/icolormapeditor.h"
#include "view/iviewer.h"

#include <QScopedValueRollback>
#include <QSlider>
#include <QTimer>

namespace {

constexpr const char* MULTIPLE = "-Multiple-";
constexpr int MOST_CONTOURS = 1000;
constexpr double LEAST_PIXELS = 0.1;
constexpr double MOST_PIXELS = 64.0;
// The two running directions of a surface, counted from its constant one.
constexpr int M_OFFSET = 1, N_OFFSET = 2;

/** A value of several surfaces in a spin box. Where they differ, the box stands one step below its range. */
template <class Box, class Value>
void Show(Box* pBox, const std::optional<Value>& value, double dMinimum, double dMaximum)
{
    using Number = decltype(pBox->value());
    pBox->setSpecialValueText(value ? "" : MULTIPLE);
    pBox->setRange(Number(value ? dMinimum : dMinimum - pBox->singleStep()), Number(dMaximum));
    pBox->setValue(value ? Number(*value) : pBox->minimum());
}

template <class Box> bool IsMixed(const Box* pBox)
{
    return !pBox->specialValueText().isEmpty() && pBox->value() == pBox->minimum();
}

void Show(QSlider* pSlider, const std::optional<qint64>& value, qint64 nMinimum, qint64 nMaximum)
{
    pSlider->setRange(int(nMinimum), int(nMaximum));
    pSlider->setValue(int(value.value_or(nMinimum)));
}

void Show(QComboBox* pBox, const std::optional<int>& index)
{
    pBox->setPlaceholderText(index ? "" : MULTIPLE);
    pBox->setCurrentIndex(index.value_or(-1));
}

void Redraw(const CSurfaceGroup& group)
{
    QSet<qint64> viewIds;
    for (const CSurfaceSelectable* const pSurface : group.Surfaces())
        viewIds.insert(pSurface->viewId());
    for (const qint64 nViewId : viewIds)
        if (IViewer* const pViewer = CWidgetManager::Instance().GetViewerById(nViewId))
            pViewer->Refresh();
}

} // namespace

CSurfaceDataDock::CSurfaceDataDock(QWidget* pParent) : CDockWidget(pParent), m_pUi(new Ui::CSurfaceDataDock)
{
    m_pUi->setupUi(this);
    ConnectSelectables();
    ConnectSlider(m_pUi->m_pConstValueS, &CSurfaceDataDock::SlotConstValueChanged);
    ConnectSlider(m_pUi->m_pMMinS, &CSurfaceDataDock::SlotMMinChanged);
    ConnectSlider(m_pUi->m_pMMaxS, &CSurfaceDataDock::SlotMMaxChanged);
    ConnectSlider(m_pUi->m_pNMinS, &CSurfaceDataDock::SlotNMinChanged);
    ConnectSlider(m_pUi->m_pNMaxS, &CSurfaceDataDock::SlotNMaxChanged);
    ConnectSlider(m_pUi->m_pTransparencyS, &CSurfaceDataDock::SlotTransparencyChanged);
    connect(m_pUi->m_pTransparencyS, &QSlider::sliderReleased, this,
            &CSurfaceDataDock::SlotTransparencySliderReleased);
    Fill();
}

CSurfaceDataDock::~CSurfaceDataDock() { EndDrag(); }

void CSurfaceDataDock::ConnectSelectables()
{
    CSelectableManager* const pManager = &CSelectableManager::Instance();
    connect(pManager, QOverload<ISelectable*>::of(&CSelectableManager::SignalSelectableDoubleClicked), this,
            QOverload<ISelectable*>::of(&CSurfaceDataDock::SlotSelectableDoubleClicked));
    connect(pManager,
            QOverload<QVector<ISelectable*>>::of(&CSelectableManager::SignalSelectableDoubleClicked), this,
            QOverload<QVector<ISelectable*>>::of(&CSurfaceDataDock::SlotSelectableDoubleClicked));
    connect(pManager, &CSelectableManager::SignalSelectableDeleted, this,
            &CSurfaceDataDock::SlotSelectableDeleted);
    connect(pManager, &CSelectableManager::SignalUpdateSelectable, this,
            &CSurfaceDataDock::SlotSelectableChanged);
    connect(pManager, &CSelectableManager::SignalSelectableDisplayOnNodes, this,
            &CSurfaceDataDock::SlotSelectableDisplayOnNodes);
}

void CSurfaceDataDock::ConnectSlider(QSlider* pSlider, void (CSurfaceDataDock::*slot)(int))
{
    connect(pSlider, &QSlider::valueChanged, this, slot);
    connect(pSlider, &QSlider::sliderPressed, this, &CSurfaceDataDock::BeginDrag);
    connect(pSlider, &QSlider::sliderReleased, this, &CSurfaceDataDock::EndDrag);
}

void CSurfaceDataDock::BeginDrag()
{
    EndDrag();
    ISimulation* const pSimulation = CSimulationManager::Instance().GetSimulation(m_group.SimulationId());
    if (!pSimulation)
        return;
    m_nDraggedCase = pSimulation->GetId();
    pSimulation->BeginUndoStep();
}

void CSurfaceDataDock::EndDrag()
{
    const qint64 nDragged = std::exchange(m_nDraggedCase, -1);
    if (ISimulation* const pSimulation = CSimulationManager::Instance().GetSimulation(nDragged))
        pSimulation->EndUndoStep(false);
}

void CSurfaceDataDock::hideEvent(QHideEvent* pEvent)
{
    CDockWidget::hideEvent(pEvent);
    EndDrag(); // a slider that is hidden is never released
}

// What it shows.

void CSurfaceDataDock::SetSelectables(const QVector<ISelectable*>& selectables)
{
    EndDrag();
    m_group.Set(selectables);
    Fill();
}

void CSurfaceDataDock::SlotSelectableDoubleClicked(ISelectable* pSelectable)
{
    SlotSelectableDoubleClicked(QVector<ISelectable*>{pSelectable});
}

void CSurfaceDataDock::SlotSelectableDoubleClicked(QVector<ISelectable*> pSelectableList)
{
    if (!std::any_of(pSelectableList.begin(), pSelectableList.end(), &CSurfaceGroup::CanEdit))
        return;
    SetSelectables(pSelectableList);
    show();
    raise();
}

void CSurfaceDataDock::SlotSelectableDeleted(ISelectable* pSelectable)
{
    if (!m_group.Remove(pSelectable))
        return;
    Fill();
    if (m_group.IsEmpty())
        hide();
}

void CSurfaceDataDock::SlotSelectableChanged(ISelectable* pSelectable)
{
    if (m_bFilling || m_bFillPending || !m_group.Contains(pSelectable))
        return;
    m_bFillPending = true; // a command on thousands of surfaces costs one look
    QTimer::singleShot(0, this, [this] {
        m_bFillPending = false;
        Fill();
    });
}

void CSurfaceDataDock::SlotSelectableDisplayOnNodes(ISelectable* pSelectable)
{
    SlotSelectableChanged(pSelectable);
}

void CSurfaceDataDock::SlotRefreshAll() { Fill(); }

void CSurfaceDataDock::Fill()
{
    const QScopedValueRollback<bool> guard(m_bFilling, true);
    m_pUi->m_pHeadL->setText(m_group.Title());
    m_pUi->m_pSizeL->setText(m_group.SizeText());
    m_pUi->m_pPlaneGroup->setEnabled(!m_group.IsEmpty() && !m_group.HasFixedPlane());
    m_pUi->m_pDisplayGroup->setEnabled(!m_group.IsEmpty());
    FillPlane();
    FillDisplay();
}

void CSurfaceDataDock::FillPlane()
{
    const std::optional<int> direction = m_group.Direction();
    Show(m_pUi->m_pConstDirectionCB, direction);
    // Surfaces of different directions have no constant and no range in common.
    for (QWidget* const pWidget : std::initializer_list<QWidget*>{
             m_pUi->m_pConstValueS, m_pUi->m_pConstValueE, m_pUi->m_pMMinS, m_pUi->m_pMMaxS,
             m_pUi->m_pMDirectionStartE, m_pUi->m_pMDirectionEndE, m_pUi->m_pNMinS, m_pUi->m_pNMaxS,
             m_pUi->m_pNDirectionStartE, m_pUi->m_pNDirectionEndE})
        pWidget->setEnabled(direction.has_value());
    if (!direction)
        return;
    const qint64 nSize = m_group.Size(*direction);
    Show(m_pUi->m_pConstValueE, m_group.Constant(), 1.0, double(nSize));
    Show(m_pUi->m_pConstValueS, m_group.Constant(), 1, nSize);
    const auto letter = [&](int nOffset) { return QString(QChar("IJK"[(*direction + nOffset) % 3])); };
    m_pUi->m_pMStartL->setText(letter(M_OFFSET) + " start:");
    m_pUi->m_pMEndL->setText(letter(M_OFFSET) + " end:");
    m_pUi->m_pNStartL->setText(letter(N_OFFSET) + " start:");
    m_pUi->m_pNEndL->setText(letter(N_OFFSET) + " end:");
    FillRange(M_OFFSET, m_pUi->m_pMMinS, m_pUi->m_pMMaxS, m_pUi->m_pMDirectionStartE,
              m_pUi->m_pMDirectionEndE);
    FillRange(N_OFFSET, m_pUi->m_pNMinS, m_pUi->m_pNMaxS, m_pUi->m_pNDirectionStartE,
              m_pUi->m_pNDirectionEndE);
}

void CSurfaceDataDock::FillRange(int nOffset, QSlider* pMin, QSlider* pMax, QSpinBox* pStart, QSpinBox* pEnd)
{
    const int nAxis = (*m_group.Direction() + nOffset) % 3;
    const qint64 nSize = m_group.Size(nAxis);
    Show(pStart, m_group.Start(nAxis), 1.0, double(m_group.LeastEnd(nAxis)));
    Show(pEnd, m_group.End(nAxis), double(m_group.GreatestStart(nAxis)), double(nSize));
    // Both sliders go over the whole block, so that their handles can be compared.
    Show(pMin, m_group.Start(nAxis), 1, nSize);
    Show(pMax, m_group.End(nAxis), 1, nSize);
}

void CSurfaceDataDock::FillDisplay()
{
    const auto onNodes = m_group.Common([](const CSurfaceSelectable& s) { return s.displayOnNodes(); });
    Show(m_pUi->m_pDisplayOnCB, onNodes ? std::optional<int>(*onNodes ? 0 : 1) : std::nullopt);
    Show(m_pUi->m_pLineThicknessSurfaceE,
         m_group.Common([](const CSurfaceSelectable& s) { return s.lineThickness(); }), LEAST_PIXELS,
         MOST_PIXELS);
    Show(m_pUi->m_pContoursE, m_group.Common([](const CSurfaceSelectable& s) { return s.contourCount(); }),
         1.0, MOST_CONTOURS);
    const auto alpha = m_group.Common([](const CSurfaceSelectable& s) { return s.alphaValue(); });
    m_pUi->m_pTransparencyS->setValue(qRound(100.0 * (1.0 - alpha.value_or(1.0))));
    m_pUi->m_pTransparencyValueL->setText(
        alpha || m_group.IsEmpty() ? QString("%1 %").arg(m_pUi->m_pTransparencyS->value()) : MULTIPLE);
    m_pUi->m_pColormapB->setEnabled(IColormapEditor::Installed());
}

// Edits.

template <class Edit> void CSurfaceDataDock::Do(const Edit& edit)
{
    if (m_bFilling || m_group.IsEmpty())
        return;
    {
        const QScopedValueRollback<bool> guard(m_bFilling, true);
        edit();
    }
    Fill();
    Redraw(m_group);
}

void CSurfaceDataDock::on_m_pConstDirectionCB_currentIndexChanged(int nIndex)
{
    if (nIndex >= 0)
        Do([&] { m_group.SetDirection(nIndex); });
}

void CSurfaceDataDock::SlotConstValueChanged(int nValue)
{
    Do([&] { m_group.SetConstant(nValue); });
}

void CSurfaceDataDock::on_m_pConstValueE_valueChanged(int nValue)
{
    if (!IsMixed(m_pUi->m_pConstValueE))
        SlotConstValueChanged(nValue);
}

void CSurfaceDataDock::SetStart(int nOffset, int nValue)
{
    Do([&] { m_group.SetStart((*m_group.Direction() + nOffset) % 3, nValue); });
}

void CSurfaceDataDock::SetEnd(int nOffset, int nValue)
{
    Do([&] { m_group.SetEnd((*m_group.Direction() + nOffset) % 3, nValue); });
}

void CSurfaceDataDock::SlotMMinChanged(int nValue) { SetStart(M_OFFSET, nValue); }
void CSurfaceDataDock::SlotMMaxChanged(int nValue) { SetEnd(M_OFFSET, nValue); }
void CSurfaceDataDock::SlotNMinChanged(int nValue) { SetStart(N_OFFSET, nValue); }
void CSurfaceDataDock::SlotNMaxChanged(int nValue) { SetEnd(N_OFFSET, nValue); }

void CSurfaceDataDock::on_m_pMDirectionStartE_valueChanged(int nValue)
{
    if (!IsMixed(m_pUi->m_pMDirectionStartE))
        SlotMMinChanged(nValue);
}

void CSurfaceDataDock::on_m_pMDirectionEndE_valueChanged(int nValue)
{
    if (!IsMixed(m_pUi->m_pMDirectionEndE))
        SlotMMaxChanged(nValue);
}

void CSurfaceDataDock::on_m_pNDirectionStartE_valueChanged(int nValue)
{
    if (!IsMixed(m_pUi->m_pNDirectionStartE))
        SlotNMinChanged(nValue);
}

void CSurfaceDataDock::on_m_pNDirectionEndE_valueChanged(int nValue)
{
    if (!IsMixed(m_pUi->m_pNDirectionEndE))
        SlotNMaxChanged(nValue);
}

void CSurfaceDataDock::on_m_pDisplayOnCB_currentIndexChanged(int nIndex)
{
    if (nIndex >= 0)
        Do([&] { m_group.SetDisplayOnNodes(nIndex == 0); });
}

void CSurfaceDataDock::on_m_pLineThicknessSurfaceE_valueChanged(double dValue)
{
    if (!IsMixed(m_pUi->m_pLineThicknessSurfaceE))
        Do([&] { m_group.Edit([&](CSurfaceSelectable& s) { s.setLineThickness(dValue); }); });
}

void CSurfaceDataDock::on_m_pContoursE_valueChanged(int nValue)
{
    if (!IsMixed(m_pUi->m_pContoursE))
        Do([&] { m_group.Edit([&](CSurfaceSelectable& s) { s.setContourCount(nValue); }); });
}

void CSurfaceDataDock::SlotTransparencyChanged(int nPercent)
{
    Do([&] { m_group.Edit([&](CSurfaceSelectable& s) { s.setAlphaValue(1.0 - nPercent / 100.0); }); });
}

void CSurfaceDataDock::SlotTransparencySliderReleased() { Redraw(m_group); }

void CSurfaceDataDock::on_m_pColormapB_clicked()
{
    IColormapEditor* const pEditor = IColormapEditor::Installed();
    if (!pEditor || m_group.IsEmpty())
        return;
    // The editor works on what is selected.
    const qint64 nViewId = m_group.Surfaces().first()->viewId();
    CSelectableManager& manager = CSelectableManager::Instance();
    for (ISelectable* const pSelectable : manager.GetSelectables(nViewId, m_group.SimulationId()))
        pSelectable->setSelected(m_group.Contains(pSelectable));
    manager.NotifySelectionChanged(nViewId, m_group.SimulationId());
    pEditor->EditColormap(m_group.SimulationId(), nViewId);
}

void CSurfaceDataDock::on_m_pCloseB_clicked() { close(); }

// Drops.

QVector<ISelectable*> CSurfaceDataDock::Droppable(const QMimeData* pData) const
{
    const ISimulation* const pActive = CWidgetManager::Instance().GetActiveSimulation();
    const qint64 nCase = !m_group.IsEmpty() ? m_group.SimulationId() : pActive ? pActive->GetId() : -1;
    QVector<ISelectable*> found = FindDragged(pData, nCase);
    found.erase(std::remove_if(found.begin(), found.end(),
                               [](const ISelectable* p) { return !CSurfaceGroup::CanEdit(p); }),
                found.end());
    return found;
}

bool CSurfaceDataDock::CanDrop(const QMimeData* pData) const { return !Droppable(pData).isEmpty(); }

void CSurfaceDataDock::Drop(const QPoint&, const QMimeData* pData)
{
    m_group.Add(Droppable(pData));
    Fill();
}
