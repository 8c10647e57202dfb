#include "view/selectables/selectable.h"

#include "data/managers/gridmanager.h"
#include "data/managers/solutionmanager.h"
#include "data/values/blockslices.h"
#include "data/variables/variablemanager.h"
#include "scene/selectablekeys.h"
#include "scene/selectablemanager.h"
#include "simulation/isimulation.h"
#include "simulation/item.h"
#include "simulation/simulationmanager.h"
#include "view/drawables/drawable.h"
#include "view/selectables/kinds.h"

namespace {

constexpr qint64 ANY_SUB_ID = -1;

constexpr std::pair<KindCapability_e, SKey<bool>> CAPABILITIES[] = {
    {CapabilityLegend, SelectableKey::HAS_LEGEND},
    {CapabilityIsoSurface, SelectableKey::CAN_ISO_SURFACE},
    {CapabilityPlaneCut, SelectableKey::CAN_PLANE_INTERSECTION},
    {CapabilityExtreme, SelectableKey::CAN_SCALAR_EXTREME},
    {CapabilitySums, SelectableKey::CAN_INTEGRATE_SCALAR},
    {CapabilitySums, SelectableKey::CAN_INTEGRATE_FORCE},
};

void AddOnce(QVector<ISelectable*>& list, ISelectable* pSelectable)
{
    if (!list.contains(pSelectable))
        list.append(pSelectable);
}

/** The cells between the nodes of a range; one that is flat in a direction keeps what it has there. */
SIJKRange CellsOf(const SIJKRange& nodes, const SBlockShape& cells)
{
    SIJKRange range = nodes;
    for (int nAxis = 0; nAxis < 3; ++nAxis)
        if (range.max[nAxis] > range.min[nAxis])
            --range.max[nAxis];
    return {cells.Clamped(range.min), cells.Clamped(range.max)};
}

LoadStatus_e AddRange(const ISolution& field, const SIJKRange& range, SValueRange& found)
{
    std::vector<double> values;
    return ForEachSlice(range, [&](const SIJKRange& part) {
        values.resize(part.Count());
        if (const LoadStatus_e eStatus = field.FillValues(part, values); eStatus != LoadOk)
            return eStatus;
        for (const double dValue : values)
            if (IsFieldValue(dValue))
                found.Add(dValue);
        return LoadOk;
    });
}

} // namespace

CSelectable::CSelectable(const CItem& item, qint64 nViewId, SelectableKind_e eKind, qint64 nPartId)
    : m_nSimulationId(item.GetSimulationId()),
      m_nViewId(nViewId),
      m_nItemId(item.GetId()),
      m_nTypeId(eKind),
      m_nPartId(nPartId)
{
    const SKindRow* const pRow = FindKind(eKind);
    if (!pRow)
        return;
    for (const auto& [nCapability, key] : CAPABILITIES)
        if (pRow->nCapabilities & nCapability)
            Set(*this, key, true);
    Set(*this, SelectableKey::DATA_DOCKS, pRow->nDocks);
}

CSelectable::~CSelectable()
{
    for (ISelectable* const pParent : QVector<ISelectable*>(m_parents))
        removeParent(pParent);
    for (ISelectable* const pChild : QVector<ISelectable*>(m_children)) {
        if (!m_children.contains(pChild))
            continue; // it went along with another
        const auto* const pOwned = dynamic_cast<CSelectable*>(pChild);
        const bool bOwns = pOwned && pOwned->m_hardParents.contains(this);
        removeChild(pChild);
        if (bOwns)
            CSelectableManager::Instance().Remove(pChild);
    }
    for (IDrawable* const pDrawable : std::as_const(m_drawables))
        delete pDrawable;
}

CItem* CSelectable::FindItem() const
{
    const ISimulation* const pSimulation = CSimulationManager::Instance().GetSimulation(m_nSimulationId);
    return pSimulation ? pSimulation->GetItem(m_nItemId) : nullptr;
}

CItem* CSelectable::FindBlock() const
{
    const ISimulation* const pSimulation = CSimulationManager::Instance().GetSimulation(m_nSimulationId);
    return pSimulation ? pSimulation->GetItem(m_nBlockId) : nullptr;
}

QString CSelectable::name() const
{
    const CItem* const pItem = FindItem();
    const std::optional<SItemPart> part = pItem ? pItem->FindPart(m_nPartId) : std::nullopt;
    if (!part)
        return {};
    return m_nPartId == -1 ? pItem->GetDisplayName() : part->sName;
}

void CSelectable::SetBlocks(const QVector<qint64>& blockIds)
{
    m_blockIds = blockIds;
    m_nBlockId = blockIds.value(0, NO_ID);
}

