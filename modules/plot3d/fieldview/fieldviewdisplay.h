#pragma once

#include "modules/base/displaydocument.h"
#include "modules/plot3d/fieldview/fieldviewrestart.h"

/**
 * What the restart shows, as a display file that names no data (docs/formats/fieldview.md).
 *
 * @param sVariableList  of the case: where a velocity component isn't one of them the computed one is taken
 */
SDisplayDocument ToDisplayDocument(const SFieldViewRestart& restart, const QStringList& sVariableList = {});
