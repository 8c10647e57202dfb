#pragma once

#include "data/io/plot3dfile.h"
#include "data/managers/leasetable.h"
#include "data/solutions/solutionmask.h"
#include "frame/memory/imemorycache.h"

/**
 * All fields of all simulations: turns a variable, a simulation, an item and a time into the solution that
 * has the values, whatever it is made of: numbers of a file, coordinates, a blend of two levels, a union, a
 * formula over other variables. It stays in memory until the caller gives it back with Dispose (a CLease
 * does).
 *
 * Registration is for the main thread and tasks, requests for any thread.
 */
class CSolutionManager : public ISolutionOwner, public IMemoryCache
{
public:
    static CSolutionManager& Instance();

    struct SSolutionFile
    {
        QString sFileName;
        qint64 nBlock = 0;    ///< from 0
        qint64 nVariable = 0; ///< of the file, from 0
        IVector3D dimensions;
        IVector3D start{1, 1, 1};
        bool bIntegerData = false; ///< integers in places of the size of reals
        SPlot3DFile known{};       ///< as which the file was detected; else it is detected by itself
    };

    /**
     * Registers one variable of a block; nothing is read. An earlier one at the same place and time makes
     * way. Empties the file cache.
     *
     * @return the solution's id; -1 for a variable that doesn't exist or isn't of files
     */
    qint64 AddSolution(qint64 nSimulationId, qint64 nItemId, qint64 nVariableId, qint64 nSubId,
                       const SSolutionFile& file, double dTime);

    /** The same of a field of any class, which the factory makes when it is first needed. */
    qint64 AddSolution(qint64 nSimulationId, qint64 nItemId, qint64 nVariableId, qint64 nSubId,
                       const SBlockShape& shape, const std::function<std::unique_ptr<CSolution>()>& factory,
                       double dTime);

    /** The values of a variable over an item (-1: all items as one) at a time. Null if there are none. */
    CLease<ISolution> GetSolution(qint64 nVariableId, qint64 nSimulationId, qint64 nItemId, qint64 nSubId,
                                  double dTime);
    /** The same of a variable of files alone, by what was registered. */
    CLease<ISolution> GetStored(qint64 nVariableId, qint64 nSimulationId, qint64 nItemId, qint64 nSubId,
                                double dTime);
    QVector<STimeMatch> GetSolutionIds(qint64 nVariableId, qint64 nSimulationId, qint64 nItemId,
                                       qint64 nSubId, double dTime, bool bExact) const;
    /** Whether any solution backs a file variable of the simulation. */
    bool HasSolutions(qint64 nSimulationId, qint64 nVariableId) const;
    QVector<double> GetTimes(qint64 nSimulationId, qint64 nItemId) const;

    /** A solution that somebody holds goes at its last Dispose. */
    void RemoveItem(qint64 nSimulationId, qint64 nItemId) { m_table.RemoveItem(nSimulationId, nItemId); }
    void RemoveSimulation(qint64 nSimulationId) { m_table.RemoveSimulation(nSimulationId); }
    qint64 CountSolutions() const { return m_table.Count(); } ///< registered or still held
    /** How often data that couldn't be read were tried anew: what was derived of data before needn't hold. */
    qint64 CountRestarts() const { return m_table.CountRestarts(); }

    void EmptyCache() override;
    void Release(CSolution* pSolution) override;

private:
    struct SEntry
    {
        explicit SEntry(CSolutionMask::Factory factory) : mask(std::move(factory)) {}
        void SetId(qint64 nId) { mask.SetSolutionId(nId); }
        void Prepare() { mask.Prepare(); }
        qint64 GetMemoryId() { return mask.GetBaseSolution()->GetMemoryId(); }
        bool HasFileChangedSinceFailure() const { return mask.HasFileChangedSinceFailure(); }
        void StartAnew() { mask.StartAnew(); }

        CSolutionMask mask;
    };

    CSolutionManager();

    CLeaseTable<SEntry> m_table;
};
