#pragma once

#include "modules/plot3d/filerecords.h"

/** Whether the name of a file ends as those of grid files do. */
bool HasGridSuffix(const QString& sFileName);

/**
 * The file beside this one that goes with it by name. In this order: the same stem with an ending of the role
 * ("wing.x", "wing.q"); the same name but for the word of the role at the end of its stem ("wingxyz.bin",
 * "wingq.bin"); the only file of the folder with an ending of the role, where a series of numbered files
 * counts as one.
 *
 * @return its full name; empty if there is none, or more than one
 */
QString FindCompanion(const QString& sFileName, FileRole_e eOwnRole, FileRole_e eWanted);
