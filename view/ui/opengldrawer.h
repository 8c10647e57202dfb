#pragma once

#include "frame/capture.h"
#include "frame/inputstate.h"
#include "scene/displaytype.h"
#include "view/annotations/canvas.h"
#include "view/camera/cameramath.h"
#include "view/camera/cameramoves.h"
#include "view/camera/cameraoperator.h"
#include "view/pick/hoverlist.h"
#include "view/pick/viewpicker.h"
#include "view/render/scenerenderer.h"

#include <QBrush>
#include <QElapsedTimer>
#include <QMutex>
#include <QOpenGLWidget>
#include <QTimer>

class CAnnotation;
class IDrawable;
class ISelectable;
class CWaitCursor;

enum Demotion_e { DemotionOff = 0, DemotionWireframe = 1, DemotionBoundingBox = 2 };

/**
 * The surface in which the cases of a view are drawn, and what mouse and keyboard do in it. The scene is
 * CSceneRenderer's, the camera COrthoCamera's, picking is in view/pick; here they meet the events of a
 * widget.
 */
class COpenGLDrawer : public QOpenGLWidget
{
    Q_OBJECT

public:
    explicit COpenGLDrawer(qint64 nViewId, QWidget* pParent = nullptr);
    ~COpenGLDrawer() override;

    /** Hover and selection work in the active view alone. */
    void SetActive(bool bActive);
    void SetDemotion(Demotion_e eDemotion);
    OglMouseMode_e GetMode() const { return m_eMode; }

    SCamera GetCamera() const { return m_camera.Camera(); }
    /** Without a size it waits for the first one. @param nFit  a CameraFit_e */
    void SetCamera(const SCamera& camera, int nFit);
    /** The next frame that has something to show shows all of it, once it is built; a plane from its front,
     * unless the camera was turned before. */
    void FitNextFrame();
    /** Where the pointer was last; what is picked there. */
    const SPointPick& GetPicked() const { return m_picked; }

    /**
     * The view as it is shown, dScale times as large: lines, points and texts grow with it. The picture has
     * the size of the widget times the scale times the device's pixel ratio; null where the view was never
     * shown or OpenGL can't draw that size.
     */
    void renderToImage(QImage& image, double dScale, const SCaptureParts& parts);

    /** Draws anew; drawables may have changed. */
    void UpdateAll();

    // Commands. Linked views follow each.
    void ZoomToFit();
    void ZoomToSelection();
    void ZoomIn() { ZoomStep(1, false); }
    void ZoomOut() { ZoomStep(-1, false); }
    void ResetView();
    /** Looks along an axis of the world. @param bPositive  towards its positive end */
    void LookAlong(int nAxis, bool bPositive);
    void QuarterTurn(bool bPositive);

signals:
    void SignalCameraChange(CameraOperator_e eOperator, SCameraOperator camera);
    void SignalMode(OglMouseMode_e eMode);
    void SignalActivated();
    void SignalPopupMenu();
    void SignalPointSelected(DVector3D dXYZ, IVector3D nIJK);

public slots:
    /** Does what a linked view has done. */
    void SlotCameraChange(CameraOperator_e eOperator, SCameraOperator camera);
    void SlotMode(OglMouseMode_e eMode);
    void SlotTimerUpdate();
    void SlotSelectableDeleted(ISelectable* pSelectable);
    void SlotSelectableCreated(ISelectable* pSelectable);

protected:
    void initializeGL() override;
    void resizeGL(int nWidth, int nHeight) override;
    void paintGL() override;
    void mousePressEvent(QMouseEvent* pEvent) override;
    void mouseMoveEvent(QMouseEvent* pEvent) override;
    void mouseReleaseEvent(QMouseEvent* pEvent) override;
    void mouseDoubleClickEvent(QMouseEvent* pEvent) override;
    void wheelEvent(QWheelEvent* pEvent) override;
    void keyPressEvent(QKeyEvent* pEvent) override;
    void keyReleaseEvent(QKeyEvent* pEvent) override;
    void leaveEvent(QEvent* pEvent) override;
    void focusOutEvent(QFocusEvent* pEvent) override;

private:
    // opengldrawer.cpp
    bool IsInteracting() const;
    /** Device pixels for each pixel of the view, of the picture on the screen or in a capture. */
    double RenderScale() const { return m_capture ? m_capture->dScale : 1.0; }
    void PaintBackground(QPainter& painter) const;
    void ShowDemotion(bool bInteracting);
    void RestoreDemoted();
    void PaintScene(bool bInteracting);
    void PaintOverlays(QPainter& painter, bool bInteracting);
    /** What is painted over the scene is painted on. */
    SCanvas Canvas() const;
    /** Of axes, scale and their texts. @param place  [pixels of the picture] */
    QColor OverlayColor(const QPointF& place) const;
    void PaintAnnotations(QPainter& painter);
    void PaintRotationMarker(QPainter& painter, bool bInteracting);
    bool ShowsItems();
    /** Only the camera, or what lies over the scene, has changed. */
    void UpdateCamera();
    bool TakeNeedsCheck();
    QVector<IDrawable*> Drawables() const;
    QVector<IDrawable*> VisibleDrawables() const;
    SViewBounds BoundsInView(bool bSelectedOnly) const;

