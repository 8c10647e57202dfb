#pragma once

#include "data/io/plot3dfile.h"

/**
 * What was detected of a file, in words: "Q, 3-D, 4 blocks, single precision, Fortran records, byte-swapped".
 * A layout is found by trying, so the user has to see which one it is.
 */
QString DescribeLayout(const SPlot3DFile& file);
