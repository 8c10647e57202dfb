#include "view/dialogs/colormapdialog.h"

#include "frame/ui/fontincrement.h"
#include "frame/ui/waitcursor.h"
#include "scene/iselectable.h"
#include "scene/selectablemanager.h"
#include "ui_colormapdialog.h"
#include "view/colormaps/colormapedit.h"
#include "view/colormaps/colormaptables.h"
#include "view/redrawviews.h"
#include "view/ui/legendpixmap.h"

#include <QScopedValueRollback>

namespace {

constexpr int RANGE_DIGITS = 10;
enum RangeChoice_e { RangeNone = 0, RangeGlobal = 1, RangeSelected = 2 };

QString AsText(double dValue) { return QString::number(dValue, 'g', RANGE_DIGITS); }

/** The colormap lying on its side, the low end at the left. */
QPixmap Strip(qint32 nColormap, const QSize& size, bool bInverted = false)
{
    SColormapRecord record;
    record.nId = nColormap;
    const QTransform onItsSide = QTransform().rotate(bInverted ? -90 : 90);
    return legendPixmap(record, size.width()).transformed(onItsSide).scaled(size);
}

} // namespace

CColormapDialog::CColormapDialog(qint64 nSimulationId, qint64 nViewId, bool bGlobal, QWidget* pParent)
    : QDialog(pParent), m_nSimulationId(nSimulationId), m_pUi(new Ui::CColormapDialog)
{
    const QScopedValueRollback<bool> guard(m_bFilling, true);
    m_pUi->setupUi(this); // no default button: Enter in a box of the range applies it and goes on
    ApplyFontIncrement(this);
    for (const SColormap& map : colormapTables())
        m_pUi->m_pColormapCB->addItem(Strip(m_pUi->m_pColormapCB->count(), m_pUi->m_pColormapCB->iconSize()),
                                      map.sName);
    Save(ColormapEdit::Subjects(nViewId, nSimulationId, bGlobal));
    m_step.emplace(nSimulationId);
    connect(m_pUi->m_pRangeSlider, &CRangeSlider::MinValueChanged, this,
            &CColormapDialog::SlotMinValueChanged);
    connect(m_pUi->m_pRangeSlider, &CRangeSlider::MaxValueChanged, this,
            &CColormapDialog::SlotMaxValueChanged);
    OfferAutomaticColors();
    m_pUi->m_pTabs->setEnabled(HasItems());
    if (!HasItems())
        return;
    FillRangeTab();
    FillLegendTab();
}

CColormapDialog::~CColormapDialog()
{
    if (m_step)
        done(Rejected);
}

void CColormapDialog::Save(const QVector<ISelectable*>& items)
{
    for (ISelectable* const pItem : items) {
        pItem->saveColormap();
        SSaved saved{pItem, {}, {}, {}};
        for (const IDrawable* const pDrawable : pItem->drawables()) {
            saved.bindings.append(pDrawable->colormapBindToLocal());
            saved.contourCounts.append(pDrawable->contourCount());
        }
        if (const CAnnotationColormap* const pLegend = pItem->annotationColormap())
            saved.legend = *pLegend;
        m_saved.push_back(saved);
    }
}

void CColormapDialog::Restore()
{
    for (const SSaved& saved : m_saved) {
        if (!CSelectableManager::Instance().Exists(saved.pItem))
            continue;
        saved.pItem->restoreColormap();
        const QVector<IDrawable*>& drawables = saved.pItem->drawables();
        for (int n = 0; n < std::min(drawables.size(), saved.bindings.size()); ++n) {
            drawables[n]->setColormapBindToLocal(saved.bindings[n]);
            drawables[n]->setContourCount(saved.contourCounts[n]);
        }
        if (CAnnotationColormap* const pLegend = saved.pItem->annotationColormap())
            *pLegend = saved.legend;
    }
}

QVector<ISelectable*> CColormapDialog::Items() const
{
    QVector<ISelectable*> items;
    for (const SSaved& saved : m_saved)
        if (CSelectableManager::Instance().Exists(saved.pItem) && !saved.pItem->drawables().isEmpty())
            items.append(saved.pItem);
    return items;
}

void CColormapDialog::Redraw() const { RedrawViews(m_nSimulationId); }

void CColormapDialog::done(int nResult)
{
    if (nResult != Accepted)
        Restore();
    if (m_step && nResult != Accepted)
        m_step->Discard();
    m_step.reset();
    Redraw();
    QDialog::done(nResult);
}

