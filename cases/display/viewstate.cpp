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

namespace {

// Item, kind, two names, two flags, display.
constexpr qint64 LEAST_SIZE = 8 + 8 + 4 + 4 + 2 + 4;

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
        CItem* const pItem = simulation.GetItem(pSelectable->itemId());
        const CItem* const pParentItem = simulation.GetItem(pItem->GetParentId());
        if (ISelectable* const pParent = pParentItem ? pParentItem->GetSelectable(nViewId) : nullptr) {
            pParent->removeChild(pSelectable);
            pItem->UpdateSelectableParent(nViewId);
        }
    }
}

} // namespace

QByteArray SViewState::ToBytes() const
{
    CByteWriter writer;
    WritePair(writer, pair);
    writer.Write(qint64(shown.size()));
    for (const SShown& one : shown) {
        writer.Write(one.nItemId);
        writer.Write(one.nKind);
        writer.Write(one.sName);
        writer.Write(one.sParentName);
        writer.Write(one.bVisible);
        writer.Write(one.bSelected);
        writer.Write(one.display);
    }
    return writer.Take();
}

bool SViewState::FromBytes(const QByteArray& bytes)
{
    CByteReader reader(bytes);
    qint64 nCount = 0;
    if (!ReadPair(reader, pair) || !reader.Read(nCount) || !reader.CheckCount(nCount, LEAST_SIZE))
        return false;
    shown.clear();
    for (qint64 n = 0; n < nCount && reader.IsOk(); ++n) {
        SShown one;
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

SViewState TakeViewState(const ISimulation& simulation, qint64 nViewId)
{
    const VariableKeys::CScope scope;
    const CSimulationManager& manager = CSimulationManager::Instance();
    const qint64 nId = simulation.GetId();
    SViewState state;
    state.pair = {manager.GetTime(nViewId, nId), manager.IsTransient(nViewId, nId),
                  manager.GetRotationCentre(nViewId, nId), manager.GetMirror(nViewId, nId),
                  manager.GetSectors(nViewId, nId)};
    for (const ISelectable* const pSelectable : CSelectableManager::Instance().GetSelectables(nViewId, nId)) {
        const SItemNames names(simulation, pSelectable->itemId());
        state.shown.append({pSelectable->itemId(), pSelectable->typeId(), names.sName, names.sParentName,
                            pSelectable->isVisible(), pSelectable->isSelected(), pSelectable->toBinary()});
    }
    return state;
}

void ApplyViewState(ISimulation& simulation, const SViewState& state, qint64 nViewId, double dVersion)
{
    const VariableKeys::CScope scope;
    ApplyPair(simulation, state.pair, nViewId, dVersion);
    CShownItems items(simulation, nViewId);
    const QVector<qint64> itemIds =
        dVersion == SESSION_VERSION ? items.FindById(state.shown) : items.FindStored(state.shown);
    QVector<ISelectable*> inOrder;
    for (int n = 0; n < itemIds.size(); ++n)
        if (ISelectable* const pSelectable = items.Take(itemIds[n], state.shown[n].nKind)) {
            ApplyShown(*pSelectable, state.shown[n], dVersion);
            inOrder.append(pSelectable);
        }
    Arrange(simulation, nViewId, inOrder);
    if (const qint64 nMissing = itemIds.count(-1); nMissing > 0 && dVersion != SESSION_VERSION)
        CMessageSink::Instance().Log(QString("%1: %2 of the items in the stored display are not in the case")
                                         .arg(simulation.GetName(), QString::number(nMissing)));
    CSelectableManager::Instance().NotifySelectionChanged(nViewId, simulation.GetId());
}
