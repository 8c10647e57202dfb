#pragma once

#include "modules/plot3d/fieldview/fieldviewrestart.h"

/** Takes one of the keys that say how an item looks, in the spelling of any kind of item; false for any
 * other, and for a value of no use. */
bool TakeFieldViewLook(SFieldViewLook& look, const QString& sKey, const QString& sValue);

/** The same for the colours of what has none of its own. */
bool TakeFieldViewColors(SFieldViewColors& colors, const QString& sKey, const QString& sValue);
