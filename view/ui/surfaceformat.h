#pragma once

#include <QSurfaceFormat>

/**
 * The format that views need as the application's default, set ahead of the application object.
 *
 * @param nSamples  for each pixel, where there are so many; 0: edges aren't smoothed
 */
QSurfaceFormat ViewSurfaceFormat(int nSamples);
