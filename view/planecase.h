#pragma once

#include <QtGlobal>

/**
 * The axis across which a view of two-dimensional cases lies: all its blocks are thin, and what is shown of
 * them lies in a plane of two axes.
 *
 * @return 0 to 2; -1 for solid cases, and for planes that are slanted. What is visible has been built.
 */
int AxisAcrossPlaneCase(qint64 nViewId);

/** The direction from which such a plane is looked at: X to the right and Z or Y up, of YZ planes Y to the
 * right. */
inline bool LooksAlongPositive(int nAxis) { return nAxis == 1; }
