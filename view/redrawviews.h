#pragma once

#include <QtGlobal>

/** All views that show the simulation draw anew. */
void RedrawViews(qint64 nSimulationId);
