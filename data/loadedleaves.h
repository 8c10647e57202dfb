#pragma once

#include "frame/memory/imemoryitem.h"

#include <QVector>

#include <algorithm>

/**
 * Asked after a read: false if some of the grids or solutions that carry the data couldn't be loaded, so that
 * what was read are zeros that mean nothing. One that was never loaded has been read in part.
 */
template <class Source> bool AreLoaded(const QVector<Source*>& leaves)
{
    return std::all_of(leaves.begin(), leaves.end(), [](const Source* pLeaf) {
        return pLeaf->GetStatus() == LoadOk || pLeaf->GetStatus() == LoadNever;
    });
}
