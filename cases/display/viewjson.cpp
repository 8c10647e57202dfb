#include "cases/display/viewjson.h"

#include "cases/display/blocknames.h"
#include "cases/display/shownitems.h"
#include "frame/messagesink.h"
#include "scene/iselectable.h"
#include "scene/selectablemanager.h"
#include "simulation/isimulation.h"
#include "simulation/item.h"
#include "view/selectables/kinds.h"
#include "view/selectables/selectable.h"

#include <QJsonArray>

namespace {

constexpr const char *FORMER_BLOCKS = "blocks", *DISPLAY = "disp", *NAME = "name";

const char* BlockList() { return FindKind(KindBlock)->sList; }

/** Those of a kind that stand under the block in the view, its parts first, each in its order. */
QVector<ISelectable*> UnderBlock(const ISimulation& simulation, const CItem& block, qint64 nKind,
                                 qint64 nViewId)
{
    QVector<ISelectable*> found;
    for (const SItemPart& part : block.GetParts())
        if (part.eKind == nKind)
            found.append(block.GetSelectable(nViewId, part.nPartId));
    for (const qint64 nId : block.GetChildIds())
        if (const CItem* const pChild = simulation.GetItem(nId); pChild && pChild->GetShownKind() == nKind)
            found.append(pChild->GetSelectable(nViewId));
    found.removeAll(nullptr);
    return found;
}

/** Those of a kind that stand beside the blocks. */
QVector<ISelectable*> BesideBlocks(const ISimulation& simulation, qint64 nKind, qint64 nViewId)
{
    QVector<ISelectable*> found;
    for (ISelectable* const p : CSelectableManager::Instance().GetSelectables(nViewId, simulation.GetId()))
        if (p->typeId() == nKind)
            found.append(p);
    return found;
}

QString NameOf(const ISimulation& simulation, const ISelectable& selectable)
{
    return SItemNames(simulation, selectable.itemId(), selectable.partId()).sName;
}

QJsonObject ToEntry(const ISimulation& simulation, const SKindRow& row, const ISelectable& selectable)
{
    QJsonObject entry = selectable.toJsonBlock();
    if (!row.MakeItem)
        entry[NAME] = NameOf(simulation, selectable);
    return entry;
}

QJsonObject BlockDisplay(const ISimulation& simulation, const CItem& block, qint64 nViewId)
{
    QJsonObject display = block.GetSelectable(nViewId)->toJsonBlock();
    for (const SKindRow* const pRow : Kinds()) {
        if (!pRow->bUnderBlock || !pRow->HasList())
            continue;
        QJsonArray list;
        for (const ISelectable* const p : UnderBlock(simulation, block, pRow->eKind, nViewId))
            list.append(ToEntry(simulation, *pRow, *p));
        if (!list.isEmpty() || pRow->MakeItem)
            display[pRow->sList] = list;
    }
    return display;
}

QJsonArray BesideDisplay(const ISimulation& simulation, const SKindRow& row, bool bIdentify, qint64 nViewId)
{
    QJsonArray list;
    for (const ISelectable* const p : BesideBlocks(simulation, row.eKind, nViewId)) {
        QJsonObject entry = ToEntry(simulation, row, *p);
        if (const auto* const pSelectable = dynamic_cast<const CSelectable*>(p))
            BlockNames::PutList(simulation, pSelectable->blockIds(), bIdentify, entry);
        list.append(entry);
    }
    return list;
}

void ApplyTo(ISelectable& selectable, const QJsonObject& display)
{
    CSelectableManager& manager = CSelectableManager::Instance();
    const bool bWasVisible = selectable.isVisible();
    selectable.fromJsonBlock(display);
    manager.NotifyUpdated(&selectable);
    if (selectable.isVisible() != bWasVisible)
        manager.NotifyMaskChanged(&selectable);
}

/** Each entry of what users make goes to the next one, of all else to the next one of its name. */
void ApplyList(const ISimulation& simulation, const SKindRow& row, const QJsonArray& list,
               QVector<ISelectable*> free)
{
    for (const QJsonValue& value : list) {
        QJsonObject entry = value.toObject();
        const QString sName = row.MakeItem ? QString() : entry.take(NAME).toString();
        const auto next = std::find_if(free.begin(), free.end(), [&](const ISelectable* p) {
            return row.MakeItem || NameOf(simulation, *p) == sName;
        });
        if (next == free.end())
            continue;
        if (!row.bUnderBlock)
            BlockNames::TakeList(entry);
        ApplyTo(**next, entry);
        free.erase(next);
    }
}

void ApplyBlock(ISimulation& simulation, const CItem& block, QJsonObject display, qint64 nViewId)
{
    simulation.GetItem(block.GetId())->CreateSelectable(nViewId);
    ISelectable* const pSelectable = block.GetSelectable(nViewId);
    if (!pSelectable)
        return;
    QVector<QPair<const SKindRow*, QJsonArray>> lists;
    for (const SKindRow* const pRow : Kinds()) {
        if (!pRow->bUnderBlock || !pRow->HasList())
            continue;
        lists.append({pRow, display.take(pRow->sList).toArray()});
        // What the block lacks comes behind what it has.
        int nThere = UnderBlock(simulation, block, pRow->eKind, nViewId).size();
        while (pRow->MakeItem && nThere < lists.last().second.size() &&
               pRow->MakeItem(simulation, {block.GetId()}))
            ++nThere;
    }
    ApplyTo(*pSelectable, display);
    for (const auto& [pRow, list] : std::as_const(lists))
        ApplyList(simulation, *pRow, list, UnderBlock(simulation, block, pRow->eKind, nViewId));
}

void ApplyBeside(ISimulation& simulation, const SKindRow& row, const QJsonArray& list, qint64 nViewId)
{
    for (int n = BesideBlocks(simulation, row.eKind, nViewId).size(); row.MakeItem && n < list.size(); ++n)
        if (!row.MakeItem(simulation, BlockNames::ReadList(simulation, list[n].toObject())))
            break;
    ApplyList(simulation, row, list, BesideBlocks(simulation, row.eKind, nViewId));
}

bool StandsBeside(const SKindRow& row) { return row.HasList() && !row.bUnderBlock && row.eKind != KindBlock; }

QJsonValue ListOfBlocks(const QJsonObject& display)
{
    return display[display.contains(BlockList()) ? BlockList() : FORMER_BLOCKS];
}

/** Members of the display that this version shows nothing of; lists without an entry say nothing. */
QJsonObject UnknownMembers(QJsonObject display)
{
    display.remove(FORMER_BLOCKS);
    for (const SKindRow* const pRow : Kinds())
        if (pRow->HasList() && !pRow->bUnderBlock)
            display.remove(pRow->sList);
    for (const QString& sMember : display.keys())
        if (display[sMember].isArray() && display[sMember].toArray().isEmpty())
            display.remove(sMember);
    return display;
}

/** One line for all that isn't shown. */
void LogLeftOut(const ISimulation& simulation, const QJsonObject& unknown, int nBlocks)
{
    QStringList sLeftOutList;
    if (nBlocks > 0)
        sLeftOutList << QString("%1 block(s) that the case doesn't have").arg(nBlocks);
    for (const SKindRow* const pRow : Kinds())
        if (const int nCount = pRow->sList ? unknown[pRow->sList].toArray().size() : 0; nCount > 0)
            sLeftOutList << QString("%1 %2(s)").arg(QString::number(nCount), QString(pRow->sName).toLower());
    if (!sLeftOutList.isEmpty())
        CMessageSink::Instance().Log(
            QString("%1: left out of the display: %2").arg(simulation.GetName(), sLeftOutList.join(", ")));
}

} // namespace