void CColormapDialog::FillRangeTab()
{
    const CWaitCursor wait; // ranges may have to be read from files
    const QVector<ISelectable*> items = Items();
    const IDrawable& first = *items.first()->drawables().first();
    const SColormapRecord record = first.colormap();
    m_pUi->m_pColormapCB->setCurrentIndex(record.nId);
    m_pUi->m_pContourAmountE->setValue(int(first.contourCount()));
    SValueRange limits = ColormapEdit::CaseRange(items);
    const auto [dMin, dMax] = std::minmax(record.dMinimum, record.dMaximum); // inverted ones stay so
    const SValueRange range{dMin, dMax};
    limits.Add(range);
    m_pUi->m_pRangeSlider->SetRange(limits.dMin, limits.dMax);
    ShowRange(range);
    const SValueRange shown = ColormapEdit::ItemsRange(items);
    m_pUi->m_pShownRangeL->setText(
        shown.IsEmpty() ? "no values" : QString("%1 to %2").arg(AsText(shown.dMin), AsText(shown.dMax)));
    ShowPreview();
}

void CColormapDialog::ShowPreview()
{
    const int nId = m_pUi->m_pColormapCB->currentIndex();
    const QSize size(SColormap::TEXELS, m_pUi->m_pPreviewL->minimumHeight());
    m_pUi->m_pPreviewL->setScaledContents(true);
    m_pUi->m_pPreviewL->setPixmap(Strip(nId, size, Items().first()->colormap().IsInverted()));
}

SValueRange CColormapDialog::SliderRange() const
{
    return {m_pUi->m_pRangeSlider->GetMinValue(), m_pUi->m_pRangeSlider->GetMaxValue()};
}

/** Puts the handles and the boxes there; the slider grows where the range lies outside. */
void CColormapDialog::ShowRange(const SValueRange& range)
{
    CRangeSlider& slider = *m_pUi->m_pRangeSlider;
    slider.SetRange(std::min(slider.GetMinimum(), range.dMin), std::max(slider.GetMaximum(), range.dMax));
    slider.SetValues(range.dMin, range.dMax);
    m_pUi->m_pMinE->setText(AsText(range.dMin));
    m_pUi->m_pMaxE->setText(AsText(range.dMax));
}

void CColormapDialog::ApplyRange(const SValueRange& range)
{
    m_bRangeSet = true;
    ShowRange(range);
    ColormapEdit::SetRange(Items(), range);
    Redraw();
}

void CColormapDialog::SlotMinValueChanged(double dValue)
{
    if (!m_bFilling)
        ApplyRange({dValue, SliderRange().dMax});
}

void CColormapDialog::SlotMaxValueChanged(double dValue)
{
    if (!m_bFilling)
        ApplyRange({SliderRange().dMin, dValue});
}

void CColormapDialog::on_m_pMinE_editingFinished()
{
    bool bOk = false;
    const double dValue = m_pUi->m_pMinE->text().toDouble(&bOk);
    const SValueRange range = SliderRange();
    if (m_bFilling || m_pUi->m_pMinE->text() == AsText(range.dMin))
        return;
    if (bOk && std::isfinite(dValue))
        ApplyRange({dValue, std::max(dValue, range.dMax)});
    else
        ShowRange(range);
}

void CColormapDialog::on_m_pMaxE_editingFinished()
{
    bool bOk = false;
    const double dValue = m_pUi->m_pMaxE->text().toDouble(&bOk);
    const SValueRange range = SliderRange();
    if (m_bFilling || m_pUi->m_pMaxE->text() == AsText(range.dMax))
        return;
    if (bOk && std::isfinite(dValue))
        ApplyRange({std::min(dValue, range.dMin), dValue});
    else
        ShowRange(range);
}

void CColormapDialog::on_m_pRangeCB_activated(int index)
{
    if (m_bFilling || index == RangeNone)
        return;
    const CWaitCursor wait;
    SValueRange limits = ColormapEdit::CaseRange(Items());
    const SValueRange range = index == RangeGlobal ? limits : ColormapEdit::ItemsRange(Items());
    limits.Add(range);
    if (!range.IsEmpty()) {
        m_pUi->m_pRangeSlider->SetRange(limits.dMin, limits.dMax);
        ApplyRange(range);
    }
    m_pUi->m_pRangeCB->setCurrentIndex(RangeNone);
}

void CColormapDialog::on_m_pColormapCB_currentIndexChanged(int index)
{
    if (m_bFilling || !FindColormap(index))
        return;
    for (ISelectable* const pItem : Items())
        pItem->setColormapType(index);
    ShowPreview();
    Redraw();
}

void CColormapDialog::on_m_pContourAmountE_valueChanged(int arg1)
{
    if (m_bFilling)
        return;
    for (ISelectable* const pItem : Items())
        pItem->setContourCount(arg1);
    Redraw();
}

// Without an edit items keep the ranges that they have: those of several may differ.
void CColormapDialog::on_m_pOKB_clicked()
{
    on_m_pMinE_editingFinished();
    on_m_pMaxE_editingFinished();
    if (m_bRangeSet)
        ColormapEdit::SetRange(Items(), SliderRange());
    for (ISelectable* const pItem : Items())
        CSelectableManager::Instance().NotifyUpdated(pItem);
    accept();
}

void CColormapDialog::on_m_pCancelB_clicked() { reject(); }
