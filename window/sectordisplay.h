#pragma once

#include "simulation/displaytransforms.h"

/** Mirror and periodic display of a pair of view and simulation, within what can be drawn. */
namespace SectorDisplay {

inline constexpr int TRANSFORM_QUESTION = 512; ///< more is asked about; MAX_DISPLAY_TRANSFORMS is the limit

/**
 * Gives the pair the settings, after a question if they make many transforms; one undo step.
 *
 * @return false where they are refused, by the limit or by the user: the stored ones stand
 */
bool Apply(qint64 nViewId, qint64 nSimulationId, const SMirrorSetting& mirror, const SSectorSetting& sectors);

} // namespace SectorDisplay