QJsonObject TakeViewJson(const ISimulation& simulation, qint64 nViewId)
{
    QJsonObject display = CSelectableManager::Instance().Kept(nViewId, simulation.GetId()).members;
    const bool bIdentify = BlockNames::CanIdentify(simulation);
    QJsonArray blocks;
    for (const CItem* const pBlock : simulation.GetBlocks()) {
        if (!pBlock->GetSelectable(nViewId))
            continue;
        QJsonObject entry{{DISPLAY, BlockDisplay(simulation, *pBlock, nViewId)}};
        BlockNames::Put(*pBlock, bIdentify, entry);
        blocks.append(entry);
    }
    display[BlockList()] = blocks;
    for (const SKindRow* const pRow : Kinds())
        if (StandsBeside(*pRow))
            display[pRow->sList] = BesideDisplay(simulation, *pRow, bIdentify, nViewId);
    return display;
}

bool IsViewJson(const QJsonObject& display)
{
    return ListOfBlocks(display).isArray() ||
           std::any_of(Kinds().begin(), Kinds().end(), [&](const SKindRow* pRow) {
               return pRow->sList && !pRow->bUnderBlock && display[pRow->sList].isArray();
           });
}

bool ApplyViewJson(ISimulation& simulation, const QJsonObject& display, qint64 nViewId)
{
    if (!IsViewJson(display))
        return false;
    CBlockFinder finder(simulation);
    int nLeftOut = 0;
    for (const QJsonValue& value : ListOfBlocks(display).toArray()) {
        const QJsonObject entry = value.toObject();
        if (const CItem* const pBlock = finder.Take(entry))
            ApplyBlock(simulation, *pBlock, entry[DISPLAY].toObject(), nViewId);
        else
            ++nLeftOut;
    }
    for (const SKindRow* const pRow : Kinds())
        if (StandsBeside(*pRow))
            ApplyBeside(simulation, *pRow, display[pRow->sList].toArray(), nViewId);
    const QJsonObject unknown = UnknownMembers(display);
    CSelectableManager::Instance().Kept(nViewId, simulation.GetId()).members = unknown;
    LogLeftOut(simulation, unknown, nLeftOut);
    CSelectableManager::Instance().NotifySelectionChanged(nViewId, simulation.GetId());
    return true;
}
