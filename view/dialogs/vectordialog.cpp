#include "view/dialogs/vectordialog.h"

#include "frame/novalue.h"
#include "frame/ui/fontincrement.h"
#include "scene/iselectable.h"
#include "scene/selectablemanager.h"
#include "ui_vectordialog.h"
#include "view/colormaps/colormapedit.h"
#include "view/redrawviews.h"

#include <QScopedValueRollback>

namespace {

/** Of several items the value of the first one that has any; dNone otherwise. */
double FirstScale(const QVector<ISelectable*>& items, double SDisplayState::*scale, double dNone)
{
    for (const ISelectable* const pItem : items)
        for (const IDrawable* const pDrawable : pItem->drawables())
            if (pDrawable->Value(scale) != NO_VALUE)
                return pDrawable->Value(scale);
    return dNone;
}

} // namespace

CVectorDialog::CVectorDialog(qint64 nSimulationId, qint64 nViewId, QWidget* pParent)
    : QDialog(pParent),
      m_nSimulationId(nSimulationId),
      m_pUi(new Ui::CVectorDialog),
      m_items(ColormapEdit::Subjects(nViewId, nSimulationId, false))
{
    const QScopedValueRollback<bool> guard(m_bFilling, true);
    m_pUi->setupUi(this);
    ApplyFontIncrement(this);
    Fill();
    m_step.emplace(nSimulationId);
}

CVectorDialog::~CVectorDialog()
{
    if (m_step)
        done(Rejected);
}

void CVectorDialog::done(int nResult)
{
    m_step.reset();
    QDialog::done(nResult);
}

void CVectorDialog::Fill()
{
    constexpr double DEFAULT_SCALE = 1.0;
    for (QWidget* const pField : std::initializer_list<QWidget*>{m_pUi->m_pPlaneCB, m_pUi->m_pHeadScaleE,
                                                                 m_pUi->m_pBodyScaleE, m_pUi->m_pSkipE})
        pField->setEnabled(!m_items.isEmpty());
    const qint64 nPlane = m_items.isEmpty() ? 0 : m_items.first()->vectorPlane();
    const bool bKnown = nPlane >= 0 && nPlane < m_pUi->m_pPlaneCB->count();
    m_pUi->m_pPlaneCB->setCurrentIndex(bKnown ? int(nPlane) : 0);
    m_pUi->m_pHeadScaleE->setValue(FirstScale(m_items, &SDisplayState::dVectorHeadScale, DEFAULT_SCALE));
    m_pUi->m_pBodyScaleE->setValue(FirstScale(m_items, &SDisplayState::dVectorBodyScale, DEFAULT_SCALE));
    const qint64 nSkip = m_items.isEmpty() ? 0 : m_items.first()->vectorSkip();
    m_pUi->m_pSkipE->setValue(int(std::max<qint64>(nSkip, 0)));
}

template <class Member, class Value> void CVectorDialog::Store(Member member, Value value)
{
    if (m_bFilling)
        return;
    for (ISelectable* const pItem : std::as_const(m_items))
        if (CSelectableManager::Instance().Exists(pItem))
            pItem->Change(member, value);
    RedrawViews(m_nSimulationId);
}

void CVectorDialog::on_m_pPlaneCB_currentIndexChanged(int index)
{
    Store(&SDisplayState::nVectorPlane, index);
}
void CVectorDialog::on_m_pHeadScaleE_valueChanged(double arg1)
{
    Store(&SDisplayState::dVectorHeadScale, arg1);
}
void CVectorDialog::on_m_pBodyScaleE_valueChanged(double arg1)
{
    Store(&SDisplayState::dVectorBodyScale, arg1);
}
void CVectorDialog::on_m_pSkipE_valueChanged(int arg1) { Store(&SDisplayState::nVectorSkip, arg1); }
void CVectorDialog::on_m_pCloseB_clicked() { accept(); }
