#pragma once

#include "frame/novalue.h"
#include "frame/vector3d.h"
#include "simulation/displaytransforms.h"

#include <QVector>

#include <type_traits>
#include <vector>

class CItemPanel;

/** What belongs to a pair of view and simulation. */
struct SPairRow
{
    qint64 nSimulationId = NO_ID;
    double dTime = STEADY_TIME;
    bool bTransient = false;
    DVector3D rotationCentre;
    SMirrorSetting mirror;
    SSectorSetting sectors;
    QVector<STransform> transforms = {STransform()}; // follows from the three above
    CItemPanel* pPanel = nullptr;                    // null too once it was deleted by its own closing
};

/** Which simulations stand in which view, which of them is on top, and what belongs to each pair. */
class CViewTable
{
public:
    /** Null for a pair that isn't there; good until a pair comes or goes. */
    SPairRow* Find(qint64 nViewId, qint64 nSimulationId);
    const SPairRow* Find(qint64 nViewId, qint64 nSimulationId) const;
    /** @param nIndex  place among the simulations of the view; -1 or one that it hasn't for the end */
    void Add(qint64 nViewId, const SPairRow& pair, qint64 nIndex);
    /** The view has no simulation on top then, if it was this one. */
    void Remove(qint64 nViewId, qint64 nSimulationId);
    void RemoveView(qint64 nViewId);

    QVector<qint64> ViewIds() const;
    QVector<qint64> ViewsOf(qint64 nSimulationId) const;
    QVector<qint64> SimulationsOf(qint64 nViewId) const;
    qint64 ActiveOf(qint64 nViewId) const; ///< -1 for none
    /** False if nothing has changed; -1 leaves none on top, any other id must be one of the view's. */
    bool SetActive(qint64 nViewId, qint64 nSimulationId);

    /** A value of a pair, or the neutral one. */
    template <class T>
    T Get(qint64 nViewId, qint64 nSimulationId, T SPairRow::*member,
          const std::type_identity_t<T>& neutral = {}) const
    {
        const SPairRow* const pPair = Find(nViewId, nSimulationId);
        return pPair ? pPair->*member : neutral;
    }
    /** False if the pair isn't there or had the value. Its transforms follow. */
    template <class T>
    bool Change(qint64 nViewId, qint64 nSimulationId, T SPairRow::*member,
                const std::type_identity_t<T>& value)
    {
        SPairRow* const pPair = Find(nViewId, nSimulationId);
        if (!pPair || pPair->*member == value)
            return false;
        pPair->*member = value;
        pPair->transforms = BuildDisplayTransforms(pPair->mirror, pPair->sectors, pPair->rotationCentre);
        return true;
    }

private:
    struct SViewRow
    {
        qint64 nId = NO_ID;
        qint64 nActiveId = NO_ID; // simulation on top
        std::vector<SPairRow> pairs;
    };

    const SViewRow* FindView(qint64 nViewId) const;
    SViewRow* FindView(qint64 nViewId);

    std::vector<SViewRow> m_views;
};
