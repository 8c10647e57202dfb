#include "cases/display/viewstate.h"

#include "cases/display/pairdisplay.h"
#include "cases/display/shownitems.h"
#include "data/variables/variablekeys.h"
#include "frame/messagesink.h"
#include "frame/packs/bytestream.h"
#include "scene/iselectable.h"
#include "scene/selectablemanager.h"
#include "simulation/isimulation.h"
#include "simulation/item.h"
#include "simulation/simulationmanager.h"
#include "view/selectables/kinds.h"

#include <QJsonDocument>

namespace {

// Item, kind, two names, two flags, display.
constexpr qint64 LEAST_SIZE = 8 + 8 + 4 + 4 + 2 + 4;

constexpr qint64 VERSION_WITH_PARTS = 2;

void WriteVector(CByteWriter& writer, const DVector3D& vector)
{
    for (const double dValue : {vector.x, vector.y, vector.z})
        writer.Write(dValue);
}

void WritePair(CByteWriter& writer, const SViewState::SPair& pair)
{
    writer.Write(pair.dTime);
    writer.Write(pair.bTransient);
    WriteVector(writer, pair.rotationCentre);
    for (int nAxis = 0; nAxis < 3; ++nAxis) {
        writer.Write(pair.mirror.bActive[nAxis]);
        writer.Write(pair.mirror.dOffset[nAxis]);
        writer.Write(pair.sectors.bActive[nAxis]);
        writer.Write(pair.sectors.nCount[nAxis]);
    }
}

bool ReadPair(CByteReader& reader, SViewState::SPair& pair)
{
    reader.Read(pair.dTime);
    reader.Read(pair.bTransient);
    for (double* const pValue : {&pair.rotationCentre.x, &pair.rotationCentre.y, &pair.rotationCentre.z})
        reader.Read(*pValue);
    for (int nAxis = 0; nAxis < 3; ++nAxis) {
        reader.Read(pair.mirror.bActive[nAxis]);
        reader.Read(pair.mirror.dOffset[nAxis]);
        reader.Read(pair.sectors.bActive[nAxis]);
        reader.Read(pair.sectors.nCount[nAxis]);
    }
    return reader.IsOk();
}

void WriteShown(CByteWriter& writer, const QVector<SViewState::SShown>& shown)
{
    writer.Write(qint64(shown.size()));
    for (const SViewState::SShown& one : shown) {
        writer.Write(one.nItemId);
        writer.Write(one.nKind);
        writer.Write(one.sName);
        writer.Write(one.sParentName);
        writer.Write(one.bVisible);
        writer.Write(one.bSelected);
        writer.Write(one.display);
    }
}

bool ReadShown(CByteReader& reader, QVector<SViewState::SShown>& shown)
{
    qint64 nCount = 0;
    if (!reader.Read(nCount) || !reader.CheckCount(nCount, LEAST_SIZE))
        return false;
    shown.clear();
    for (qint64 n = 0; n < nCount && reader.IsOk(); ++n) {
        SViewState::SShown one;
        reader.Read(one.nItemId);
        reader.Read(one.nKind);
        reader.Read(one.sName);
        reader.Read(one.sParentName);
        reader.Read(one.bVisible);
        reader.Read(one.bSelected);
        reader.Read(one.display);
        shown.append(one);
    }
    return reader.IsOk();
}

/** Behind the record of the first version, and only where it says something. */
void WriteTail(CByteWriter& writer, const SViewState& state)
{
    const bool bParts = std::any_of(state.shown.begin(), state.shown.end(),
                                    [](const SViewState::SShown& one) { return one.nPartId != -1; });
    if (!bParts && state.unknown.isEmpty())
        return;
    writer.Write(VERSION_WITH_PARTS);
    for (const SViewState::SShown& one : state.shown)
        writer.Write(one.nPartId);
    writer.Write(QJsonDocument(state.unknown).toJson(QJsonDocument::Compact));
}

/** A state of the first version has none; what a later one says here isn't known. */
bool ReadTail(CByteReader& reader, SViewState& state)
{
    qint64 nVersion = 0;
    if (reader.BytesLeft() == 0 || !reader.Read(nVersion) || nVersion != VERSION_WITH_PARTS)
        return reader.IsOk();
    for (SViewState::SShown& one : state.shown)
        reader.Read(one.nPartId);
    QByteArray unknown;
    reader.Read(unknown);
    state.unknown = QJsonDocument::fromJson(unknown).object();
    return reader.IsOk();
}

void ApplyPair(const ISimulation& simulation, const SViewState::SPair& pair, qint64 nViewId, double dVersion)
{
    CSimulationManager& manager = CSimulationManager::Instance();
    const qint64 nId = simulation.GetId();
    manager.SetRotationCentre(nViewId, nId, pair.rotationCentre);
    PairDisplay::Apply(nViewId, nId, pair.mirror, pair.sectors);
    if (dVersion == SESSION_VERSION || simulation.GetTimeCount() == 0)
        return;
    const double dTime = simulation.IndexToTime(simulation.TimeToIndex(pair.dTime)); // a level that is there
    manager.SetTransient(nViewId, nId, pair.bTransient && simulation.GetTimeCount() >= 2);
    if (dTime != manager.GetTime(nViewId, nId))
        manager.SetTime(nViewId, nId, dTime);
}

void ApplyShown(ISelectable& selectable, const SViewState::SShown& shown, double dVersion)
{
    CSelectableManager& manager = CSelectableManager::Instance();
    selectable.setSelected(shown.bSelected);
    // What is the same is left alone: it would be built anew.
    if (!shown.display.isEmpty() && selectable.toBinary() != shown.display) {
        selectable.fromBinary(shown.display, dVersion);
        manager.NotifyUpdated(&selectable);
    }
    if (selectable.isVisible() == shown.bVisible)
        return;
    selectable.setVisible(shown.bVisible);
    manager.NotifyMaskChanged(&selectable);
}

/** What was deleted and is back stands at the end: everything goes where it stood, below its parent too. */
void Arrange(const ISimulation& simulation, qint64 nViewId, const QVector<ISelectable*>& inOrder)
{
    CSelectableManager& manager = CSelectableManager::Instance();
    const QVector<ISelectable*> former = manager.GetSelectables(nViewId, simulation.GetId());
    if (std::equal(inOrder.begin(), inOrder.end(), former.begin(), former.begin() + inOrder.size()))
        return;
    manager.Arrange(nViewId, simulation.GetId(), inOrder);
    for (ISelectable* const pSelectable : inOrder) {
        const CItem* const pItem = simulation.GetItem(pSelectable->itemId());
        const bool bPart = pSelectable->partId() != -1;
        const CItem* const pParentItem = bPart ? pItem : simulation.GetItem(pItem->GetParentId());
        if (ISelectable* const pParent = pParentItem ? pParentItem->GetSelectable(nViewId) : nullptr) {
            pParent->removeChild(pSelectable);
            pSelectable->addParent(pParent, bPart);
        }
    }
}

/** What isn't shown, to be written back. */
void Keep(const SViewState& state, const QVector<SViewState::SShown>& unknown, SKeptOfPair& kept)
{
    SViewState rest;
    rest.shown = unknown;
    kept = {state.unknown, unknown.isEmpty() ? QByteArray() : rest.ToBytes()};
}

} // namespace

