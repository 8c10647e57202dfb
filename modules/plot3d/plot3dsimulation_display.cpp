// CPlot3DSimulation: what a view shows of it, as bytes and as JSON.
#include "cases/display/viewjson.h"
#include "cases/display/viewstate.h"
#include "cases/files/casefile.h"
#include "frame/packs/bytestream.h"
#include "modules/plot3d/plot3dkeys.h"
#include "modules/plot3d/plot3dsimulation.h"
#include "scene/iselectable.h"
#include "scene/selectablekind.h"
#include "scene/selectablemanager.h"
#include "simulation/item.h"

namespace {

/** What goes ahead of the views in an undo state. */
struct SUndoItems
{
    qint64 nLoads = 0; ///< since then the items are others than in older states
    QByteArray items;

    bool Read(CByteReader& reader) { return reader.Read(nLoads) && reader.Read(items); }
};

} // namespace

QByteArray CPlot3DSimulation::ItemBytes() const
{
    CByteWriter writer;
    WriteItems(writer);
    return writer.Take();
}

QByteArray CPlot3DSimulation::CaptureState() const
{
    CByteWriter writer;
    writer.Write(m_nLoads);
    writer.Write(ItemBytes());
    writer.Write(ISimulation::CaptureState());
    return writer.Take();
}

bool CPlot3DSimulation::RestoreState(const QByteArray& state)
{
    CByteReader reader(state);
    SUndoItems items;
    QByteArray views;
    if (!items.Read(reader) || !reader.Read(views))
        return false;
    const bool bOfThisLoad = items.nLoads == m_nLoads; // items of an earlier one are others
    if (bOfThisLoad && !RestoreItems(items.items))
        return false;
    // A view that gets its former plane moves the plane of the item too, which may be that of another view.
    return ISimulation::RestoreState(views) && (!bOfThisLoad || RestoreItems(items.items));
}

bool CPlot3DSimulation::IsCurrentState(const QByteArray& state) const
{
    CByteReader reader(state);
    SUndoItems items;
    QByteArray views;
    return items.Read(reader) && reader.Read(views) &&
           (items.nLoads != m_nLoads || items.items == ItemBytes()) && ISimulation::IsCurrentState(views);
}

QByteArray CPlot3DSimulation::SaveViewState(qint64 nViewId) const
{
    const QByteArray bytes = TakeViewState(*this, nViewId).ToBytes();
    const auto kept = m_keptDisplays.constFind(nViewId);
    return kept != m_keptDisplays.cend() && kept->shown == bytes ? kept->stored : bytes;
}

QByteArray CPlot3DSimulation::SaveViewEdits(qint64 nViewId) const
{
    SViewState state = TakeViewState(*this, nViewId);
    for (SViewState::SShown& shown : state.shown)
        shown.bSelected = false;
    return state.ToBytes();
}

bool CPlot3DSimulation::LoadViewState(const QByteArray& bytes, qint64 nViewId, double dVersion)
{
    SViewState state;
    if (!state.FromBytes(bytes))
        return false;
    ApplyViewState(*this, state, nViewId, dVersion);
    if (dVersion != SESSION_VERSION && !m_sDataProblemList.isEmpty())
        m_keptDisplays[nViewId] = {bytes, TakeViewState(*this, nViewId).ToBytes()};
    return true;
}

/** The data are there now: views in which nothing was changed since show what they were meant to. */
void CPlot3DSimulation::ShowKeptDisplays()
{
    const auto kept = std::exchange(m_keptDisplays, {});
    for (auto it = kept.cbegin(); it != kept.cend(); ++it) {
        SViewState stored, shown;
        const SViewState now = TakeViewState(*this, it.key());
        if (!stored.FromBytes(it->stored) || !shown.FromBytes(it->shown) || shown.shown != now.shown)
            continue;
        const double dTime = stored.pair.dTime;
        const bool bTransient = stored.pair.bTransient;
        stored.pair = now.pair; // these could be changed without the data
        stored.pair.dTime = dTime;
        stored.pair.bTransient = bTransient;
        ApplyViewState(*this, stored, it.key(), SCaseFile::VERSION);
    }
}

QJsonObject CPlot3DSimulation::SaveViewJson(qint64 nViewId) const { return TakeViewJson(*this, nViewId); }

bool CPlot3DSimulation::LoadViewJson(const QJsonObject& display, qint64 nViewId, double)
{
    return ApplyViewJson(*this, display, nViewId);
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
