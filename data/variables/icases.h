#pragma once

#include <QByteArray>
#include <QVector>

/**
 * What the data layer has to know of cases and views. The simulation layer installs itself at start-up;
 * without it every answer is neutral.
 */
class ICases
{
public:
    virtual ~ICases() = default;
    /** The time that the view shows of the simulation; STEADY_TIME for an unknown pair. */
    virtual double GetTime(qint64 nViewId, qint64 nSimulationId) const = 0;
    /** Ids of the items that have a grid. */
    virtual QVector<qint64> GetBlockIds(qint64 nSimulationId) const = 0;
    /** Identifies the simulation's data files, without the path of its own file. */
    virtual QByteArray GetKey(qint64 nSimulationId) const = 0;
    /** The item of another simulation with the same grid as this one, else with the same name; -1 if none. */
    virtual qint64 TranslateItem(qint64 nSimulationId, qint64 nItemId, qint64 nOtherSimulationId) const = 0;

    /** Makes pCases (not owned, may be null) the one in use; gives the former one. */
    static ICases* Install(ICases* pCases);
    /** Never null. */
    static const ICases& Installed();
};
