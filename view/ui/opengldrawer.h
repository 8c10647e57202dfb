#pragma once

#include "scene/iselectable.h"
#include "view/annotations/canvas.h"
#include "view/render/demotion.h"
#include "view/render/scenerenderer.h"
#include "view/tools/bandtool.h"
#include "view/tools/hovertool.h"
#include "view/tools/legendtool.h"
#include "view/tools/measuretool.h"
#include "view/tools/picktool.h"
#include "view/tools/viewpointer.h"
#include "view/ui/viewcapture.h"

#include <QElapsedTimer>
#include <QMutex>
#include <QOpenGLWidget>
#include <QTimer>

/**
 * The surface in which the cases of a view are drawn. It holds the camera and moves it with mouse and
 * keyboard, asks CSceneRenderer for frames, and hands all other events to the tools of the view.
 */
class COpenGLDrawer : public QOpenGLWidget, private IToolView
{
    Q_OBJECT

public:
    explicit COpenGLDrawer(qint64 nViewId, QWidget* pParent = nullptr);
    ~COpenGLDrawer() override;

    /** Hover and selection work in the active view alone. */
    void SetActive(bool bActive);
    void SetDemotion(Demotion_e eDemotion);
    OglMouseMode_e GetMode() const { return m_state.eMode; }

    SCamera GetCamera() const { return m_state.camera.Camera(); }
    /** Without a size it waits for the first one. @param nFit  a CameraFit_e */
    void SetCamera(const SCamera& camera, int nFit);
    /** The next frame that has something to show shows all of it, once it is built; a plane from its front,
     * unless the camera was turned before. */
    void FitNextFrame();

    /**
     * The view as it is shown, dScale times as large: lines, points and texts grow with it. The picture has
     * the size of the widget times the scale times the device's pixel ratio; null where the view was never
     * shown or OpenGL can't draw that size.
     */
    void renderToImage(QImage& image, double dScale, const SCaptureParts& parts);

    /** Draws anew; drawables may have changed. */
    void UpdateAll() override;

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
    /** In the mode that picks points. @param pSelectable  what it is on */
    void SignalPointSelected(SPickedPoint point, ISelectable* pSelectable);

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
    // For the tools.
    const SViewState& State() const override { return m_state; }
    void Move(const SCameraMove& move) override;
    void UpdateCamera() override;
    void LeaveMode() override { SlotMode(MouseNormal); }
    std::shared_ptr<void> Wait() const override;
    void TellPoint(const SPointPick& pick) override;

    // The frame (opengldrawer.cpp).
    bool IsInteracting() const;
    void PaintBackground(QPainter& painter) const;
    void FitIfAsked();
    void PaintScene(bool bInteracting);
    void PaintOverlays(QPainter& painter, bool bInteracting);
    /** What is painted over the scene is painted on. */
    SCanvas Canvas() const;
    /** Of axes, scale and their texts. @param place  [pixels of the picture] */
    QColor OverlayColor(const QPointF& place) const;
    void PaintAnnotations(QPainter& painter);
    void PaintRotationMarker(QPainter& painter, bool bInteracting);
    bool ShowsItems();
    bool TakeNeedsCheck();
    SViewBounds BoundsInView(bool bSelectedOnly) const;

    // Events and the camera (opengldrawer_input.cpp).
    SPointerEvent EventOf(const QMouseEvent& event) const;
    /** The first tool for which the call is true has the event; false if none takes it. */
    template <class Call> bool AnyTool(const Call& call);
    void CancelTools();
    void StartTimer();
    void ZoomStep(int nDirection, bool bAtCursor);
    void ClickAction(MouseAction_e eAction);
    bool PlainKey(const QKeyEvent& event);
    bool KeyAction(MouseAction_e eAction);
    void RotateScreen(int nRow);
    void FocusRotation(bool bElseBounds);
    void TurnAbout(const DVector3D& point);

    QMutex m_paintMutex; // held for the whole of a frame: an event handled in it must not start another
    SViewState m_state;
    QTimer m_timer;
    CDemotion m_demotion;
    CSceneRenderer m_renderer;
    CViewCapture m_capture;
    CViewPointer m_pointer{*this};
    CLegendTool m_legendTool{*this};
    CBandTool m_bandTool{*this};
    CMeasureTool m_measureTool{*this, m_pointer};
    CPickTool m_pickTool{*this, m_pointer};
    CHoverTool m_hoverTool{*this, m_pointer};
    IViewTool* const m_tools[5] = {&m_legendTool, &m_bandTool, &m_measureTool, &m_pickTool, &m_hoverTool};
    bool m_bInside = false; // the pointer is
    QElapsedTimer m_sinceWheel;
    QElapsedTimer m_sinceRotation;
    bool m_bChangeAsked = false; // since the last frame: for changed drawables
    bool m_bCameraAsked = false; // for a moved camera
    bool m_bFitNext = false;
    std::optional<bool> m_showsItems; // unknown after a selectable has come or gone
};
