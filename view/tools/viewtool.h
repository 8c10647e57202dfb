#pragma once

#include "frame/inputstate.h"
#include "view/camera/cameramath.h"
#include "view/camera/cameramoves.h"

#include <memory>

class QPainter;
struct SPointPick;

/** An event of the mouse as the tools of a view see it. */
struct SPointerEvent
{
    QPoint position;                        ///< [pixels of the view]
    Qt::MouseButton eButton = Qt::NoButton; ///< that went down or up
    Qt::MouseButtons buttons;               ///< that are down, those that a tool has taken included
    SInputState state;                      ///< at a release with the button still down
    MouseAction_e eAction = MouseNone;      ///< what the state stands for
};

/** What a view knows of itself between two frames. */
struct SViewState
{
    const qint64 nViewId;
    bool bActive = false;
    OglMouseMode_e eMode = MouseNormal;
    COrthoCamera camera{};
    CInputTracker input{};
    QPoint cursor{}; ///< where the pointer was last

    /** What is held down now, as an event at the pointer. */
    SPointerEvent Held() const;
};

/** The view that tools work in. */
class IToolView
{
public:
    virtual ~IToolView() = default;
    virtual const SViewState& State() const = 0;
    /** Linked views follow. */
    virtual void Move(const SCameraMove& move) = 0;
    /** Asks for a frame; no drawable has changed. */
    virtual void UpdateCamera() = 0;
    /** Asks for a frame; drawables may have changed. */
    virtual void UpdateAll() = 0;
    /** The mouse does again what it does in the normal mode. */
    virtual void LeaveMode() = 0;
    /** Shows that it takes time, while the result is kept. */
    virtual std::shared_ptr<void> Wait() const = 0;
    /** The user has chosen a point in the mode for that. */
    virtual void TellPoint(const SPointPick& pick) = 0;
};

/**
 * Something that the user does in a view with mouse and keyboard. Of the tools of a view the first that takes
 * an event, by returning true, has it; what a tool doesn't care for it passes on. Main thread only.
 */
class IViewTool
{
public:
    virtual ~IViewTool() = default;
    virtual bool Press(const SPointerEvent&) { return false; }
    virtual bool Move(const SPointerEvent&) { return false; }
    virtual bool Release(const SPointerEvent&) { return false; }
    virtual bool DoubleClick(const SPointerEvent&) { return false; }
    /** @param eAction  what is held with the key, or without the one that went up */
    virtual bool Key(MouseAction_e, bool /*bDown*/) { return false; }
    /** Over the scene, not in pictures for files. */
    virtual void Paint(QPainter&) const {}
    /** The pointer is no longer in the view. */
    virtual void Leave() {}
    /** Drops what has been begun. */
    virtual void Cancel() {}
};
