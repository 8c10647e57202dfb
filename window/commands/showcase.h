#pragma once

#include <QtGlobal>

class ISimulation;

/** What commands do with a case that they have made, opened or changed. */
namespace ShowCase {

/** The case comes on top of the active view, which shows it as it is now. Nothing for -1. */
void InActiveView(qint64 nSimulationId);

} // namespace ShowCase
