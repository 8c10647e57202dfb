#pragma once

#include <QHash>
#include <QJsonObject>
#include <QSet>
#include <QVector>

class CItem;
class ISimulation;

/** Finds the block of each entry of a display: by its grid (CItem::GetLinkKey), then by name, each once. */
class CBlockFinder
{
public:
    explicit CBlockFinder(const ISimulation& simulation);
    /** Null where the case doesn't have it. */
    const CItem* Take(const QJsonObject& entry);

private:
    const CItem* FirstFree(const QVector<const CItem*>& blocks) const;
    const CItem* FindGrid(const QString& sIdentification);

    QHash<QString, QVector<const CItem*>> m_byName;
    QHash<QString, QVector<const CItem*>> m_byGrid; // filled when a name doesn't go with its grid
    QSet<const CItem*> m_taken;
};

/** How entries of a display name blocks. */
namespace BlockNames {

/** Of larger cases blocks go by their names alone: to close one must not read all of its grids. */
bool CanIdentify(const ISimulation& simulation);

/** The block that an entry is of. */
void Put(const CItem& block, bool bIdentify, QJsonObject& entry);

/** The blocks in which what the entry is of lies. */
void PutList(const ISimulation& simulation, const QVector<qint64>& blockIds, bool bIdentify,
             QJsonObject& entry);
/** By their grids, else by names, else by ids; all blocks where the entry has none of the three. */
QVector<qint64> ReadList(const ISimulation& simulation, const QJsonObject& entry);
/** Out of the entry. */
void TakeList(QJsonObject& entry);

} // namespace BlockNames
