#pragma once

#include <QtGlobal>

/**
 * What a selectable is (ISelectable::typeId): names its class in stored data and its group in the item panel.
 * Each is a bit, so that several make a mask. The values are stored and never change.
 */
enum SelectableKind_e : qint64 {
    KindSurface = 1, ///< an index plane of a block
    KindCoordinateSurface = 2,
    KindISOSurface = 4,
    KindBlock = 8, ///< a block, shown by some of its faces
    KindBoundarySurface = 16,
    KindExtremePoint = 32,
    KindStreamline = 64,
    KindFace = 128, ///< a face of a block that stands for itself
};