void CSelectable::AddDrawable(CDrawable* pDrawable)
{
    pDrawable->setItemId(m_nItemId);
    pDrawable->addOwner(this);
    m_drawables.append(pDrawable);
}

void CSelectable::RemoveLastDrawable() { delete m_drawables.takeLast(); }

void CSelectable::addChild(ISelectable* pChild)
{
    if (pChild == this || m_children.contains(pChild))
        return;
    m_children.append(pChild);
    pChild->addParent(this, false);
}

void CSelectable::removeChild(ISelectable* pChild)
{
    if (m_children.removeAll(pChild) > 0)
        pChild->removeParent(this);
}

void CSelectable::addParent(ISelectable* pParent, bool bHard)
{
    if (pParent == this)
        return;
    if (bHard)
        AddOnce(m_hardParents, pParent);
    if (m_parents.contains(pParent))
        return;
    m_parents.append(pParent);
    pParent->addChild(this);
}

void CSelectable::removeParent(ISelectable* pParent)
{
    m_hardParents.removeAll(pParent);
    if (m_parents.removeAll(pParent) > 0)
        pParent->removeChild(this);
}

bool CSelectable::isDescendantOf(const ISelectable* pAncestor) const
{
    QVector<const ISelectable*> toVisit(m_parents.begin(), m_parents.end());
    for (int n = 0; n < toVisit.size(); ++n) { // grows as it goes; each stands in it once
        if (toVisit[n] == pAncestor)
            return true;
        const auto* const pParent = dynamic_cast<const CSelectable*>(toVisit[n]);
        for (const ISelectable* const pNext : pParent ? pParent->m_parents : QVector<ISelectable*>())
            if (!toVisit.contains(pNext))
                toVisit.append(pNext);
    }
    return false;
}

void CSelectable::setVisible(bool bVisible)
{
    m_bHidden = !bVisible;
    for (IDrawable* const pDrawable : std::as_const(m_drawables))
        pDrawable->setVisible(bVisible);
}

bool CSelectable::isVisible() const
{
    if (m_drawables.isEmpty())
        return !m_bHidden;
    return std::all_of(m_drawables.begin(), m_drawables.end(),
                       [](const IDrawable* pDrawable) { return pDrawable->isVisible(); });
}

SValueRange CSelectable::rangeOfVariable(qint64 nVariableId) const
{
    const IVariable* const pVariable = CVariableManager::Instance().GetVariable(nVariableId);
    if (!pVariable)
        return {};
    const double dTime = CSimulationManager::Instance().GetRequestTime(m_nViewId, m_nSimulationId);
    SValueRange range;
    for (const qint64 nBlockId : m_blockIds) {
        const auto pGrid = CGridManager::Instance().GetGrid(m_nSimulationId, nBlockId, ANY_SUB_ID, dTime);
        const auto pField = CSolutionManager::Instance().GetSolution(nVariableId, m_nSimulationId, nBlockId,
                                                                     ANY_SUB_ID, dTime);
        if (!pGrid || !pField)
            continue;
        const SIJKRange nodes = NodesInBlock(pGrid->GetShape());
        const SBlockShape shape = pField->GetShape();
        const SIJKRange elements = pVariable->GetLocation() == LocationCell ? CellsOf(nodes, shape) : nodes;
        if (AddRange(*pField, Intersection(elements, shape.Range()), range) != LoadOk)
            return {};
    }
    return range;
}

bool CSelectable::Offers(const SKey<bool>& key, bool bNeedsValues) const
{
    if (!Get(*this, key) || CGridManager::Instance().GetItemIds(m_nSimulationId).isEmpty())
        return false;
    if (!bNeedsValues)
        return true;
    const CVariableManager& variables = CVariableManager::Instance();
    const QVector<qint64> ids = variables.ListVariables(m_nSimulationId, false);
    return std::any_of(ids.begin(), ids.end(), [&](qint64 nId) {
        return CSolutionManager::Instance().HasSolutions(m_nSimulationId, nId);
    });
}

bool CSelectable::CanCalculatePlaneIntersection() const
{
    return Offers(SelectableKey::CAN_PLANE_INTERSECTION, false);
}
bool CSelectable::CanCalculateISOSurface() const { return Offers(SelectableKey::CAN_ISO_SURFACE, true); }
bool CSelectable::CanCalculateScalarExtreme() const
{
    return Offers(SelectableKey::CAN_SCALAR_EXTREME, true);
}
bool CSelectable::CanIntegrateScalar() const { return Offers(SelectableKey::CAN_INTEGRATE_SCALAR, true); }
bool CSelectable::CanIntegrateForce() const { return Offers(SelectableKey::CAN_INTEGRATE_FORCE, true); }
