#pragma once

#include "simulation/displaytransforms.h"

/** Mirror and sectors of a pair as a file gives them, which may ask for anything. */
namespace PairDisplay {

/**
 * Gives the pair the settings within what can be drawn: offsets that are no numbers are 0, and sectors that
 * would make too many transforms are left out.
 *
 * @return false, with the reason in the log, if the sectors were left out
 */
bool Apply(qint64 nViewId, qint64 nSimulationId, const SMirrorSetting& mirror, const SSectorSetting& sectors);

} // namespace PairDisplay
