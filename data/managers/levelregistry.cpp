#include "data/managers/levelregistry.h"

#include "frame/novalue.h"

#include <algorithm>

qint64 CLevelRegistry::Add(const SPlace& place, const CTimeLevels::SLevel& level)
{
    QVector<qint64>& order = m_itemOrder[place.nSimulationId];
    if (!m_simulations[place.nSimulationId].contains(place.nItemId))
        order.append(place.nItemId);
    std::vector<SBox>& boxes = m_simulations[place.nSimulationId][place.nItemId][place.nFieldId];
    auto box = std::find_if(boxes.begin(), boxes.end(), [&](const SBox& b) { return b.box == place.box; });
    if (box == boxes.end())
        box = boxes.insert(boxes.end(), {place.box, {}});
    return box->levels.Insert(level);
}

QVector<STimeMatch> CLevelRegistry::Find(qint64 nSimulationId, qint64 nItemId, qint64 nFieldId, qint64 nSubId,
                                         double dTime, bool bExact) const
{
    QVector<STimeMatch> matches;
    const Items items = m_simulations.value(nSimulationId);
    for (const qint64 nItem : nItemId == NO_ID ? ItemsOf(nSimulationId) : QVector<qint64>{nItemId}) {
        const auto fields = items.constFind(nItem);
        if (fields == items.cend() || !fields->contains(nFieldId))
            continue;
        for (const SBox& box : *fields->constFind(nFieldId))
            if (const STimeMatch match = box.levels.Find(nSubId, dTime, bExact); match.IsFound())
                matches.append(match);
    }
    return matches;
}

template <class Visit>
void CLevelRegistry::ForEachLevel(qint64 nSimulationId, qint64 nItemId, const Visit& visit) const
{
    const auto items = m_simulations.constFind(nSimulationId);
    if (items == m_simulations.cend())
        return;
    for (auto fields = items->cbegin(); fields != items->cend(); ++fields) {
        if (nItemId != NO_ID && fields.key() != nItemId)
            continue;
        for (auto boxes = fields->cbegin(); boxes != fields->cend(); ++boxes)
            for (const SBox& box : *boxes)
                for (const CTimeLevels::SLevel& level : box.levels.Levels())
                    visit(boxes.key(), level);
    }
}

QVector<qint64> CLevelRegistry::IdsOf(qint64 nSimulationId, qint64 nItemId) const
{
    QVector<qint64> ids;
    ForEachLevel(nSimulationId, nItemId,
                 [&](qint64, const CTimeLevels::SLevel& level) { ids.append(level.nId); });
    return ids;
}

QVector<qint64> CLevelRegistry::ItemsOf(qint64 nSimulationId) const
{
    return m_itemOrder.value(nSimulationId);
}

bool CLevelRegistry::HasField(qint64 nSimulationId, qint64 nFieldId) const
{
    const Items items = m_simulations.value(nSimulationId);
    return std::any_of(items.begin(), items.end(),
                       [&](const Fields& fields) { return fields.contains(nFieldId); });
}

QVector<double> CLevelRegistry::Times(qint64 nSimulationId, qint64 nItemId) const
{
    std::set<double> times;
    ForEachLevel(nSimulationId, nItemId,
                 [&](qint64, const CTimeLevels::SLevel& level) { times.insert(level.dTime); });
    return QVector<double>(times.begin(), times.end());
}

SValueRange CLevelRegistry::TimeRange(qint64 nSimulationId, qint64 nItemId) const
{
    SValueRange range;
    ForEachLevel(nSimulationId, nItemId, [&](qint64, const CTimeLevels::SLevel& level) {
        if (level.dTime != STEADY_TIME)
            range.Add(level.dTime);
    });
    return range;
}

SValueRange CLevelRegistry::FieldTimeRange(qint64 nSimulationId, qint64 nFieldId) const
{
    SValueRange range;
    ForEachLevel(nSimulationId, NO_ID, [&](qint64 nField, const CTimeLevels::SLevel& level) {
        if (nField == nFieldId && level.dTime != STEADY_TIME)
            range.Add(level.dTime);
    });
    return range;
}

void CLevelRegistry::RemoveItem(qint64 nSimulationId, qint64 nItemId)
{
    const auto items = m_simulations.find(nSimulationId);
    if (items == m_simulations.end())
        return;
    items->remove(nItemId);
    m_itemOrder[nSimulationId].removeOne(nItemId);
    if (items->isEmpty())
        RemoveSimulation(nSimulationId);
}

void CLevelRegistry::RemoveSimulation(qint64 nSimulationId)
{
    m_simulations.remove(nSimulationId);
    m_itemOrder.remove(nSimulationId);
}
