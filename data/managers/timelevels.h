#pragma once

#include <QtGlobal>

#include <vector>

/** The two levels round a time: their ids (equal at a level) and the weight of the first. */
struct STimeMatch
{
    qint64 nLowId = -1;
    qint64 nHighId = -1;
    double dWeight = -1.0; ///< of the low one, 0 to 1

    bool IsFound() const { return nLowId != -1; }
    friend bool operator==(const STimeMatch&, const STimeMatch&) = default;
};

/** The grids (or solutions) of one sub-box of an item, one for each time, ascending. STEADY_TIME is steady.
 */
class CTimeLevels
{
public:
    struct SLevel
    {
        qint64 nId;
        qint64 nSubId;
        double dTime;
    };

    /** Puts a level in its place; one of the same time makes way for it. Gives its id, or -1. */
    qint64 Insert(const SLevel& level);
    /**
     * The levels round a time; STEADY_TIME, or a single level: the first. A steady level doesn't take part in
     * a search between others.
     *
     * @param nSubId  -1, or the sub-id that an exact match, a single level or the first one must have
     * @param bExact  only a level of just this time
     */
    STimeMatch Find(qint64 nSubId, double dTime, bool bExact) const;
    const std::vector<SLevel>& Levels() const { return m_levels; }

private:
    STimeMatch At(size_t nLevel, qint64 nSubId) const;
    STimeMatch Between(size_t nFirst, double dTime) const;

    std::vector<SLevel> m_levels;
};
