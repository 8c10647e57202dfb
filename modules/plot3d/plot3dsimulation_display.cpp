// CPlot3DSimulation: what a view shows of it, as bytes and as JSON.
#include "frame/bytestream.h"
#include "modules/plot3d/plot3dkeys.h"
#include "modules/plot3d/plot3dsimulation.h"
#include "scene/iselectable.h"
#include "scene/selectablekind.h"
#include "scene/selectablemanager.h"
#include "simulation/item.h"

#include <QJsonArray>

namespace {

constexpr qint64 LEAST_ENTRY_SIZE = 8 + 8 + 4 + 2 + 4; // item, kind, name, two flags, display
constexpr double UNDO_VERSION = -1.0;

using Place = std::pair<qint64, qint64>; // item id, kind

/** What is stored of a selectable. */
struct SEntry
{
    qint64 nItemId = NO_ID;
    qint64 nKind = NO_ID;
    QString sName;
    bool bVisible = true;
    bool bSelected = false;
    QByteArray display; // ISelectable::toBinary; empty in states that have none
};

/** Gives each entry the selectable that it is of: the n-th of an item and kind to the n-th such entry. */
class CSelectableFinder
{
public:
    explicit CSelectableFinder(const QVector<ISelectable*>& selectables)
    {
        for (ISelectable* const pSelectable : selectables)
            m_places[{pSelectable->itemId(), pSelectable->typeId()}].append(pSelectable);
    }
    ISelectable* Take(const SEntry& entry)
    {
        QVector<ISelectable*>& found = m_places[{entry.nItemId, entry.nKind}];
        return found.isEmpty() ? nullptr : found.takeFirst();
    }

private:
    QHash<Place, QVector<ISelectable*>> m_places;
};

void Apply(const QVector<SEntry>& entries, qint64 nViewId, qint64 nSimulationId, double dVersion)
{
    CSelectableManager& manager = CSelectableManager::Instance();
    CSelectableFinder finder(manager.GetSelectables(nViewId, nSimulationId));
    for (const SEntry& entry : entries) {
        ISelectable* const pSelectable = finder.Take(entry);
        if (!pSelectable)
            continue;
        pSelectable->setSelected(entry.bSelected);
        // What is the same is left alone: it would be built anew.
        if (!entry.display.isEmpty() && pSelectable->toBinary() != entry.display) {
            pSelectable->fromBinary(entry.display, dVersion);
            manager.NotifyUpdated(pSelectable);
        }
        if (pSelectable->isVisible() == entry.bVisible)
            continue;
        pSelectable->setVisible(entry.bVisible);
        manager.NotifyMaskChanged(pSelectable);
    }
    manager.NotifySelectionChanged(nViewId, nSimulationId);
}

bool ReadEntries(CByteReader& reader, QVector<SEntry>& entries)
{
    qint64 nCount = 0;
    if (!reader.Read(nCount) || !reader.CheckCount(nCount, LEAST_ENTRY_SIZE))
        return false;
    for (qint64 n = 0; n < nCount && reader.IsOk(); ++n) {
        SEntry entry;
        reader.Read(entry.nItemId);
        reader.Read(entry.nKind);
        reader.Read(entry.sName);
        reader.Read(entry.bVisible);
        reader.Read(entry.bSelected);
        reader.Read(entry.display);
        entries.append(entry);
    }
    return reader.IsOk();
}

} // namespace

QByteArray CPlot3DSimulation::SaveViewState(qint64 nViewId) const
{
    CByteWriter writer;
    writer.Write(m_nLoads);
    writer.Write(GetItemIds());
    const QVector<ISelectable*> selectables = CSelectableManager::Instance().GetSelectables(nViewId, GetId());
    writer.Write(qint64(selectables.size()));
    for (const ISelectable* const pSelectable : selectables) {
        writer.Write(pSelectable->itemId());
        writer.Write(pSelectable->typeId());
        writer.Write(pSelectable->name());
        writer.Write(pSelectable->isVisible());
        writer.Write(pSelectable->isSelected());
        writer.Write(pSelectable->toBinary());
    }
    return writer.Take();
}

