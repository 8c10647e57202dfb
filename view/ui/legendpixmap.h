#pragma once

#include "scene/colormaprecord.h"

#include <QPixmap>

/**
 * The colormap as a picture of two pixels' width, its high end at the top; null for an unknown id.
 * @param nHeight  [pixels], at least 1
 */
QPixmap legendPixmap(const SColormapRecord& record, int nHeight);
