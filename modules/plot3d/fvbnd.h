#pragma once

#include "frame/vector3d.h"

#include <QStringList>
#include <QVector>

class QIODevice;

/** One boundary of an FVBND file: a face of a block, or a part of one. */
struct SBoundaryRecord
{
    qint64 nType = 0;  ///< into the file's names, from 1
    qint64 nBlock = 0; ///< of the grid file, from 1
    QString sTypeName;
    IVector3D min;      ///< from 1; a pair of limits "0 0" is the block's whole extent
    IVector3D max;      ///< included
    bool toEnd[3] = {}; ///< the axis goes up to the block's last point ("$")
    bool bFlip = false;
    int nDirection = 1; ///< 1 or -1
    int nFace = -1;     ///< 0 i low, 1 i high, 2 j low ... 5 k high; set by ResolveBoundary
    bool bIsFace = false;
};

struct SFvbndFile
{
    QString sError; ///< for the user; empty if the file was read
    int nMajor = 0;
    int nMinor = 0;
    QStringList sTypeNameList;
    QVector<SBoundaryRecord> records;
    int nSkipped = 0; ///< lines that aren't records
};

/** Reads the text. Limits are as they stand in it: ResolveBoundary puts those of the block in. */
SFvbndFile ReadFvbnd(QIODevice& device);
SFvbndFile ReadFvbnd(const QString& sFileName);

/**
 * Puts the block's dimensions in for "$" and "0 0", and finds the face: the first axis with equal limits, low
 * if they are the first point. A record without such an axis is no face.
 *
 * @return false for limits outside of the block; the record is of no use then
 */
bool ResolveBoundary(SBoundaryRecord& record, const IVector3D& dimensions);
