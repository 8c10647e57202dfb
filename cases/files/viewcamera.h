#pragma once

#include "view/camera/camera.h"

#include <optional>

class QByteArray;

/** The camera of a view of the main window; none without a window, and for views that have none. */
std::optional<SCamera> TakeViewCamera(qint64 nViewId);

/** Gives it to the view, if that has one. */
void ApplyViewCamera(qint64 nViewId, const SCamera& camera);

/** The same from a stored block (SStoredCamera) that has no rotation point: the view's own stays. */
void ApplyCameraBlock(qint64 nViewId, const QByteArray& block);
