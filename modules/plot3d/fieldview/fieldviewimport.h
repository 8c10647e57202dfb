#pragma once

#include "modules/plot3d/fieldview/fieldviewrestart.h"

class CCaseRecords;
class ISimulation;

// From a restart file to what a view shows. Nothing is written before a case is to show it.

/** The restart; nothing, after telling why, for a file that isn't one. */
std::optional<SFieldViewRestart> OpenFieldView(const QString& sRestartFile);

/** Asks for a restart file; empty if the user wants none, or if it isn't one, which was told. */
QString AskFieldView();

/**
 * Fills in the data files that the restart names, as far as they are there: as they are named, or by that
 * name beside the restart. The others of the records stay.
 *
 * @return whether the grid is one of them
 */
bool FindFieldViewData(const QString& sRestartFile, CCaseRecords& records);

/**
 * Shows the restart on the data that the case has, by a display file that is written into its directory.
 *
 * @return false, after telling why, if that isn't possible
 */
bool ShowFieldView(ISimulation& simulation, const QString& sRestartFile, qint64 nViewId);
