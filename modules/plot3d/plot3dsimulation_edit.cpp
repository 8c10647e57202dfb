// CPlot3DSimulation: what the user does to its items and files.
#include "cases/display/viewstate.h"
#include "data/gridmanager.h"
#include "data/solutionmanager.h"
#include "frame/packs/bytestream.h"
#include "frame/preferences/preferencekeys.h"
#include "frame/preferences/preferences.h"
#include "frame/userprompt.h"
#include "frame/widgetmanager.h"
#include "modules/plot3d/block.h"
#include "modules/plot3d/boundaryitem.h"
#include "modules/plot3d/icasefileseditor.h"
#include "modules/plot3d/plot3dsimulation.h"
#include "scene/iselectable.h"
#include "scene/selectablekind.h"
#include "scene/selectablemanager.h"
#include "view/adjacency.h"
#include "view/annotations/onelegend.h"
#include "view/selectables/kinds.h"

namespace {

bool AskDelete(const QVector<ISelectable*>& selected)
{
    const qint64 nKind = selected.first()->typeId();
    const SKindRow* const pRow = FindKind(nKind);
    const bool bOneKind = std::all_of(selected.begin(), selected.end(),
                                      [=](const ISelectable* p) { return p->typeId() == nKind; });
    const char* const sName = pRow && bOneKind ? pRow->sDeleteName : nullptr;
    const QString sSelected = QString(" [%1 items selected]").arg(selected.size());
    return sName ? UserPrompt::Confirm(QString("Delete %1").arg(sName),
                                       QString("Would you like to delete the selected %1?%2")
                                           .arg(QString(sName).toLower(), sSelected))
                 : UserPrompt::Confirm("Delete Items",
                                       "Would you like to delete the selected items from the simulation?" +
                                           sSelected);
}

/** Those of the first list that aren't in the second; both ascend. */
QVector<qint64> Missing(const QVector<qint64>& ids, const QVector<qint64>& from)
{
    QVector<qint64> missing;
    std::set_difference(ids.begin(), ids.end(), from.begin(), from.end(), std::back_inserter(missing));
    return missing;
}

} // namespace

bool CPlot3DSimulation::EditData()
{
    ICaseFilesEditor* const pEditor = ICaseFilesEditor::Installed();
    CCaseRecords records = GetRecords();
    records.bHoldsData = HoldsData();
    if (!pEditor || !pEditor->EditCaseFiles(records))
        return false;
    const QString sError = records.bNoDataRead ? QString() : Load(records);
    if (!sError.isEmpty())
        return UserPrompt::Tell(PromptWarning, "Grid File", sError);
    return ShowDisplayOf(records, CWidgetManager::Instance().GetActiveViewId());
}

CItem* CPlot3DSimulation::CreateItem(qint64 nType, qint64 nKind, bool, qint64, qint64 nId, qint64 nSubId)
{
    CItem* pItem = nullptr;
    if (nType == KindBlock)
        pItem = new CBlock;
    else if (nType == KindBoundarySurface)
        pItem = new CBoundaryItem;
    else if (nType == KindSurface)
        pItem = new CItem;
    else
        return nullptr;
    pItem->SetId(nId == NO_ID ? GetNextItemId() : nId);
    pItem->SetSubId(nSubId);
    pItem->SetType(nType);
    pItem->SetKind(nKind);
    return InsertItem(pItem);
}

/** Keys cost a read of the block's file, and blocks of different size never have the same. */
QVector<qint64> CPlot3DSimulation::GetLinkedItems(qint64 nId) const
{
    const CItem* const pItem = GetItem(nId);
    if (!pItem || pItem->GetType() != KindBlock || pItem->GetLinkKey().isEmpty())
        return {nId};
    QVector<qint64> ids;
    for (const CItem* const pOther : GetItems(KindBlock))
        if (pOther->GetSize() == pItem->GetSize() && pOther->GetLinkKey() == pItem->GetLinkKey())
            ids.append(pOther->GetId());
    return ids;
}

void CPlot3DSimulation::DeleteAllItems()
{
    CSolutionManager::Instance().RemoveSimulation(GetId());
    CGridManager::Instance().RemoveSimulation(GetId());
    DeleteItems(-1);
}

void CPlot3DSimulation::DeleteItem(qint64 nId, qint64)
{
    PassLegendsOf({nId});
    RemoveWithData({nId});
    RefreshViews();
}

