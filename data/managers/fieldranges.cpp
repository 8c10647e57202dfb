#include "data/managers/fieldranges.h"

#include "data/managers/gridmanager.h"
#include "data/managers/solutionmanager.h"
#include "data/values/blockslices.h"
#include "data/variables/icases.h"
#include "data/variables/ifieldranges.h"
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

class CFieldRanges : public IFieldRanges
{
public:
    std::optional<SValueRange> ComputeRange(qint64 nVariableId, qint64 nSimulationId, qint64 nItemId,
                                            double dTime) const override;
    bool HasFields(qint64 nSimulationId, qint64 nVariableId) const override
    {
        return CSolutionManager::Instance().HasSolutions(nSimulationId, nVariableId);
    }
    qint64 CountRestarts() const override
    {
        return CSolutionManager::Instance().CountRestarts() + CGridManager::Instance().CountRestarts();
    }
};

std::optional<SValueRange> CFieldRanges::ComputeRange(qint64 nVariableId, qint64 nSimulationId,
                                                      qint64 nItemId, double dTime) const
{
    CSolutionManager& manager = CSolutionManager::Instance();
    const CVariableManager& variables = CVariableManager::Instance();
    const IVariable* const pVariable = variables.GetVariable(nVariableId);
    const IVariable* const pHole =
        pVariable ? variables.GetHoleVariable(nSimulationId, pVariable->GetLocation()) : nullptr;
    SValueRange range;
    for (const qint64 nBlock :
         nItemId == NO_ID ? ICases::Installed().GetBlockIds(nSimulationId) : QVector<qint64>{nItemId}) {
        const auto pField = manager.GetSolution(nVariableId, nSimulationId, nBlock, NO_ID, dTime);
        if (!pField)
            continue;
        const auto pHoles =
            pHole ? manager.GetSolution(pHole->GetId(), nSimulationId, nBlock, NO_ID, dTime) : nullptr;
        if (AddRange(*pField, pHoles.get(), range) != LoadOk)
            return std::nullopt;
    }
    return range.IsEmpty() ? std::nullopt : std::optional(range);
}

} // namespace

void InstallFieldRanges()
{
    static const CFieldRanges* const pRanges = new CFieldRanges; // never destroyed, as the managers
    IFieldRanges::Install(pRanges);
}
