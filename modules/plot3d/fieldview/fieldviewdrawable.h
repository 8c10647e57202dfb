#pragma once

#include "modules/plot3d/fieldview/fieldviewrestart.h"

#include <QJsonObject>

/** How an item looks, as a drawable of a display file has it. */
QJsonObject ToFieldViewDrawable(const SFieldViewRestart& restart, const SFieldViewLook& look);
