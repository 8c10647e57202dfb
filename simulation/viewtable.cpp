#include "simulation/viewtable.h"

#include <algorithm>

const CViewTable::SViewRow* CViewTable::FindView(qint64 nViewId) const
{
    const auto found = std::find_if(m_views.begin(), m_views.end(),
                                    [&](const SViewRow& view) { return view.nId == nViewId; });
    return found == m_views.end() ? nullptr : &*found;
}

CViewTable::SViewRow* CViewTable::FindView(qint64 nViewId)
{
    return const_cast<SViewRow*>(std::as_const(*this).FindView(nViewId));
}

const SPairRow* CViewTable::Find(qint64 nViewId, qint64 nSimulationId) const
{
    if (const SViewRow* const pView = FindView(nViewId))
        for (const SPairRow& pair : pView->pairs)
            if (pair.nSimulationId == nSimulationId)
                return &pair;
    return nullptr;
}

SPairRow* CViewTable::Find(qint64 nViewId, qint64 nSimulationId)
{
    return const_cast<SPairRow*>(std::as_const(*this).Find(nViewId, nSimulationId));
}

void CViewTable::Add(qint64 nViewId, const SPairRow& pair, qint64 nIndex)
{
    if (!FindView(nViewId))
        m_views.push_back({nViewId, NO_ID, {}});
    std::vector<SPairRow>& pairs = FindView(nViewId)->pairs;
    const bool bAtEnd = nIndex < 0 || nIndex > qint64(pairs.size());
    pairs.insert(bAtEnd ? pairs.end() : pairs.begin() + nIndex, pair);
}

void CViewTable::Remove(qint64 nViewId, qint64 nSimulationId)
{
    SViewRow* const pView = FindView(nViewId);
    if (!pView)
        return;
    std::erase_if(pView->pairs, [&](const SPairRow& pair) { return pair.nSimulationId == nSimulationId; });
    if (pView->nActiveId == nSimulationId)
        pView->nActiveId = NO_ID;
}

void CViewTable::RemoveView(qint64 nViewId)
{
    std::erase_if(m_views, [&](const SViewRow& view) { return view.nId == nViewId; });
}

QVector<qint64> CViewTable::ViewIds() const
{
    QVector<qint64> ids;
    for (const SViewRow& view : m_views)
        ids.append(view.nId);
    return ids;
}

QVector<qint64> CViewTable::ViewsOf(qint64 nSimulationId) const
{
    QVector<qint64> ids;
    for (const SViewRow& view : m_views)
        if (Find(view.nId, nSimulationId))
            ids.append(view.nId);
    return ids;
}

QVector<qint64> CViewTable::SimulationsOf(qint64 nViewId) const
{
    QVector<qint64> ids;
    if (const SViewRow* const pView = FindView(nViewId))
        for (const SPairRow& pair : pView->pairs)
            ids.append(pair.nSimulationId);
    return ids;
}

qint64 CViewTable::ActiveOf(qint64 nViewId) const
{
    const SViewRow* const pView = FindView(nViewId);
    return pView ? pView->nActiveId : NO_ID;
}

bool CViewTable::SetActive(qint64 nViewId, qint64 nSimulationId)
{
    SViewRow* const pView = FindView(nViewId);
    if (!pView || pView->nActiveId == nSimulationId)
        return false;
    if (nSimulationId != NO_ID && !Find(nViewId, nSimulationId))
        return false;
    pView->nActiveId = nSimulationId;
    return true;
}
