#pragma once

#include <QtGlobal>

/** Puts a case that has just been made or opened on top of the active view; -1 does nothing. */
void ShowInActiveView(qint64 nSimulationId);
