#pragma once

#include "data/io/plot3dfile.h"
#include "data/io/readfile.h"

/**
 * Checks whether a file is a Plot3D grid written as text: block count (multi-block only), dimensions of all
 * blocks, then two or three coordinates a point. Behind the last number something that isn't a number must
 * follow; a file that ends there, with or without blanks, isn't taken.
 *
 * @return the blocks, each with the place of its first number; none if the file isn't such a grid
 */
QVector<SPlot3DBlock> ScanTextGrid(const CReadFile& file, bool bMultiBlock, bool b3D);
