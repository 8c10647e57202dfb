#pragma once

#include <QtGlobal>

/** Lets go of everything that was registered for a simulation: variables, solutions, grids. */
void RemoveCaseData(qint64 nSimulationId);
