#include "data/grids/packedbox.h"

namespace {

/** How many whole steps fit, from 0 to 255. */
quint8 StepsWithin(float fDistance, float fStep)
{
    const float fSteps = fDistance / fStep;
    return fSteps >= 255.0f ? 255 : fSteps > 0.0f ? quint8(fSteps) : 0; // NaN: 0
}

} // namespace

// The guess by division is put right by what Unpack makes of it, so that no rounding can cut off a point.
SPackedBox Pack(const SCoarseBox& inner, const SCoarseBox& outer)
{
    const Float4 step = outer.PackingStep();
    SPackedBox packed;
    for (int nAxis = 0; nAxis < 3; ++nAxis) {
        quint8& nLow = packed.low[nAxis];
        quint8& nHigh = packed.high[nAxis];
        nLow = StepsWithin(inner.low[nAxis] - outer.low[nAxis], step[nAxis]);
        nHigh = StepsWithin(outer.high[nAxis] - inner.high[nAxis], step[nAxis]);
        while (nLow > 0 && !(Unpack(packed, outer, step).low[nAxis] <= inner.low[nAxis]))
            --nLow;
        while (nHigh > 0 && !(Unpack(packed, outer, step).high[nAxis] >= inner.high[nAxis]))
            --nHigh;
    }
    return packed;
}
