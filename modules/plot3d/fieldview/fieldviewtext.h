#pragma once

#include "modules/plot3d/fieldview/fieldviewrestart.h"

/** One file's text, into what the others have said. Each section begins with its version. */
void ReadFieldViewText(const QString& sText, SFieldViewRestart& restart);