    // opengldrawer_input.cpp
    MouseAction_e CurrentAction() const;
    void StartTimer();
    /** Does the step here, and tells linked views. */
    void Move(const SCameraMove& move);
    std::optional<SCameraMove> TickMove(MouseAction_e eAction) const;
    void ZoomStep(int nDirection, bool bAtCursor);
    void ZoomToBand(const QRect& band);
    void ClickAction(MouseAction_e eAction, Qt::KeyboardModifiers modifiers);
    void BoxAction(MouseAction_e eAction, const QRect& band, Qt::KeyboardModifiers modifiers);
    bool PlainKey(const QKeyEvent& event);
    bool KeyAction(MouseAction_e eAction, Qt::KeyboardModifiers modifiers);
    void RotateScreen(int nRow);
    void ChangeAxis();
    void FocusRotation();
    void TurnAbout(const DVector3D& point);
    CAnnotation* AnnotationAt(const QPoint& position) const;
    bool IsShown(const CAnnotation* pAnnotation) const;
    void ShowHot(const CAnnotation* pHot);
    bool IsMeasuring() const;
    void HideMeasureLine();
    QRect RubberBand() const;
    /** The hovered selectable, if it wants events. */
    ISelectable* EventTarget() const;

    // opengldrawer_pick.cpp
    SPickArea AreaAtCursor() const;
    static std::unique_ptr<CWaitCursor> WaitFor(const SPickArea& area);
    void Hover();
    void ShowHover();
    void Tell(const QString& sText);
    void StepHover();
    void ClearHover();
    void PickPoint();
    void SelectClicked(bool bControl);
    void SelectInRectangle(const QRect& band, bool bWhole, bool bControl);
    void NotifyDoubleClicked(ISelectable* pSelectable);
    void MeasurePress();
    void CopyPickedPoint() const;

    QMutex m_paintMutex; // held for the whole of a frame: an event handled in it must not start another
    const qint64 m_nViewId;
    bool m_bActive = false;
    OglMouseMode_e m_eMode = MouseNormal;
    QTimer m_timer;
    Demotion_e m_eDemotion = DemotionOff;
    bool m_bDemoted = false;
    /** What a demotion changes of a drawable. */
    struct SShownParts
    {
        DisplayType_e eType;
        bool bWireframe, bShaded, bNodes, bOutlines, bContours, bVectors;
    };
    QHash<IDrawable*, SShownParts> m_savedParts; // what to restore after a demotion
    COrthoCamera m_camera;
    CSceneRenderer m_renderer;
    CInputTracker m_input;
    QPoint m_cursor;
    bool m_bInside = false;
    CHoverList m_hover; // what lies under the pointer
    SPointPick m_picked;
    QString m_sTold;                        // in the status bar, of what is under the pointer
    std::optional<DVector3D> m_measureFrom; // the end of the measured line that was pressed last
    std::optional<DVector3D> m_measureTo;
    bool m_bMeasureShown = false; // from a press until its key is released
    QElapsedTimer m_sinceWheel;
    QElapsedTimer m_sinceRotation;
    bool m_bChangeAsked = false; // since the last frame: for changed drawables
    bool m_bCameraAsked = false; // for a moved camera
    bool m_bFitNext = false;
    std::optional<bool> m_showsItems; // unknown after a selectable has come or gone
    CAnnotation* m_pDragged = nullptr;
    QPoint m_dragGrip; // from its place to the pointer
    /** A picture that is being captured. */
    struct SCapturing
    {
        double dScale;
        QBrush background;
        SCaptureParts parts;
    };
    std::optional<SCapturing> m_capture;
};
