#pragma once

#include "view/camera/camera.h"
#include "view/camera/cameraoperator.h"
#include "view/camera/viewbounds.h"
#include "view/pick/pickgeometry.h"

#include <optional>

/** The orthographic box: what of the view coordinates is shown [world units]. */
struct SOrthoBox
{
    double dLeft = -2.0;
    double dRight = 2.0;
    double dTop = 2.0;
    double dBottom = -2.0;
    double dNear = -2000.0;
    double dFar = 2000.0;

    double Width() const { return dRight - dLeft; }
    double Height() const { return dTop - dBottom; }
    DVector3D Centre() const { return {0.5 * (dLeft + dRight), 0.5 * (dBottom + dTop), 0.0}; }

    friend bool operator==(const SOrthoBox&, const SOrthoBox&) = default;
};

/** How a stored camera fits a widget of another shape. Other values act as FitAll. */
enum CameraFit_e : int {
    FitAll = 0,    ///< all that was visible stays visible
    FitWidth = 1,  ///< the width stays
    FitHeight = 2, ///< the height stays
};

/** What is left to do for the receiver of an operator. */
enum CameraFollow_e {
    FollowDone,
    FollowZoomFit,       ///< it runs its own zoom to fit
    FollowZoomSelection, ///< it runs its own zoom to selection
};

/**
 * The camera of a view: an orthographic box over a view matrix that collects rotations. A value; it draws
 * nothing and asks nobody.
 *
 * Pixels are counted from the upper left corner, y downwards. View coordinates are the world through the view
 * matrix: x to the right, y upwards, z towards the user. The matrix is kept in double precision, so that
 * thousands of small turns leave it a rotation. Angles are in degrees, right-handed.
 *
 * A change that would leave a box without extent, or with numbers that aren't finite, is not made.
 */
class COrthoCamera
{
public:
    // What is shown.
    const SOrthoBox& Box() const { return m_box; }
    const DMatrix4x4& View() const { return m_view; }
    QMatrix4x4 FloatView() const;
    /** Row 0, 1 or 2: the world direction that points right, up or towards the user. */
    DVector3D ViewRow(int nRow) const;
    const DVector3D& RotationPoint() const { return m_rotationPoint; }
    void SetRotationPoint(const DVector3D& point) { m_rotationPoint = point; }
    /** With the box's near and far, as it is stored. */
    QMatrix4x4 Projection() const;
    /**
     * The one to draw with: its depth is that of what is shown, so that nothing is cut and the depth buffer
     * resolves it.
     *
     * @param shown  in view coordinates; empty: the box's near and far
     */
    QMatrix4x4 DrawProjection(const SViewBounds& shown) const;

    // The widget. Its size is (-1, -1) until the first Resize.
    QSize Viewport() const { return m_viewport; }
    bool HasViewport() const { return m_viewport.width() > 0; }
    /** Keeps the scale in world units a pixel, and the centre. A size without pixels is ignored. */
    void Resize(const QSize& size);

    // Pixels and view coordinates. The viewport must be known (asserted).
    SPickPoint ToWorld(const QPointF& pixel) const;
    QPointF ToPixel(const DVector3D& world) const;
    /** The square of nRadius pixels round the pointer. */
    SPickRect PickRect(const QPoint& cursor, qint64 nRadius) const;
    /** What a rubber band spans, whatever corner it was begun at. */
    SPickRect ToRect(const QRect& pixels) const;
    SPickRect WholeRect() const { return {m_box.dLeft, m_box.dBottom, m_box.dRight, m_box.dTop}; }

    // Motions.
    /**
     * Moves what is shown along with a drag.
     *
     * @param dX, dY  drag divided by the widget's width and height, y downwards
     * @param dSensitivity  times 0.1: the share of the drag that is moved
     */
    void Pan(double dX, double dY, double dSensitivity);
    /**
     * Takes 2 * dStep of width and height off (a negative step adds).
     *
     * @param dX, dY  what stays in place [view coordinates]; NO_VALUE for the middle
     */
    void Zoom(double dStep, double dX = NO_VALUE, double dY = NO_VALUE);
    /** False for a band with a side below 4 pixels, which changes nothing. */
    bool ZoomBox(const QRect& pixels);
    /** Centres the bounds (of view coordinates) and fills the view with them; false if they are empty or
     * flat.
     */
    bool ZoomToBounds(const SViewBounds& bounds);
    /** @param axis  of the world, any length; one without length turns nothing */
    void Rotate(const DVector3D& axis, double dAngle, const DVector3D& point);
    /** About the right, up or forward direction of the view (0, 1, 2). */
    void RotateRow(int nRow, double dAngle, const DVector3D& point);
    /** A quarter turn about the line of sight, through the rotation point; positive: counterclockwise. */
    void QuarterTurn(bool bPositive) { RotateRow(2, bPositive ? 90.0 : -90.0, m_rotationPoint); }
    /** The matrix becomes the identity: sight along -Z, Y up. Box and rotation point stay. */
    void ResetView() { m_view = {}; }
    /**
     * Looks along an axis, Z up (along Z: Y up). The rotation point stays where it is seen.
     *
     * @param bPositive  the user looks towards the positive end
     */
    void LookAlong(int nAxis, bool bPositive);

    /**
     * Does what a linked view has done.
     *
     * @param dMouseSensitivity  of this view, for panning
     * @return what the caller has to do itself
     */
    CameraFollow_e Apply(CameraOperator_e eOperator, const SCameraOperator& values, double dMouseSensitivity);

    // The stored form.
    SCamera Camera() const;
    /** Before the size of the widget is known the camera waits for Resize. @param nFit  a CameraFit_e */
    void SetCamera(const SCamera& camera, int nFit);

private:
    struct SDeferred
    {
        SCamera camera;
        int nFit;
    };

    bool SetBox(const DVector3D& centre, double dWidth, double dHeight);
    bool SetSides(double dLeft, double dRight, double dTop, double dBottom);
    bool SetView(const QMatrix4x4& view);
    void Take(const SCamera& camera, int nFit);
    QMatrix4x4 Ortho(double dNear, double dFar) const;

    SOrthoBox m_box;
    DMatrix4x4 m_view;
    DVector3D m_rotationPoint;
    QSize m_viewport = {-1, -1};
    std::optional<SDeferred> m_deferred;
};