bool CPlot3DSimulation::CanDelete(qint64 nViewId) const
{
    return !CSelectableManager::Instance().GetSelected(nViewId, GetId()).isEmpty();
}

/** A selectable of its item's own kind stands for the item; any other one is only shown on it. */
void CPlot3DSimulation::SelectAdjacent(qint64 nViewId)
{
    CSelectableManager& manager = CSelectableManager::Instance();
    QVector<ISelectable*> candidates = manager.GetSelectables(nViewId, GetId());
    candidates.erase(std::remove_if(candidates.begin(), candidates.end(),
                                    [](const ISelectable* pSelectable) { return !pSelectable->isVisible(); }),
                     candidates.end());
    const double dLimit = Get(CPreferences::Instance(), PreferenceKey::ANGLE_LIMIT);
    for (ISelectable* const pAdjacent :
         FindAdjacent(manager.GetSelected(nViewId, GetId()), candidates, dLimit))
        pAdjacent->setSelected(true);
    manager.NotifySelectionChanged(nViewId, GetId());
}

void CPlot3DSimulation::DeleteSelection(qint64 nViewId)
{
    CSelectableManager& manager = CSelectableManager::Instance();
    const QVector<ISelectable*> selected = manager.GetSelected(nViewId, GetId());
    if (selected.isEmpty() || !AskDelete(selected))
        return;
    QVector<qint64> itemIds;
    for (ISelectable* const pSelectable : selected) {
        const CItem* const pItem = GetItem(pSelectable->itemId());
        if (pItem && pSelectable->partId() == -1 && pItem->GetShownKind() == pSelectable->typeId())
            itemIds.append(pItem->GetId());
        else
            manager.Remove(pSelectable);
    }
    PassLegendsOf(itemIds);
    RemoveWithData(itemIds);
    RefreshViews();
    manager.NotifySelectionChanged(nViewId, GetId());
}

/** The legends of what is about to go, with all below it, to what stays in each view. */
void CPlot3DSimulation::PassLegendsOf(const QVector<qint64>& ids) const
{
    QSet<qint64> gone;
    for (const CItem* const pItem : GetItemsFromSelection(ids))
        for (const qint64 nId : pItem->GetChildIds(-1, true))
            gone.insert(nId);
    for (const qint64 nViewId : GetViewIds()) {
        QVector<ISelectable*> leaving, staying;
        for (ISelectable* const pSelectable : CSelectableManager::Instance().GetSelectables(nViewId, GetId()))
            if (pSelectable->isVisible())
                (gone.contains(pSelectable->itemId()) ? leaving : staying).append(pSelectable);
        PassLegendsOn(leaving, staying);
    }
}

/** With all below them and their data. */
void CPlot3DSimulation::RemoveWithData(const QVector<qint64>& ids)
{
    if (ids.isEmpty())
        return;
    std::set<ItemAddress> keys;
    for (const CItem* const pItem : GetItemsFromSelection(ids))
        for (const qint64 nId : pItem->GetChildIds(-1, true)) {
            const CItem* const pGone = GetItem(nId);
            if (keys.insert({nId, pGone->GetSubId()}).second)
                RemoveData(nId);
        }
    RemoveItems(keys);
}

bool CPlot3DSimulation::RestoreItems(const QByteArray& bytes)
{
    const QVector<qint64> formerIds = GetItemIds();
    CByteReader reader(bytes);
    if (!ReadItems(reader, SESSION_VERSION))
        return false;
    const QVector<qint64> ids = GetItemIds();
    for (const qint64 nId : Missing(formerIds, ids))
        RemoveData(nId);
    const QVector<qint64> back = Missing(ids, formerIds);
    if (back.isEmpty())
        return true;
    QVector<qint64> blockIds(m_case.blocks.size(), NO_ID); // parallel to the blocks of the files
    for (CItem* const pItem : GetItemsFromSelection(back))
        if (pItem->GetType() == KindBlock)
            if (const int n = m_case.blockIndices.indexOf(static_cast<CBlock*>(pItem)->GetFileIndex());
                n >= 0)
                blockIds[n] = pItem->GetId();
    RegisterPlot3DData(GetId(), m_case, blockIds);
    for (CItem* const pItem : GetItemsFromSelection(back))
        pItem->CreateSelectable(-1);
    return true;
}

void CPlot3DSimulation::RemoveData(qint64 nId) const
{
    CSolutionManager::Instance().RemoveItem(GetId(), nId);
    CGridManager::Instance().RemoveItem(GetId(), nId);
}
