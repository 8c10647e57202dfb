#include "cases/display/shownitems.h"

#include "scene/iselectable.h"
#include "scene/selectablemanager.h"
#include "simulation/iselectablefactory.h"
#include "simulation/isimulation.h"
#include "simulation/item.h"
#include "view/selectables/surfaceitems.h"

SItemNames::SItemNames(const ISimulation& simulation, qint64 nItemId)
{
    const CItem* const pItem = simulation.GetItem(nItemId);
    if (!pItem)
        return;
    sName = pItem->GetName();
    if (const CItem* const pParent = simulation.GetItem(pItem->GetParentId()))
        sParentName = pParent->GetName();
}

CShownItems::CShownItems(ISimulation& simulation, qint64 nViewId)
    : m_simulation(simulation), m_nViewId(nViewId)
{
    for (ISelectable* const pSelectable :
         CSelectableManager::Instance().GetSelectables(nViewId, simulation.GetId()))
        m_selectables[{pSelectable->itemId(), pSelectable->typeId()}].append(pSelectable);
}

QVector<qint64> CShownItems::FindById(const QVector<SViewState::SShown>& shown) const
{
    QVector<qint64> itemIds;
    for (const SViewState::SShown& one : shown)
        itemIds.append(m_simulation.GetItem(one.nItemId) ? one.nItemId : -1);
    return itemIds;
}

QVector<qint64> CShownItems::FindStored(const QVector<SViewState::SShown>& shown)
{
    QVector<qint64> itemIds(shown.size(), -1);
    // All ids that fit go first: no name may take the item of one.
    for (int n = 0; n < shown.size(); ++n) {
        const CItem* const pItem = m_simulation.GetItem(shown[n].nItemId);
        if (!pItem || !IsSame(*pItem, shown[n]))
            continue;
        itemIds[n] = pItem->GetId();
        m_taken.insert(pItem->GetId());
    }
    for (int n = 0; n < shown.size(); ++n)
        if (itemIds[n] == -1)
            itemIds[n] = FindByName(shown[n]);
    for (int n = 0; n < shown.size(); ++n)
        if (itemIds[n] == -1 && shown[n].nKind == KindSurface)
            itemIds[n] = MakeSurface(shown[n]);
    return itemIds;
}

ISelectable* CShownItems::Take(qint64 nItemId, qint64 nKind)
{
    QVector<ISelectable*>& found = m_selectables[{nItemId, nKind}];
    if (!found.isEmpty())
        return found.takeFirst();
    CItem* const pItem = m_simulation.GetItem(nItemId);
    ISelectableFactory* const pFactory = ISelectableFactory::Installed();
    if (!pItem || pItem->GetType() != nKind || !pFactory || pItem->GetSelectable(m_nViewId))
        return nullptr;
    // Not with all below it, as elsewhere: what is made now has the order of the state.
    ISelectable* const pMade = pFactory->CreateItemSelectable(*pItem, m_nViewId);
    CSelectableManager::Instance().Add(pMade);
    pItem->UpdateSelectableParent(m_nViewId);
    m_simulation.SetSelectableDimension(pMade);
    return pMade;
}

/** A surface has no name of its own; what stands on an item of another kind goes by that item's id. */
bool CShownItems::IsSame(const CItem& item, const SViewState::SShown& shown) const
{
    const SItemNames names(m_simulation, item.GetId());
    return (item.GetType() == shown.nKind || shown.nKind != KindSurface) && names.sName == shown.sName &&
           names.sParentName == shown.sParentName;
}

QString CShownItems::NameKey(qint64 nKind, const QString& sName, const QString& sParentName) const
{
    return QString::number(nKind) + '\n' + sName + '\n' + sParentName;
}

qint64 CShownItems::FindByName(const SViewState::SShown& shown)
{
    if (m_idsByName.isEmpty())
        for (const CItem* const pItem : m_simulation.GetItems()) {
            const SItemNames names(m_simulation, pItem->GetId());
            m_idsByName[NameKey(pItem->GetType(), names.sName, names.sParentName)].append(pItem->GetId());
        }
    for (const qint64 nId : m_idsByName.value(NameKey(shown.nKind, shown.sName, shown.sParentName))) {
        if (m_taken.contains(nId))
            continue;
        m_taken.insert(nId);
        return nId;
    }
    return -1;
}

qint64 CShownItems::MakeSurface(const SViewState::SShown& shown)
{
    for (const CItem* const pBlock : m_simulation.GetItems(KindBlock))
        if (pBlock->GetName() == shown.sParentName) {
            const CItem* const pMade =
                CreateSurfaceItem(m_simulation, pBlock->GetId(), FacePlane(pBlock->GetSize(), 4));
            if (!pMade)
                return -1;
            if (ISelectable* const pSelectable = pMade->GetSelectable(m_nViewId))
                m_selectables[{pMade->GetId(), KindSurface}].append(pSelectable);
            return pMade->GetId();
        }
    return -1;
}
