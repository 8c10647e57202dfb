#include "cases/display/blocknames.h"

#include "simulation/isimulation.h"
#include "simulation/item.h"

#include <QJsonArray>

namespace {

constexpr const char *BLOCK_NAME = "blockName", *IDENTIFICATION = "identification", *ITEM_NAMES = "itemNames",
                     *ITEM_IDENTIFICATIONS = "itemIdentifications", *ITEM_IDS = "subjects";
constexpr const char *GRID = "Grid", *BLOCK = "Block "; // ahead of a number

constexpr qint64 MOST_POINTS_TO_IDENTIFY = 8'000'000;

QString Identification(const CItem& block) { return QString::fromLatin1(block.GetLinkKey().toHex()); }

} // namespace

CBlockFinder::CBlockFinder(const ISimulation& simulation)
{
    for (const CItem* const pBlock : simulation.GetBlocks())
        m_byName[pBlock->GetName()].append(pBlock);
}

const CItem* CBlockFinder::Take(const QJsonObject& entry)
{
    const QString sIdentification = entry[IDENTIFICATION].toString(), sName = entry[BLOCK_NAME].toString();
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

const CItem* CBlockFinder::FirstFree(const QVector<const CItem*>& blocks) const
{
    const auto free = std::find_if(blocks.begin(), blocks.end(),
                                   [this](const CItem* pBlock) { return !m_taken.contains(pBlock); });
    return free == blocks.end() ? nullptr : *free;
}

const CItem* CBlockFinder::FindGrid(const QString& sIdentification)
{
    if (m_byGrid.isEmpty())
        for (const auto& blocks : std::as_const(m_byName))
            for (const CItem* const pBlock : blocks)
                m_byGrid[Identification(*pBlock)].append(pBlock);
    return FirstFree(m_byGrid.value(sIdentification));
}

bool BlockNames::CanIdentify(const ISimulation& simulation)
{
    return simulation.GetPointCount() <= MOST_POINTS_TO_IDENTIFY;
}

void BlockNames::Put(const CItem& block, bool bIdentify, QJsonObject& entry)
{
    entry[BLOCK_NAME] = block.GetName();
    if (const QString sGrid = bIdentify ? Identification(block) : QString(); !sGrid.isEmpty())
        entry[IDENTIFICATION] = sGrid;
}

void BlockNames::PutList(const ISimulation& simulation, const QVector<qint64>& blockIds, bool bIdentify,
                         QJsonObject& entry)
{
    QJsonArray identifications, names, ids;
    for (const qint64 nId : blockIds)
        if (const CItem* const pBlock = simulation.GetItem(nId)) {
            if (const QString sGrid = bIdentify ? Identification(*pBlock) : QString(); !sGrid.isEmpty())
                identifications.append(sGrid);
            names.append(pBlock->GetName());
            ids.append(nId);
        }
    if (!identifications.isEmpty())
        entry[ITEM_IDENTIFICATIONS] = identifications;
    entry[ITEM_NAMES] = names;
    entry[ITEM_IDS] = ids;
}

QVector<qint64> BlockNames::ReadList(const ISimulation& simulation, const QJsonObject& entry)
{
    const QJsonArray identifications = entry[ITEM_IDENTIFICATIONS].toArray(),
                     names = entry[ITEM_NAMES].toArray(), ids = entry[ITEM_IDS].toArray();
    const bool bAll = identifications.isEmpty() && !entry.contains(ITEM_NAMES) && ids.isEmpty();
    QVector<qint64> found;
    for (const CItem* const pBlock : simulation.GetBlocks())
        if (bAll || (!identifications.isEmpty() ? identifications.contains(Identification(*pBlock))
                     : !names.isEmpty()         ? names.contains(pBlock->GetName())
                                                : ids.contains(pBlock->GetId())))
            found.append(pBlock->GetId());
    return found;
}

void BlockNames::TakeList(QJsonObject& entry)
{
    for (const char* const sMember : {ITEM_NAMES, ITEM_IDENTIFICATIONS, ITEM_IDS})
        entry.remove(sMember);
}
