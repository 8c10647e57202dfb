#include "view/pick/viewselection.h"

#include "scene/iselectable.h"
#include "scene/selectablemanager.h"

#include <QSet>

namespace {

/** Sets flags and knows whom to tell. */
class CFlagChanges
{
public:
    explicit CFlagChanges(qint64 nViewId) : m_nViewId(nViewId) {}
    ~CFlagChanges()
    {
        for (const qint64 nSimulationId : std::as_const(m_simulations))
            CSelectableManager::Instance().NotifySelectionChanged(m_nViewId, nSimulationId);
    }
    Q_DISABLE_COPY_MOVE(CFlagChanges)

    void Set(ISelectable* pSelectable, bool bSelected)
    {
        if (pSelectable->isSelected() == bSelected)
            return;
        pSelectable->setSelected(bSelected);
        m_simulations.insert(pSelectable->simulationId());
    }

private:
    const qint64 m_nViewId;
    QSet<qint64> m_simulations;
};

} // namespace

void ViewSelection::SelectHits(qint64 nViewId, qint64 nSimulationId, const QVector<ISelectable*>& hits,
                               bool bControl)
{
    CFlagChanges changes(nViewId);
    const QSet<ISelectable*> wanted(hits.begin(), hits.end());
    if (!bControl)
        for (ISelectable* const p : CSelectableManager::Instance().GetSelectables(nViewId, nSimulationId))
            changes.Set(p, wanted.contains(p));
    else
        for (ISelectable* const p : hits)
            changes.Set(p, true);
}

void ViewSelection::Click(qint64 nViewId, qint64 nSimulationId, ISelectable* pHovered, bool bControl)
{
    CFlagChanges changes(nViewId);
    if (bControl) {
        if (pHovered)
            changes.Set(pHovered, !pHovered->isSelected());
        return;
    }
    for (ISelectable* const p : CSelectableManager::Instance().GetSelected(nViewId, nSimulationId))
        if (p != pHovered)
            changes.Set(p, false);
    if (pHovered)
        changes.Set(pHovered, true);
}
