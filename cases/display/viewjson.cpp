#include "cases/display/viewjson.h"

#include "frame/messagesink.h"
#include "scene/iselectable.h"
#include "scene/selectablekind.h"
#include "scene/selectablemanager.h"
#include "simulation/isimulation.h"
#include "simulation/item.h"
#include "view/selectables/surfaceitems.h"

#include <QHash>
#include <QJsonArray>
#include <QSet>

namespace {

constexpr const char *BLOCKS = "meshBlocks", *FORMER_BLOCKS = "blocks", *BLOCK_NAME = "blockName",
                     *IDENTIFICATION = "identification", *DISPLAY = "disp", *SURFACES = "surfaces",
                     *BOUNDARIES = "boundarySurfaces", *NAME = "name";
constexpr const char *GRID = "Grid", *BLOCK = "Block "; // ahead of a number

/** Lists of kinds that this version doesn't make, and what they are called. */
constexpr std::pair<const char*, const char*> UNKNOWN_KINDS[] = {
    {"coordinateSurfaces", "coordinate surface(s)"},
    {"streamlines", "streamline(s)"},
    {"isoSurfaces", "iso-surface(s)"},
    {"extremePoints", "extreme point(s)"}};

/** Of a case with more points blocks go by their names: to close it must not read all of its grids. */
constexpr qint64 MOST_POINTS_TO_IDENTIFY = 8'000'000;

QString Identification(const CItem& block) { return QString::fromLatin1(block.GetLinkKey().toHex()); }

/** Items of one type under the block that the view shows, in order. */
QVector<const CItem*> ShownChildren(const ISimulation& simulation, const CItem& block, qint64 nType,
                                    qint64 nViewId)
{
    QVector<const CItem*> children;
    for (const qint64 nId : block.GetChildIds(nType))
        if (const CItem* const pChild = simulation.GetItem(nId); pChild && pChild->GetSelectable(nViewId))
            children.append(pChild);
    return children;
}

QJsonObject BlockDisplay(const ISimulation& simulation, const CItem& block, qint64 nViewId)
{
    QJsonObject display = block.GetSelectable(nViewId)->toJsonBlock();
    QJsonArray boundaries;
    for (const CItem* const pBoundary : ShownChildren(simulation, block, KindBoundarySurface, nViewId)) {
        QJsonObject boundary = pBoundary->GetSelectable(nViewId)->toJsonBlock();
        boundary[NAME] = pBoundary->GetName();
        boundaries.append(boundary);
    }
    if (!boundaries.isEmpty())
        display[BOUNDARIES] = boundaries;
    return display;
}

/** Finds the block of each entry. */
class CBlockFinder
{
public:
    explicit CBlockFinder(const ISimulation& simulation)
    {
        for (const CItem* const pBlock : simulation.GetItems(KindBlock))
            m_byName[pBlock->GetName()].append(pBlock);
    }
    const CItem* Take(const QJsonObject& entry)
    {
        const QString sIdentification = entry[IDENTIFICATION].toString(),
                      sName = entry[BLOCK_NAME].toString();
        const CItem* pNamed = FirstFree(m_byName.value(sName));
        if (!pNamed && sName.startsWith(GRID)) // as programs call it that know no names
            pNamed = FirstFree(m_byName.value(BLOCK + sName.mid(int(qstrlen(GRID)))));
        // The name goes with the grid as a rule; grids cost a read of their files.
        const bool bSameGrid =
            pNamed && (sIdentification.isEmpty() || Identification(*pNamed) == sIdentification);
        const CItem* const pSameGrid =
            bSameGrid || sIdentification.isEmpty() ? nullptr : FindGrid(sIdentification);
        const CItem* const pFound = pSameGrid ? pSameGrid : pNamed;
        if (pFound)
            m_taken.insert(pFound);
        return pFound;
    }

private:
    const CItem* FirstFree(const QVector<const CItem*>& blocks) const
    {
        const auto free = std::find_if(blocks.begin(), blocks.end(),
                                       [this](const CItem* pBlock) { return !m_taken.contains(pBlock); });
        return free == blocks.end() ? nullptr : *free;
    }
    const CItem* FindGrid(const QString& sIdentification)
    {
        if (m_byGrid.isEmpty())
            for (const auto& blocks : std::as_const(m_byName))
                for (const CItem* const pBlock : blocks)
                    m_byGrid[Identification(*pBlock)].append(pBlock);
        return FirstFree(m_byGrid.value(sIdentification));
    }

