#pragma once

#include "data/managers/timelevels.h"
#include "data/values/blockshape.h"
#include "data/values/valuerange.h"

#include <QMap>
#include <QVector>

#include <set>

/**
 * Which grids (or solutions) stand for which item at which time: by simulation, item, field, sub-box and
 * time. Holds ids alone. No lock: its owner's guards it.
 */
class CLevelRegistry
{
public:
    /** Where an id is registered. The field is the variable's id for solutions and -1 for grids. */
    struct SPlace
    {
        qint64 nSimulationId = -1;
        qint64 nItemId = -1;
        qint64 nFieldId = -1;
        SBlockShape box;
    };

    /** Gives the id that had the same place and time and has made way; -1 if there was none. */
    qint64 Add(const SPlace& place, const CTimeLevels::SLevel& level);
    /** A match for each sub-box of the item (nItemId -1: of all items), in the order of registration. */
    QVector<STimeMatch> Find(qint64 nSimulationId, qint64 nItemId, qint64 nFieldId, qint64 nSubId,
                             double dTime, bool bExact) const;
    /** All ids of an item, over all fields, boxes and times. */
    QVector<qint64> IdsOf(qint64 nSimulationId, qint64 nItemId) const;
    QVector<qint64> ItemsOf(qint64 nSimulationId) const;
    bool HasSimulation(qint64 nSimulationId) const { return m_simulations.contains(nSimulationId); }
    bool HasField(qint64 nSimulationId, qint64 nFieldId) const;
    qint64 SimulationCount() const { return m_simulations.size(); }
    QVector<double> Times(qint64 nSimulationId, qint64 nItemId) const; ///< ascending, each once
    /** Earliest and latest real time of the item (-1: of the simulation); empty without one. */
    SValueRange TimeRange(qint64 nSimulationId, qint64 nItemId) const;
    SValueRange FieldTimeRange(qint64 nSimulationId, qint64 nFieldId) const;
    void RemoveItem(qint64 nSimulationId, qint64 nItemId);
    void RemoveSimulation(qint64 nSimulationId);

private:
    struct SBox
    {
        SBlockShape box;
        CTimeLevels levels;
    };
    using Fields = QMap<qint64, std::vector<SBox>>; // by field
    using Items = QMap<qint64, Fields>;

    template <class Visit> void ForEachLevel(qint64 nSimulationId, qint64 nItemId, const Visit& visit) const;

    QMap<qint64, Items> m_simulations;
    QMap<qint64, QVector<qint64>> m_itemOrder; // by simulation: items as they were first registered
};
