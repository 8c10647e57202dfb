#pragma once

#include "cases/display/displaydocument.h"
#include "modules/plot3d/fieldview/fieldviewrestart.h"

/**
 * What the restart shows, as a display file that names no data (docs/formats/fieldview.md).
 *
 * @param sVariableList  of the case: where a velocity component isn't one of them the computed one is taken
 * @param shown  the items that the view shows now: nothing of them stays on show beside the surfaces of the
 *               restart, if it has any
 */
SDisplayDocument ToDisplayDocument(const SFieldViewRestart& restart, const QStringList& sVariableList = {},
                                   const QJsonObject& shown = {});
