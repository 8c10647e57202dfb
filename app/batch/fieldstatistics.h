#pragma once

#include "data/solutions/isolution.h"

/** What a field holds over one block; for a vector, of its magnitude. */
struct SFieldStatistics
{
    LoadStatus_e eStatus = LoadOk; ///< of the reads; but for LoadOk nothing below means anything
    qint64 nPoints = 0;            ///< all points of the block
    qint64 nCounted = 0;           ///< those with a value that aren't blanked; the rest below is over them
    double dMin = 0.0;
    double dMax = 0.0;
    double dMean = 0.0;
    IVector3D minAt; ///< the first in the order of flat indices
    IVector3D maxAt;
};

/** @param pHoles  0.0 marks a blanked point; may be null */
SFieldStatistics ComputeStatistics(const ISolution& field, const ISolution* pHoles, bool bVector);
