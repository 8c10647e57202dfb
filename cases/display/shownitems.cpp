#include "cases/display/shownitems.h"

#include "scene/iselectable.h"
#include "scene/selectablemanager.h"
#include "simulation/isimulation.h"
#include "simulation/item.h"
#include "view/selectables/kinds.h"

namespace {

QString NameKey(qint64 nKind, const QString& sName, const QString& sParentName)
{
    return QString::number(nKind) + '\n' + sName + '\n' + sParentName;
}

} // namespace

SItemNames::SItemNames(const ISimulation& simulation, qint64 nItemId, qint64 nPartId)
{
    const CItem* const pItem = simulation.GetItem(nItemId);
    const std::optional<SItemPart> part = pItem ? pItem->FindPart(nPartId) : std::nullopt;
    if (!part)
        return;
    sName = nPartId == -1 ? pItem->GetName() : part->sName;
    const CItem* const pParent = nPartId == -1 ? simulation.GetItem(pItem->GetParentId()) : pItem;
    if (pParent)
        sParentName = pParent->GetName();
}

CShownItems::CShownItems(ISimulation& simulation, qint64 nViewId)
    : m_simulation(simulation), m_nViewId(nViewId)
{
    for (ISelectable* const p : CSelectableManager::Instance().GetSelectables(nViewId, simulation.GetId()))
        m_selectables[{{p->itemId(), p->partId()}, p->typeId()}].append(p);
}

bool CShownItems::IsThere(const SShownPlace& place) const
{
    const CItem* const pItem = m_simulation.GetItem(place.nItemId);
    return pItem && pItem->FindPart(place.nPartId);
}

QVector<SShownPlace> CShownItems::FindById(const QVector<SViewState::SShown>& shown) const
{
    QVector<SShownPlace> places;
    for (const SViewState::SShown& one : shown) {
        const SShownPlace place{one.nItemId, one.nPartId};
        places.append(IsThere(place) ? place : SShownPlace());
    }
    return places;
}

QVector<SShownPlace> CShownItems::FindStored(const QVector<SViewState::SShown>& shown)
{
    QVector<SShownPlace> places(shown.size());
    // All ids that fit go first: no name may take the item of one.
    for (int n = 0; n < shown.size(); ++n) {
        const SShownPlace place{shown[n].nItemId, shown[n].nPartId};
        if (!IsThere(place) || !IsSame(place, shown[n]))
            continue;
        places[n] = place;
        m_taken.insert(place);
    }
    for (int n = 0; n < shown.size(); ++n)
        if (places[n] == SShownPlace())
            places[n] = FindByName(shown[n]);
    for (int n = 0; n < shown.size(); ++n)
        if (places[n] == SShownPlace())
            places[n] = Make(shown[n]);
    return places;
}

ISelectable* CShownItems::Take(const SShownPlace& place, qint64 nKind)
{
    QVector<ISelectable*>& found = m_selectables[{place, nKind}];
    if (!found.isEmpty())
        return found.takeFirst();
    CItem* const pItem = m_simulation.GetItem(place.nItemId);
    const std::optional<SItemPart> part = pItem ? pItem->FindPart(place.nPartId) : std::nullopt;
    if (!part || part->eKind != nKind || pItem->GetSelectable(m_nViewId, place.nPartId))
        return nullptr;
    // Not with all below it, as elsewhere: what is made now has the order of the state.
    ISelectable* const pMade = pItem->MakeSelectable(m_nViewId, place.nPartId);
    if (pMade)
        m_simulation.SetSelectableDimension(pMade);
    return pMade;
}

/** What users make has no name of its own; what stands on an item of another kind goes by that item's id. */
bool CShownItems::IsSame(const SShownPlace& place, const SViewState::SShown& shown) const
{
    const SItemNames names(m_simulation, place.nItemId, place.nPartId);
    const SKindRow* const pRow = FindKind(shown.nKind);
    const bool bByKind = pRow && pRow->MakeItem;
    return (!bByKind || m_simulation.GetItem(place.nItemId)->FindPart(place.nPartId)->eKind == shown.nKind) &&
           names.sName == shown.sName && names.sParentName == shown.sParentName;
}

void CShownItems::AddByName(const CItem& item, qint64 nKind, qint64 nPartId)
{
    const SItemNames names(m_simulation, item.GetId(), nPartId);
    m_byName[NameKey(nKind, names.sName, names.sParentName)].append({item.GetId(), nPartId});
}

SShownPlace CShownItems::FindByName(const SViewState::SShown& shown)
{
    if (m_byName.isEmpty())
        for (const CItem* const pItem : m_simulation.GetItems()) {
            AddByName(*pItem, pItem->GetShownKind(), -1);
            for (const SItemPart& part : pItem->GetParts())
                AddByName(*pItem, part.eKind, part.nPartId);
        }
    for (const SShownPlace& place : m_byName.value(NameKey(shown.nKind, shown.sName, shown.sParentName))) {
        if (m_taken.contains(place))
            continue;
        m_taken.insert(place);
        return place;
    }
    return {};
}

SShownPlace CShownItems::Make(const SViewState::SShown& shown)
{
    const SKindRow* const pRow = FindKind(shown.nKind);
    for (const CItem* const pBlock : pRow && pRow->MakeItem ? m_simulation.GetBlocks() : QVector<CItem*>()) {
        if (pBlock->GetName() != shown.sParentName)
            continue;
        const CItem* const pMade = pRow->MakeItem(m_simulation, {pBlock->GetId()});
        if (!pMade)
            return {};
        const SShownPlace place{pMade->GetId(), -1};
        if (ISelectable* const pSelectable = pMade->GetSelectable(m_nViewId))
            m_selectables[{place, shown.nKind}].append(pSelectable);
        return place;
    }
    return {};
}
