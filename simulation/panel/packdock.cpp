#include "simulation/panel/packdock.h"

#include "frame/widgetmanager.h"
#include "scene/iselectable.h"
#include "scene/itemdrag.h"
#include "simulation/isimulation.h"
#include "simulation/simulationmanager.h"

#include <QScopedValueRollback>
#include <QShowEvent>
#include <QTimer>

// What it shows.

void CPackDock::SetSelectables(const QVector<ISelectable*>& selectables)
{
    m_drag.reset();
    m_selectables.clear();
    QSet<const ISelectable*> known;
    for (ISelectable* const pSelectable : selectables) {
        if (known.contains(pSelectable) || !CanEdit(*pSelectable) ||
            (!m_selectables.isEmpty() && pSelectable->simulationId() != CaseId()))
            continue;
        known.insert(pSelectable);
        m_selectables.append(pSelectable);
    }
    FillNow();
}

void CPackDock::SlotSelectableDoubleClicked(ISelectable* pSelectable)
{
    SlotSelectableDoubleClicked(QVector<ISelectable*>{pSelectable});
}

void CPackDock::SlotSelectableDoubleClicked(QVector<ISelectable*> pSelectableList)
{
    if (std::none_of(pSelectableList.begin(), pSelectableList.end(),
                     [this](const ISelectable* p) { return CanEdit(*p); }))
        return;
    SetSelectables(pSelectableList);
    show();
    raise();
}

void CPackDock::SlotSelectableDeleted(ISelectable* pSelectable)
{
    SlotSelectableChanged(pSelectable);
    if (m_selectables.removeOne(pSelectable) && m_selectables.isEmpty())
        hide();
}

void CPackDock::SlotSelectableChanged(ISelectable* pSelectable)
{
    if (m_bFilling || m_bFillPending || !m_selectables.contains(pSelectable))
        return;
    m_bFillPending = true; // a command on thousands of them costs one look
    QTimer::singleShot(0, this, [this] {
        m_bFillPending = false;
        FillNow();
    });
}

void CPackDock::FillNow()
{
    const QScopedValueRollback<bool> guard(m_bFilling, true);
    Fill();
}

void CPackDock::showEvent(QShowEvent* pEvent)
{
    if (!pEvent->spontaneous())
        FillNow(); // while it was hidden nobody told it of changes
    CDockWidget::showEvent(pEvent);
}

void CPackDock::hideEvent(QHideEvent* pEvent)
{
    CDockWidget::hideEvent(pEvent);
    m_drag.reset(); // a slider that is hidden is never released
}

// Edits.

qint64 CPackDock::CaseId() const
{
    return m_selectables.isEmpty() ? -1 : m_selectables.first()->simulationId();
}

bool CPackDock::Edit(const std::function<void()>& edit)
{
    if (m_bFilling || m_selectables.isEmpty())
        return false;
    {
        const QScopedValueRollback<bool> guard(m_bFilling, true);
        const CUndoStep step(CaseId());
        edit();
    }
    FillNow();
    return true;
}

void CPackDock::ConnectDrag(QSlider* pSlider)
{
    connect(pSlider, &QSlider::sliderPressed, this, [this] {
        m_drag.reset();
        m_drag.emplace(CaseId());
    });
    connect(pSlider, &QSlider::sliderReleased, this, [this] { m_drag.reset(); });
}

/** Of what is on show, each once. */
QVector<CItem*> CPackDock::Items() const
{
    QVector<CItem*> items;
    const ISimulation* const pSimulation = CSimulationManager::Instance().GetSimulation(CaseId());
    for (const ISelectable* const pSelectable : m_selectables)
        if (CItem* const pItem = pSimulation ? pSimulation->GetItem(pSelectable->itemId()) : nullptr;
            pItem && !items.contains(pItem))
            items.append(pItem);
    return items;
}

void CPackDock::EditItems(const std::function<void(CItem&)>& edit)
{
    Edit([&] {
        for (CItem* const pItem : Items()) {
            edit(*pItem);
            pItem->RefreshSelectable(-1);
        }
    });
}

// Drops.

QVector<ISelectable*> CPackDock::Droppable(const QMimeData* pData) const
{
    const ISimulation* const pActive = CWidgetManager::Instance().GetActiveSimulation();
    const qint64 nCase = !m_selectables.isEmpty() ? CaseId() : pActive ? pActive->GetId() : -1;
    QVector<ISelectable*> found = FindDragged(pData, nCase);
    found.erase(std::remove_if(found.begin(), found.end(), [this](const auto* p) { return !CanEdit(*p); }),
                found.end());
    return found;
}

bool CPackDock::CanDrop(const QMimeData* pData) const { return !Droppable(pData).isEmpty(); }

void CPackDock::Drop(const QPoint&, const QMimeData* pData)
{
    SetSelectables(m_selectables + Droppable(pData));
}
