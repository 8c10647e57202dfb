#include "view/docks/surfacedatadock.h"

#include "frame/widgetmanager.h"
#include "scene/selectablemanager.h"
#include "ui_surfacedatadock.h"
#include "view/annotations/icolormapeditor.h"
#include "view/iviewer.h"

#include <QSlider>

namespace {

constexpr int MOST_CONTOURS = 1000;
constexpr double LEAST_PIXELS = 0.1;
constexpr double MOST_PIXELS = 64.0;
// The two running directions of a surface, counted from its constant one.
constexpr int M_OFFSET = 1, N_OFFSET = 2;

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

CSurfaceDataDock::CSurfaceDataDock(QWidget* pParent) : CPackDock(pParent), m_pUi(new Ui::CSurfaceDataDock)
{
    m_pUi->setupUi(this);
    ConnectSlider(m_pUi->m_pConstValueS, &CSurfaceDataDock::SlotConstValueChanged);
    ConnectSlider(m_pUi->m_pMMinS, &CSurfaceDataDock::SlotMMinChanged);
    ConnectSlider(m_pUi->m_pMMaxS, &CSurfaceDataDock::SlotMMaxChanged);
    ConnectSlider(m_pUi->m_pNMinS, &CSurfaceDataDock::SlotNMinChanged);
    ConnectSlider(m_pUi->m_pNMaxS, &CSurfaceDataDock::SlotNMaxChanged);
    ConnectSlider(m_pUi->m_pTransparencyS, &CSurfaceDataDock::SlotTransparencyChanged);
    connect(m_pUi->m_pTransparencyS, &QSlider::sliderReleased, this,
            &CSurfaceDataDock::SlotTransparencySliderReleased);
    FillNow();
}

CSurfaceDataDock::~CSurfaceDataDock() = default;

void CSurfaceDataDock::ConnectSlider(QSlider* pSlider, void (CSurfaceDataDock::*slot)(int))
{
    connect(pSlider, &QSlider::valueChanged, this, slot);
    ConnectDrag(pSlider);
}

void CSurfaceDataDock::Fill()
{
    const CSurfaceGroup group = Group();
    m_pUi->m_pHeadL->setText(group.Title());
    m_pUi->m_pSizeL->setText(group.SizeText());
    m_pUi->m_pPlaneGroup->setEnabled(!group.IsEmpty() && !group.HasFixedPlane());
    m_pUi->m_pDisplayGroup->setEnabled(!group.IsEmpty());
    FillPlane(group);
    FillDisplay(group);
}

void CSurfaceDataDock::FillPlane(const CSurfaceGroup& group)
{
    const std::optional<int> direction = group.Direction();
    CommonFields::Show(m_pUi->m_pConstDirectionCB, direction);
    // Surfaces of different directions have no constant and no range in common.
    for (QWidget* const pWidget : std::initializer_list<QWidget*>{
             m_pUi->m_pConstValueS, m_pUi->m_pConstValueE, m_pUi->m_pMMinS, m_pUi->m_pMMaxS,
             m_pUi->m_pMDirectionStartE, m_pUi->m_pMDirectionEndE, m_pUi->m_pNMinS, m_pUi->m_pNMaxS,
             m_pUi->m_pNDirectionStartE, m_pUi->m_pNDirectionEndE})
        pWidget->setEnabled(direction.has_value());
    if (!direction)
        return;
    const qint64 nSize = group.Size(*direction);
    CommonFields::Show(m_pUi->m_pConstValueE, group.Constant(), 1.0, double(nSize));
    CommonFields::Show(m_pUi->m_pConstValueS, group.Constant(), 1, nSize);
    const auto letter = [&](int nOffset) { return QString(QChar("IJK"[(*direction + nOffset) % 3])); };
    m_pUi->m_pMStartL->setText(letter(M_OFFSET) + " start:");
    m_pUi->m_pMEndL->setText(letter(M_OFFSET) + " end:");
    m_pUi->m_pNStartL->setText(letter(N_OFFSET) + " start:");
    m_pUi->m_pNEndL->setText(letter(N_OFFSET) + " end:");
    FillRange(group, M_OFFSET, m_pUi->m_pMMinS, m_pUi->m_pMMaxS, m_pUi->m_pMDirectionStartE,
              m_pUi->m_pMDirectionEndE);
    FillRange(group, N_OFFSET, m_pUi->m_pNMinS, m_pUi->m_pNMaxS, m_pUi->m_pNDirectionStartE,
              m_pUi->m_pNDirectionEndE);
}

void CSurfaceDataDock::FillRange(const CSurfaceGroup& group, int nOffset, QSlider* pMin, QSlider* pMax,
                                 QSpinBox* pStart, QSpinBox* pEnd)
{
    const int nAxis = (*group.Direction() + nOffset) % 3;
    const qint64 nSize = group.Size(nAxis);
    CommonFields::Show(pStart, group.Start(nAxis), 1.0, double(group.LeastEnd(nAxis)));
    CommonFields::Show(pEnd, group.End(nAxis), double(group.GreatestStart(nAxis)), double(nSize));
    // Both sliders go over the whole block, so that their handles can be compared.
    CommonFields::Show(pMin, group.Start(nAxis), 1, nSize);
    CommonFields::Show(pMax, group.End(nAxis), 1, nSize);
}

void CSurfaceDataDock::FillDisplay(const CSurfaceGroup& group)
{
    const auto onNodes = group.Common([](const CSurfaceSelectable& s) { return s.displayOnNodes(); });
    CommonFields::Show(m_pUi->m_pDisplayOnCB,
                       onNodes ? std::optional<qint64>(*onNodes ? 0 : 1) : std::nullopt);
    CommonFields::Show(m_pUi->m_pLineThicknessSurfaceE,
                       group.Common([](const CSurfaceSelectable& s) { return s.lineThickness(); }),
                       LEAST_PIXELS, MOST_PIXELS);
    CommonFields::Show(m_pUi->m_pContoursE,
                       group.Common([](const CSurfaceSelectable& s) { return s.contourCount(); }), 1.0,
                       MOST_CONTOURS);
    const auto alpha = group.Common([](const CSurfaceSelectable& s) { return s.alphaValue(); });
    m_pUi->m_pTransparencyS->setValue(qRound(100.0 * (1.0 - alpha.value_or(1.0))));
    m_pUi->m_pTransparencyValueL->setText(
        alpha || group.IsEmpty() ? QString("%1 %").arg(m_pUi->m_pTransparencyS->value()) : MULTIPLE);
    m_pUi->m_pColormapB->setEnabled(IColormapEditor::Installed());
}

// Edits.

template <class Edits> void CSurfaceDataDock::Do(const Edits& edits)
{
    CSurfaceGroup group = Group();
    if (Edit([&] { edits(group); }))
        Redraw(group);
}

void CSurfaceDataDock::on_m_pConstDirectionCB_currentIndexChanged(int nIndex)
{
    if (nIndex >= 0)
        Do([&](CSurfaceGroup& group) { group.SetDirection(nIndex); });
}

void CSurfaceDataDock::SlotConstValueChanged(int nValue)
{
    Do([&](CSurfaceGroup& group) { group.SetConstant(nValue); });
}

void CSurfaceDataDock::on_m_pConstValueE_valueChanged(int nValue)
{
    if (CommonFields::Of(m_pUi->m_pConstValueE))
        SlotConstValueChanged(nValue);
}

void CSurfaceDataDock::SetStart(int nOffset, int nValue)
{
    Do([&](CSurfaceGroup& group) { group.SetStart((*group.Direction() + nOffset) % 3, nValue); });
}

void CSurfaceDataDock::SetEnd(int nOffset, int nValue)
{
    Do([&](CSurfaceGroup& group) { group.SetEnd((*group.Direction() + nOffset) % 3, nValue); });
}

void CSurfaceDataDock::SlotMMinChanged(int nValue) { SetStart(M_OFFSET, nValue); }
void CSurfaceDataDock::SlotMMaxChanged(int nValue) { SetEnd(M_OFFSET, nValue); }
void CSurfaceDataDock::SlotNMinChanged(int nValue) { SetStart(N_OFFSET, nValue); }
void CSurfaceDataDock::SlotNMaxChanged(int nValue) { SetEnd(N_OFFSET, nValue); }

void CSurfaceDataDock::on_m_pMDirectionStartE_valueChanged(int nValue)
{
    if (CommonFields::Of(m_pUi->m_pMDirectionStartE))
        SlotMMinChanged(nValue);
}

void CSurfaceDataDock::on_m_pMDirectionEndE_valueChanged(int nValue)
{
    if (CommonFields::Of(m_pUi->m_pMDirectionEndE))
        SlotMMaxChanged(nValue);
}

void CSurfaceDataDock::on_m_pNDirectionStartE_valueChanged(int nValue)
{
    if (CommonFields::Of(m_pUi->m_pNDirectionStartE))
        SlotNMinChanged(nValue);
}

void CSurfaceDataDock::on_m_pNDirectionEndE_valueChanged(int nValue)
{
    if (CommonFields::Of(m_pUi->m_pNDirectionEndE))
        SlotNMaxChanged(nValue);
}

void CSurfaceDataDock::on_m_pDisplayOnCB_currentIndexChanged(int nIndex)
{
    if (nIndex >= 0)
        Do([&](CSurfaceGroup& group) { group.SetDisplayOnNodes(nIndex == 0); });
}

void CSurfaceDataDock::on_m_pLineThicknessSurfaceE_valueChanged(double dValue)
{
    if (CommonFields::Of(m_pUi->m_pLineThicknessSurfaceE))
        Do([&](CSurfaceGroup& group) {
            group.Edit([&](CSurfaceSelectable& s) { s.setLineThickness(dValue); });
        });
}

void CSurfaceDataDock::on_m_pContoursE_valueChanged(int nValue)
{
    if (CommonFields::Of(m_pUi->m_pContoursE))
        Do([&](CSurfaceGroup& group) {
            group.Edit([&](CSurfaceSelectable& s) { s.setContourCount(nValue); });
        });
}

void CSurfaceDataDock::SlotTransparencyChanged(int nPercent)
{
    Do([&](CSurfaceGroup& group) {
        group.Edit([&](CSurfaceSelectable& s) { s.setAlphaValue(1.0 - nPercent / 100.0); });
    });
}

void CSurfaceDataDock::SlotTransparencySliderReleased() { Redraw(Group()); }

void CSurfaceDataDock::on_m_pColormapB_clicked()
{
    IColormapEditor* const pEditor = IColormapEditor::Installed();
    if (!pEditor || GetSelectables().isEmpty())
        return;
    // The editor works on what is selected.
    const qint64 nViewId = GetSelectables().first()->viewId();
    CSelectableManager& manager = CSelectableManager::Instance();
    for (ISelectable* const pSelectable : manager.GetSelectables(nViewId, CaseId()))
        pSelectable->setSelected(GetSelectables().contains(pSelectable));
    manager.NotifySelectionChanged(nViewId, CaseId());
    pEditor->EditColormap(CaseId(), nViewId);
}

void CSurfaceDataDock::on_m_pCloseB_clicked() { close(); }
