// IVariable: the range over all blocks of a case.
#include "data/blockslices.h"
#include "data/gridmanager.h"
#include "data/icases.h"
#include "data/solutionmanager.h"
#include "data/variables/ivariable.h"
#include "data/variables/variablemanager.h"

namespace {

/** Adds the points that aren't blanked. */
LoadStatus_e AddLiveRange(const ISolution& field, const ISolution& holes, SValueRange& range)
{
    std::vector<double> values, live;
    const SIJKRange common = Intersection(field.GetShape().Range(), holes.GetShape().Range());
    return ForEachSlice(common, [&](const SIJKRange& part) {
        values.resize(part.Count());
        live.resize(part.Count());
        if (const LoadStatus_e eStatus = field.FillValues(part, values); eStatus != LoadOk)
            return eStatus;
        if (const LoadStatus_e eStatus = holes.FillValues(part, live); eStatus != LoadOk)
            return eStatus;
        for (size_t n = 0; n < values.size(); ++n)
            if (live[n] != 0.0 && IsFieldValue(values[n]))
                range.Add(values[n]);
        return LoadOk;
    });
}

LoadStatus_e AddRange(ISolution& field, const ISolution* pHoles, SValueRange& range)
{
    if (pHoles)
        return AddLiveRange(field, *pHoles, range);
    if (!field.GetRange(0, false))
        if (const LoadStatus_e eStatus = field.ComputeRanges(); eStatus != LoadOk)
            return eStatus;
    range.Add(field.GetRange(0, false).value_or(SValueRange()));
    return LoadOk;
}

QString RangeKey(qint64 nSimulationId, double dTime, qint64 nItemId)
{
    const qint64 nRestarts =
        CSolutionManager::Instance().CountRestarts() + CGridManager::Instance().CountRestarts();
    return QString("%1@%2@%3@%4")
        .arg(nSimulationId)
        .arg(QString::number(dTime, 'g', 17))
        .arg(nItemId)
        .arg(nRestarts);
}

} // namespace

std::optional<SValueRange> IVariable::GetGlobalRange(qint64 nViewId, qint64 nSimulationId, qint64 nItemId)
{
    const double dTime = ICases::Installed().GetTime(nViewId, nSimulationId);
    {
        const std::lock_guard lock(m_rangeMutex);
        const auto known = m_ranges.constFind(RangeKey(nSimulationId, dTime, nItemId));
        if (known != m_ranges.cend())
            return *known;
    }
    CSolutionManager& manager = CSolutionManager::Instance();
    const IVariable* const pHole = CVariableManager::Instance().GetHoleVariable(nSimulationId, GetLocation());
    SValueRange range;
    for (const qint64 nBlock :
         nItemId == NO_ID ? ICases::Installed().GetBlockIds(nSimulationId) : QVector<qint64>{nItemId}) {
        const auto pField = manager.GetSolution(GetId(), nSimulationId, nBlock, NO_ID, dTime);
        if (!pField)
            continue;
        const auto pHoles =
            pHole ? manager.GetSolution(pHole->GetId(), nSimulationId, nBlock, NO_ID, dTime) : nullptr;
        if (AddRange(*pField, pHoles.get(), range) != LoadOk)
            return std::nullopt;
    }
    if (range.IsEmpty())
        return std::nullopt;
    const std::lock_guard lock(m_rangeMutex);
    m_ranges.insert(RangeKey(nSimulationId, dTime, nItemId),
                    range); // of now: a request may have been a restart
    return range;
}