bool CPlot3DSimulation::LoadViewState(const QByteArray& state, qint64 nViewId, double dVersion)
{
    CByteReader reader(state);
    qint64 nLoads = 0;
    QVector<qint64> itemIds;
    QVector<SEntry> entries;
    if (!reader.Read(nLoads) || !reader.Read(itemIds) || !ReadEntries(reader, entries))
        return false;
    // A stored display changes no items, nor does a state of what was loaded before.
    if (dVersion == UNDO_VERSION && nLoads == m_nLoads)
        SyncItems(itemIds);
    for (const SEntry& entry : std::as_const(entries))
        if (CItem* const pItem = GetItem(entry.nItemId); pItem && pItem->GetType() == entry.nKind)
            pItem->CreateSelectable(nViewId);
    Apply(entries, nViewId, GetId(), dVersion);
    return true;
}

QJsonObject CPlot3DSimulation::SaveViewJson(qint64 nViewId) const
{
    QJsonArray entries;
    for (const ISelectable* const pSelectable :
         CSelectableManager::Instance().GetSelectables(nViewId, GetId()))
        entries.append(QJsonObject{{"item", double(pSelectable->itemId())},
                                   {"kind", double(pSelectable->typeId())},
                                   {"name", pSelectable->name()},
                                   {"visible", pSelectable->isVisible()},
                                   {"selected", pSelectable->isSelected()},
                                   {"disp", pSelectable->toJsonBlock()}});
    return {{"selectable", entries}};
}

bool CPlot3DSimulation::LoadViewJson(const QJsonObject& display, qint64 nViewId, double dVersion)
{
    QVector<SEntry> entries;
    CSelectableFinder finder(CSelectableManager::Instance().GetSelectables(nViewId, GetId()));
    for (const QJsonValue& value : display["selectable"].toArray()) {
        const QJsonObject json = value.toObject();
        SEntry entry;
        entry.nItemId = qint64(json["item"].toDouble(NO_ID));
        entry.nKind = qint64(json["kind"].toDouble(NO_ID));
        entry.bVisible = json["visible"].toBool(true);
        entry.bSelected = json["selected"].toBool();
        entries.append(entry);
        if (ISelectable* const pSelectable = finder.Take(entry))
            pSelectable->fromJsonBlock(json["disp"].toObject());
    }
    Apply(entries, nViewId, GetId(), dVersion);
    return true;
}

void CPlot3DSimulation::CreateDefaultSelectables(qint64 nViewId)
{
    const CSelectableManager& manager = CSelectableManager::Instance();
    const int nFormer = manager.GetSelectables(nViewId, GetId()).size();
    for (CItem* const pItem : GetItems())
        if (!pItem->GetSelectable(nViewId))
            pItem->CreateSelectable(nViewId);
    for (ISelectable* const pNew : manager.GetSelectables(nViewId, GetId()).mid(nFormer))
        SetSelectableDimension(pNew);
}

/** A boundary that goes along one axis alone is a line, as in two-dimensional grids. */
void CPlot3DSimulation::SetSelectableDimension(ISelectable* pSelectable) const
{
    const CItem* const pItem = GetItem(pSelectable->itemId());
    if (!pItem || pItem->GetType() != KindBoundarySurface) {
        ISimulation::SetSelectableDimension(pSelectable);
        return;
    }
    const IVector3D min = Get(*pItem, BoundaryKey::IJK_MIN);
    const IVector3D max = Get(*pItem, BoundaryKey::IJK_MAX);
    const int nFlat = int(min.i == max.i) + int(min.j == max.j) + int(min.k == max.k);
    pSelectable->setDimension(nFlat >= 2 ? 1 : 2);
}
