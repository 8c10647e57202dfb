// IVariable: the range over all blocks of a case.
#include "data/blockslices.h"
#include "data/icases.h"
#include "data/solutionmanager.h"
#include "data/variables/ivariable.h"
#include "data/variables/variablemanager.h"

namespace {

/** Over the points that aren't blanked. */
SValueRange LiveRange(const IStructredSolution& field, const IStructredSolution& holes)
{
    SValueRange range;
    std::vector<double> values, live;
    ForEachSlice(Intersection(field.GetShape().Range(), holes.GetShape().Range()),
                 [&](const SIJKRange& part) {
                     values.resize(part.Count());
                     live.resize(part.Count());
                     field.FillValues(part, values);
                     holes.FillValues(part, live);
                     for (size_t n = 0; n < values.size(); ++n)
                         if (live[n] != 0.0 && IsFieldValue(values[n]))
                             range.Add(values[n]);
                 });
    return range;
}

} // namespace

SValueRange IVariable::GetGlobalRange(qint64 nViewId, qint64 nSimulationId, qint64 nItemId)
{
    const double dTime = ICases::Installed().GetTime(nViewId, nSimulationId);
    const QString sKey =
        QString("%1@%2@%3").arg(nSimulationId).arg(QString::number(dTime, 'g', 17)).arg(nItemId);
    if (const SValueRange known = m_ranges.value(sKey); !known.IsEmpty())
        return known;
    CSolutionManager& manager = CSolutionManager::Instance();
    const IVariable* const pHole = CVariableManager::Instance().GetHoleVariable(nSimulationId, m_eLocation);
    SValueRange range;
    for (const qint64 nBlock :
         nItemId == NO_ID ? ICases::Installed().GetBlockIds(nSimulationId) : QVector<qint64>{nItemId}) {
        const auto pField = manager.GetSolution(m_nId, nSimulationId, nBlock, NO_ID, dTime);
        if (!pField)
            continue;
        const auto pHoles =
            pHole ? manager.GetSolution(pHole->GetId(), nSimulationId, nBlock, NO_ID, dTime) : nullptr;
        range.Add(pHoles ? LiveRange(*pField, *pHoles) : pField->GetRange(0, true));
    }
    if (!range.IsEmpty())
        m_ranges.insert(sKey, range);
    return range;
}