QByteArray SViewState::ToBytes() const
{
    CByteWriter writer;
    WritePair(writer, pair);
    WriteShown(writer, shown);
    WriteTail(writer, *this);
    return writer.Take();
}

bool SViewState::FromBytes(const QByteArray& bytes)
{
    CByteReader reader(bytes);
    return ReadPair(reader, pair) && ReadShown(reader, shown) && ReadTail(reader, *this);
}

SViewState TakeViewState(const ISimulation& simulation, qint64 nViewId)
{
    const VariableKeys::CScope scope;
    const CSimulationManager& manager = CSimulationManager::Instance();
    const qint64 nId = simulation.GetId();
    SViewState state;
    state.pair = {manager.GetTime(nViewId, nId), manager.IsTransient(nViewId, nId),
                  manager.GetRotationCentre(nViewId, nId), manager.GetMirror(nViewId, nId),
                  manager.GetSectors(nViewId, nId)};
    for (const ISelectable* const p : CSelectableManager::Instance().GetSelectables(nViewId, nId)) {
        const SItemNames names(simulation, p->itemId(), p->partId());
        state.shown.append({p->itemId(), p->typeId(), p->partId(), names.sName, names.sParentName,
                            p->isVisible(), p->isSelected(), p->toBinary()});
    }
    const SKeptOfPair& kept = CSelectableManager::Instance().Kept(nViewId, nId);
    state.unknown = kept.members;
    if (SViewState rest; rest.FromBytes(kept.entries))
        state.shown += rest.shown;
    return state;
}

void ApplyViewState(ISimulation& simulation, const SViewState& state, qint64 nViewId, double dVersion)
{
    const VariableKeys::CScope scope;
    ApplyPair(simulation, state.pair, nViewId, dVersion);
    CShownItems items(simulation, nViewId);
    const QVector<SShownPlace> places =
        dVersion == SESSION_VERSION ? items.FindById(state.shown) : items.FindStored(state.shown);
    QVector<ISelectable*> inOrder;
    QVector<SViewState::SShown> unknown;
    for (int n = 0; n < places.size(); ++n) {
        const SKindRow* const pRow = FindKind(state.shown[n].nKind);
        if (ISelectable* const pSelectable = items.Take(places[n], state.shown[n].nKind)) {
            ApplyShown(*pSelectable, state.shown[n], dVersion);
            inOrder.append(pSelectable);
        } else if (!pRow || !pRow->MakeSelectable) {
            unknown.append(state.shown[n]);
        }
    }
    Arrange(simulation, nViewId, inOrder);
    Keep(state, unknown, CSelectableManager::Instance().Kept(nViewId, simulation.GetId()));
    if (const qint64 nMissing = places.count({}); nMissing > 0 && dVersion != SESSION_VERSION)
        CMessageSink::Instance().Log(QString("%1: %2 of the items in the stored display are not in the case")
                                         .arg(simulation.GetName(), QString::number(nMissing)));
    CSelectableManager::Instance().NotifySelectionChanged(nViewId, simulation.GetId());
}
