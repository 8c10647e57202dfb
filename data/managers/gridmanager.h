#pragma once

#include "data/grids/flippedgrid.h"
#include "data/grids/gridmask.h"
#include "data/grids/transformgrid.h"
#include "data/io/plot3dfile.h"
#include "data/managers/leasetable.h"
#include "frame/memory/imemorycache.h"

/**
 * All grids of all simulations. A caller asks for the grid of a simulation, an item and a time and gets one
 * that is ready, whatever it is made of: a block, a blend of two levels, a union of sub-boxes. It stays in
 * memory until the caller gives it back with Dispose (a CLease does).
 *
 * Registration is for the main thread and tasks, requests for any thread.
 */
class CGridManager : public IGridOwner, public IMemoryCache
{
public:
    static CGridManager& Instance();

    struct SGridFile
    {
        QString sFileName;
        qint64 nBlock = 0; ///< from 0
        IVector3D dimensions;
        IVector3D start{1, 1, 1};
        SPlot3DFile known{}; ///< as which the file was detected; else it is detected by itself
    };

    /**
     * Registers a block of a structured file; nothing is read. An earlier one at the same place and time
     * makes way. Empties the file cache.
     *
     * @param nSubId  a number of the caller's that requests may ask for; -1 none
     * @return the grid's id
     */
    qint64 AddGrid(qint64 nSimulationId, qint64 nItemId, qint64 nSubId, const SGridFile& file, double dTime);

    /**
     * The same of a grid of any class.
     *
     * @param shape    (n, 1, 1) for a mesh
     * @param factory  makes it when it is first needed; null if that can't be done
     */
    qint64 AddGrid(qint64 nSimulationId, qint64 nItemId, qint64 nSubId, const SBlockShape& shape,
                   const std::function<std::unique_ptr<CGrid>()>& factory, double dTime);

    /**
     * The item's grid (nItemId -1: all items as one) at a time, between two levels their blend. Null if there
     * is none. Of several grids with different transforms each keeps its own; otherwise the transform is left
     * to the caller (GetTransform).
     */
    CLease<IGrid> GetGrid(qint64 nSimulationId, qint64 nItemId, qint64 nSubId, double dTime);
    /** The same, only of just this time. */
    CLease<IGrid> GetGridAtTime(qint64 nSimulationId, qint64 nItemId, qint64 nSubId, double dTime);
    QVector<STimeMatch> GetGridIds(qint64 nSimulationId, qint64 nItemId, qint64 nSubId, double dTime,
                                   bool bExact) const;

    /** Of the item's first grid; the identity if there is none. */
    STransform GetTransform(qint64 nSimulationId, qint64 nItemId, double dTime) const;
    /** Of every grid of the item, at all times. */
    void SetTransform(qint64 nSimulationId, qint64 nItemId, const STransform& transform);
    /** Turns one index direction of every grid of the item round. */
    void FlipAxis(qint64 nSimulationId, qint64 nItemId, int nAxis);

    QVector<double> GetTimes(qint64 nSimulationId, qint64 nItemId) const;
    QVector<qint64> GetItemIds(qint64 nSimulationId) const;
    /** A grid that somebody holds goes at its last Dispose. */
    void RemoveItem(qint64 nSimulationId, qint64 nItemId) { m_table.RemoveItem(nSimulationId, nItemId); }
    void RemoveSimulation(qint64 nSimulationId) { m_table.RemoveSimulation(nSimulationId); }
    qint64 CountGrids() const { return m_table.Count(); } ///< registered or still held
    /** How often data that couldn't be read were tried anew: what was derived of data before needn't hold. */
    qint64 CountRestarts() const { return m_table.CountRestarts(); }

    void EmptyCache() override;
    void Release(CGrid* pGrid) override;

private:
    /** One registered block: the mask that makes the storage, seen flipped, seen moved. */
    struct SChain
    {
        explicit SChain(CGridMask::Factory factory) : mask(std::move(factory)) {}
        void SetId(qint64 nId);
        void Prepare() { mask.Prepare(); }
        qint64 GetMemoryId() { return mask.GetBaseGrid()->GetMemoryId(); }
        bool HasFileChangedSinceFailure() const { return mask.HasFileChangedSinceFailure(); }
        void StartAnew();
        void ForgetDerived();

        CGridMask mask;
        CFlippedGrid flipped{&mask};
        CTransformGrid transformed{&flipped};
    };

    CGridManager();
    CLease<IGrid> Request(qint64 nSimulationId, qint64 nItemId, qint64 nSubId, double dTime, bool bExact);
    bool HaveOneTransform(const QVector<STimeMatch>& matches) const;
    template <class Visit> void ForEachOf(qint64 nSimulationId, qint64 nItemId, const Visit& visit) const;

    CLeaseTable<SChain> m_table;
};
