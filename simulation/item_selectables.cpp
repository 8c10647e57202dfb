// CItem: how it appears in the views.
#include "scene/iselectable.h"
#include "scene/selectablemanager.h"
#include "simulation/iselectablefactory.h"
#include "simulation/isimulationitems.h"
#include "simulation/item.h"

namespace {
ISelectableFactory* s_pFactory = nullptr;
}

ISelectableFactory* ISelectableFactory::Install(ISelectableFactory* pFactory)
{
    return std::exchange(s_pFactory, pFactory);
}

ISelectableFactory* ISelectableFactory::Installed() { return s_pFactory; }

QVector<qint64> CItem::ViewsOf(qint64 nViewId) const
{
    if (nViewId != -1)
        return {nViewId};
    return m_pSimulation ? m_pSimulation->GetViewIds() : QVector<qint64>();
}

std::optional<SItemPart> CItem::FindPart(qint64 nPartId) const
{
    if (nPartId == -1)
        return SItemPart{GetShownKind(), -1, {}};
    for (const SItemPart& part : GetParts())
        if (part.nPartId == nPartId)
            return part;
    return {};
}

ISelectable* CItem::GetSelectable(qint64 nViewId, qint64 nPartId) const
{
    return CSelectableManager::Instance().Find(nViewId, m_nSimulationId, m_nId, nPartId);
}

ISelectable* CItem::MakeSelectable(qint64 nViewId, qint64 nPartId)
{
    if (ISelectable* const pFormer = GetSelectable(nViewId, nPartId))
        return pFormer;
    const std::optional<SItemPart> part = FindPart(nPartId);
    if (!part || !ISelectableFactory::Installed())
        return nullptr;
    ISelectable* const pMade = ISelectableFactory::Installed()->CreateItemSelectable(*this, *part, nViewId);
    CSelectableManager::Instance().Add(pMade);
    ISelectable* const pWhole = nPartId == -1 ? nullptr : GetSelectable(nViewId);
    if (pWhole)
        pMade->addParent(pWhole, true); // it goes along with the item's
    else
        UpdateSelectableParent(nViewId);
    return pMade;
}

void CItem::SelectInView(qint64 nViewId)
{
    ISelectable* const pSelectable = GetSelectable(nViewId);
    if (!pSelectable)
        return;
    pSelectable->setSelected(true);
    CSelectableManager::Instance().NotifySelectionChanged(nViewId, m_nSimulationId);
}

void CItem::CreateSelectable(qint64 nViewId)
{
    if (!ISelectableFactory::Installed())
        return;
    for (const qint64 nView : ViewsOf(nViewId))
        for (const qint64 nId : GetChildIds(-1, true)) {
            CItem* const pItem = nId == m_nId ? this : FindItem(nId);
            if (!pItem)
                continue;
            pItem->MakeSelectable(nView);
            for (const SItemPart& part : pItem->GetParts())
                pItem->MakeSelectable(nView, part.nPartId);
        }
}

void CItem::DeleteSelectable(qint64 nViewId)
{
    for (const qint64 nView : ViewsOf(nViewId))
        CSelectableManager::Instance().Remove(GetSelectable(nView));
}

void CItem::OnParentChanged(CItem* pOld)
{
    for (const qint64 nView : ViewsOf(-1)) {
        ISelectable* const pSelectable = GetSelectable(nView);
        ISelectable* const pFormer = pOld ? pOld->GetSelectable(nView) : nullptr;
        if (pSelectable && pFormer) {
            pFormer->removeChild(pSelectable);
            pSelectable->removeParent(pFormer);
        }
        UpdateSelectableParent(nView);
    }
    RefreshSelectable(-1); // its place in the tree is part of what is shown
}

void CItem::UpdateSelectableParent(qint64 nViewId)
{
    ISelectable* const pSelectable = GetSelectable(nViewId);
    const CItem* const pParentItem = FindItem(GetParentId());
    ISelectable* const pParent = pParentItem ? pParentItem->GetSelectable(nViewId) : nullptr;
    if (!pSelectable || !pParent)
        return;
    pParent->addChild(pSelectable);
    pSelectable->addParent(pParent, false);
}

void CItem::RefreshSelectable(qint64 nViewId)
{
    for (const qint64 nView : ViewsOf(nViewId))
        if (ISelectable* const pSelectable = GetSelectable(nView))
            CSelectableManager::Instance().NotifyUpdated(pSelectable);
}
