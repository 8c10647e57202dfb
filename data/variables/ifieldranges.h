#pragma once

#include "data/values/valuerange.h"

#include <QtGlobal>

#include <optional>

/** What variables ask of the fields behind them. The managers install themselves; without them there are
 * none. */
class IFieldRanges
{
public:
    virtual ~IFieldRanges() = default;
    /**
     * Over the live points of the simulation's blocks (nItemId -1: all). Nothing without values, and where a
     * block can't be read.
     */
    virtual std::optional<SValueRange> ComputeRange(qint64 nVariableId, qint64 nSimulationId, qint64 nItemId,
                                                    double dTime) const = 0;
    /** Whether anything stands behind a variable of files. */
    virtual bool HasFields(qint64 nSimulationId, qint64 nVariableId) const = 0;
    /** How often data that couldn't be read were tried anew: ranges of before needn't hold. */
    virtual qint64 CountRestarts() const = 0;

    /** Makes pRanges (not owned) the one in use. */
    static void Install(const IFieldRanges* pRanges);
    /** Never null. */
    static const IFieldRanges& Installed();
};