    QHash<QString, QVector<const CItem*>> m_byName;
    QHash<QString, QVector<const CItem*>> m_byGrid; // filled when a name doesn't go with its grid
    QSet<const CItem*> m_taken;
};

void ApplyTo(ISelectable& selectable, const QJsonObject& display)
{
    CSelectableManager& manager = CSelectableManager::Instance();
    const bool bWasVisible = selectable.isVisible();
    selectable.fromJsonBlock(display);
    manager.NotifyUpdated(&selectable);
    if (selectable.isVisible() != bWasVisible)
        manager.NotifyMaskChanged(&selectable);
}

/** Surfaces that the block lacks come behind those that it has. */
void MakeSurfaces(ISimulation& simulation, const CItem& block, const QJsonArray& surfaces, qint64 nViewId)
{
    for (int n = ShownChildren(simulation, block, KindSurface, nViewId).size(); n < surfaces.size(); ++n) {
        SSurfacePlane plane = FacePlane(block.GetSize(), 4);
        Definitions::FromJson(surfaces[n].toObject(), plane);
        if (!CreateSurfaceItem(simulation, block.GetId(), plane))
            return;
    }
}

void ApplyBoundaries(const ISimulation& simulation, const CItem& block, const QJsonArray& boundaries,
                     qint64 nViewId)
{
    QVector<const CItem*> free = ShownChildren(simulation, block, KindBoundarySurface, nViewId);
    for (const QJsonValue& value : boundaries) {
        const QJsonObject boundary = value.toObject();
        const auto same = std::find_if(free.begin(), free.end(), [&](const CItem* pItem) {
            return pItem->GetName() == boundary[NAME].toString();
        });
        if (same == free.end())
            continue;
        ApplyTo(*(*same)->GetSelectable(nViewId), boundary);
        free.erase(same);
    }
}

void ApplyBlock(ISimulation& simulation, const CItem& block, const QJsonObject& display, qint64 nViewId)
{
    CItem& item = *simulation.GetItem(block.GetId());
    item.CreateSelectable(nViewId);
    ISelectable* const pSelectable = item.GetSelectable(nViewId);
    if (!pSelectable)
        return;
    MakeSurfaces(simulation, block, display[SURFACES].toArray(), nViewId);
    ApplyTo(*pSelectable, display);
    for (const CItem* const pSurface : ShownChildren(simulation, block, KindSurface, nViewId))
        CSelectableManager::Instance().NotifyMaskChanged(pSurface->GetSelectable(nViewId));
    ApplyBoundaries(simulation, block, display[BOUNDARIES].toArray(), nViewId);
}

QJsonValue ListOfBlocks(const QJsonObject& display)
{
    return display[display.contains(BLOCKS) ? BLOCKS : FORMER_BLOCKS];
}

/** One line for all that is left out. */
void LogLeftOut(const ISimulation& simulation, const QJsonObject& display, int nBlocks)
{
    QStringList sLeftOutList;
    if (nBlocks > 0)
        sLeftOutList << QString("%1 block(s) that the case doesn't have").arg(nBlocks);
    for (const auto& [sMember, sText] : UNKNOWN_KINDS)
        if (const int nCount = display[sMember].toArray().size(); nCount > 0)
            sLeftOutList << QString("%1 %2").arg(QString::number(nCount), sText);
    if (!sLeftOutList.isEmpty())
        CMessageSink::Instance().Log(
            QString("%1: left out of the display: %2").arg(simulation.GetName(), sLeftOutList.join(", ")));
}

} // namespace

QJsonObject TakeViewJson(const ISimulation& simulation, qint64 nViewId)
{
    QJsonArray blocks;
    const bool bIdentify = simulation.GetPointCount() <= MOST_POINTS_TO_IDENTIFY;
    for (const CItem* const pBlock : simulation.GetItems(KindBlock)) {
        if (!pBlock->GetSelectable(nViewId))
            continue;
        QJsonObject entry{{BLOCK_NAME, pBlock->GetName()},
                          {DISPLAY, BlockDisplay(simulation, *pBlock, nViewId)}};
        const QString sIdentification = bIdentify ? Identification(*pBlock) : QString();
        if (!sIdentification.isEmpty())
            entry[IDENTIFICATION] = sIdentification;
        blocks.append(entry);
    }
    return {{BLOCKS, blocks}};
}

bool IsViewJson(const QJsonObject& display)
{
    return ListOfBlocks(display).isArray() ||
           std::any_of(std::begin(UNKNOWN_KINDS), std::end(UNKNOWN_KINDS),
                       [&](const auto& kind) { return display[kind.first].isArray(); });
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
    LogLeftOut(simulation, display, nLeftOut);
    CSelectableManager::Instance().NotifySelectionChanged(nViewId, simulation.GetId());
    return true;
}
