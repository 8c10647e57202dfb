#pragma once

#include "view/camera/camera.h"

#include <optional>

class ISimulation;
class QByteArray;

/**
 * The view whose display and camera are stored with the case: the active one if the case stands in it, else
 * the first that it stands in; -1 for none. Without a main window it is none for a case that was opened with
 * a display, since what such a run shows is nobody's choice.
 */
qint64 ViewToStore(const ISimulation& simulation);

/** The camera of a view of the main window; none without a window, and for views that have none. */
std::optional<SCamera> TakeViewCamera(qint64 nViewId);

/** Gives it to the view, if that has one. */
void ApplyViewCamera(qint64 nViewId, const SCamera& camera);

/** The same from a stored block (SStoredCamera) that has no rotation point: the view's own stays. */
void ApplyCameraBlock(qint64 nViewId, const QByteArray& block);
