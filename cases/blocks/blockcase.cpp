#include "cases/blocks/blockcase.h"

#include "cases/display/displayfile.h"
#include "cases/display/viewjson.h"
#include "cases/display/viewstate.h"
#include "data/managers/gridmanager.h"
#include "data/managers/solutionmanager.h"
#include "data/variables/variablemanager.h"
#include "frame/messagesink.h"
#include "frame/packs/bytestream.h"
#include "frame/preferences/preferencekeys.h"
#include "frame/preferences/preferences.h"
#include "frame/userprompt.h"
#include "scene/iselectable.h"
#include "scene/selectablekind.h"
#include "scene/selectablemanager.h"
#include "simulation/item.h"
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

// Display state.

QByteArray CBlockCase::SaveViewState(qint64 nViewId) const
{
    return m_kept.ToStore(nViewId, TakeViewState(*this, nViewId).ToBytes());
}

QByteArray CBlockCase::SaveViewEdits(qint64 nViewId) const
{
    SViewState state = TakeViewState(*this, nViewId);
    for (SViewState::SShown& shown : state.shown)
        shown.bSelected = false;
    return state.ToBytes();
}

bool CBlockCase::LoadViewState(const QByteArray& bytes, qint64 nViewId, double dVersion)
{
    SViewState state;
    if (!state.FromBytes(bytes))
        return false;
    ApplyViewState(*this, state, nViewId, dVersion);
    if (dVersion != SESSION_VERSION && !m_sDataProblemList.isEmpty())
        m_kept.Keep(nViewId, bytes, TakeViewState(*this, nViewId).ToBytes());
    return true;
}

QJsonObject CBlockCase::SaveViewJson(qint64 nViewId) const { return TakeViewJson(*this, nViewId); }

bool CBlockCase::LoadViewJson(const QJsonObject& display, qint64 nViewId, double)
{
    return ApplyViewJson(*this, display, nViewId);
}

void CBlockCase::CreateDefaultSelectables(qint64 nViewId)
{
    const CSelectableManager& manager = CSelectableManager::Instance();
    const int nFormer = manager.GetSelectables(nViewId, GetId()).size();
    for (CItem* const pItem : GetItems())
        if (!pItem->GetSelectable(nViewId))
            pItem->CreateSelectable(nViewId);
    for (ISelectable* const pNew : manager.GetSelectables(nViewId, GetId()).mid(nFormer))
        SetSelectableDimension(pNew);
}

bool CBlockCase::ShowsSelection() const { return CPreferences::Instance().Draw().bHighlightInAnalyze; }

/** Without items, or without their data, there is nothing that anybody has looked at. */
void CBlockCase::SaveDisplayFile(qint64 nViewId)
{
    if (GetItemCount() > 0 && m_sDataProblemList.isEmpty())
        WriteDisplayFile(*this, nViewId);
}

bool CBlockCase::ChooseDisplayFile(qint64 nViewId)
{
    if (std::exchange(m_bDisplayChosen, false))
        return false;
    return OfferDisplayFiles(*this, nViewId);
}

bool CBlockCase::LoadDisplayFile(const QString& sFile, qint64 nViewId)
{
    return ReadDisplayFile(*this, sFile, nViewId);
}

void CBlockCase::FinishLoad()
{
    m_sDataProblemList.clear();
    TellViews();
    m_kept.Show(*this);
}

/** New items appear; whoever shows one that stays, or a variable, reads it again. */
void CBlockCase::TellViews()
{
    CSelectableManager& selectables = CSelectableManager::Instance();
    bool bShownBefore = false;
    for (const qint64 nViewId : GetViewIds()) {
        const QVector<ISelectable*> former = selectables.GetSelectables(nViewId, GetId());
        bShownBefore |= !former.isEmpty();
        CreateDefaultSelectables(nViewId);
        for (ISelectable* const pSelectable : former)
            selectables.NotifyUpdated(pSelectable);
    }
    CVariableManager& variables = CVariableManager::Instance();
    for (const qint64 nId : bShownBefore ? variables.ListVariables(GetId(), false) : QVector<qint64>())
        if (IVariable* const pVariable = variables.GetVariable(nId); pVariable->IsFileVariable()) {
            pVariable->InvalidateRange();
            pVariable->OnVariableChanged();
        }
    RefreshViews();
}

// Undo.

QByteArray CBlockCase::ItemBytes() const
{
    CByteWriter writer;
    WriteItems(writer);
    return writer.Take();
}

QByteArray CBlockCase::CaptureState() const
{
    return m_restorable.ToState(ItemBytes(), ISimulation::CaptureState());
}

bool CBlockCase::RestoreState(const QByteArray& bytes)
{
    const auto state = m_restorable.FromState(bytes);
    if (!state || (state->bOfThisLoad && !RestoreItems(state->items)))
        return false;
    // A view that gets its former plane moves the plane of the item too, which may be that of another view.
    return ISimulation::RestoreState(state->views) && (!state->bOfThisLoad || RestoreItems(state->items));
}

bool CBlockCase::IsCurrentState(const QByteArray& bytes) const
{
    const auto state = m_restorable.FromState(bytes);
    return state && (!state->bOfThisLoad || state->items == ItemBytes()) &&
           ISimulation::IsCurrentState(state->views);
}

bool CBlockCase::RestoreItems(const QByteArray& bytes)
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
    if (const QString sProblem = RegisterData(back); !sProblem.isEmpty())
        CMessageSink::Instance().Log(sProblem);
    for (CItem* const pItem : GetItemsFromSelection(back))
        pItem->CreateSelectable(-1);
    return true;
}

// Editing.

CItem* CBlockCase::CreateItem(qint64 nType, qint64 nKind, bool, qint64, qint64 nId, qint64 nSubId)
{
    CItem* const pItem = MakeItem(nType, nKind);
    if (!pItem)
        return nullptr;
    pItem->SetId(nId == NO_ID ? GetNextItemId() : nId);
    pItem->SetSubId(nSubId);
    pItem->SetType(nType);
    pItem->SetKind(nKind);
    return InsertItem(pItem);
}

/** Keys cost a read of the block's file, and blocks of different size never have the same. */
QVector<qint64> CBlockCase::GetLinkedItems(qint64 nId) const
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

void CBlockCase::DeleteAllItems()
{
    CSolutionManager::Instance().RemoveSimulation(GetId());
    CGridManager::Instance().RemoveSimulation(GetId());
    DeleteItems(-1);
}

void CBlockCase::DeleteItem(qint64 nId, qint64)
{
    PassLegendsOf({nId});
    RemoveWithData({nId});
    RefreshViews();
}

bool CBlockCase::CanDelete(qint64 nViewId) const
{
    return !CSelectableManager::Instance().GetSelected(nViewId, GetId()).isEmpty();
}

/** A selectable of its item's own kind stands for the item; any other one is only shown on it. */
void CBlockCase::SelectAdjacent(qint64 nViewId)
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

void CBlockCase::DeleteSelection(qint64 nViewId)
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
void CBlockCase::PassLegendsOf(const QVector<qint64>& ids) const
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
void CBlockCase::RemoveWithData(const QVector<qint64>& ids)
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

void CBlockCase::RemoveData(qint64 nId) const
{
    CSolutionManager::Instance().RemoveItem(GetId(), nId);
    CGridManager::Instance().RemoveItem(GetId(), nId);
}
