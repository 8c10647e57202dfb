#pragma once

#include "view/gl/colormaptexture.h"
#include "view/render/framescene.h"
#include "view/render/transparentlayers.h"

#include <QMatrix4x4>
#include <QRectF>
#include <QSize>

#include <memory>

class QOpenGLFramebufferObject;

/** What a frame is drawn with. */
struct SFrameSettings
{
    qint64 nViewId = -1;
    DMatrix4x4 view;
    double dLeft = -2.0, dRight = 2.0, dTop = 2.0, dBottom = -2.0; ///< visible rectangle [world units]
    QSize viewport;                                                ///< [device pixels]
    bool bBoundingBoxes = false;        ///< demoted: the boxes instead of the items
    bool bCheckDrawables = true;        ///< false: only the camera has moved, nothing can need building
    bool bMarks = true;                 ///< selection and highlight are shown
    float fScale = 1.0F;                ///< of lines, points and the silhouette
    std::vector<DVector3D> measureLine; ///< the two ends of the measured line, of the world; or nothing
};

/**
 * Draws the cases of a view into the framebuffer that is bound, over what is there: first what has to be
 * built is built, then follow what is opaque, what is transparent, and the lines of what is selected or its
 * silhouette. One for each view, used with the view's context current, which is left without depth test.
 */
class CSceneRenderer
{
public:
    CSceneRenderer();
    ~CSceneRenderer();

    /** Sets the fixed state of the context and makes what the renderer keeps in it. */
    void Initialize();
    /** Frees it. */
    void Release();
    void Render(SFrameSettings frame);
    /** Builds what is visible in a view and isn't built; draws nothing. */
    static void Build(qint64 nViewId);

private:
    static void BuildDrawables(const CFrameScene& scene);
    static void UploadDrawables(const CFrameScene& scene);
    void DrawItems(const SFrameSettings& frame, const CFrameScene& scene, const QMatrix4x4& projection);
    /** Calls draw(key) with each program bound and set up. */
    template <class Draw>
    void WithPrograms(const SFrameSettings& frame, const CFrameScene& scene, const QMatrix4x4& projection,
                      const Draw& draw);
    void DrawShown(const SFrameSettings& frame, const CFrameScene& scene, const QMatrix4x4& projection,
                   bool bOpaque);
    void DrawTransparent(const SFrameSettings& frame, const CFrameScene& scene, const QMatrix4x4& projection);
    void DrawMarked(const SFrameSettings& frame, const CFrameScene& scene, const QMatrix4x4& projection);
    void DrawMeasureLine(const SFrameSettings& frame, const QMatrix4x4& projection);
    void DrawBoundingBoxes(const CFrameScene& scene, const QMatrix4x4& projection);
    // scenerenderer_silhouette.cpp
    void DrawSilhouette(const SFrameSettings& frame, const CFrameScene& scene, const QMatrix4x4& projection);
    bool DrawMask(const SFrameSettings& frame, const CFrameScene& scene, const QMatrix4x4& projection);

    CColormapTexture m_colormap;
    CTransparentLayers m_layers;
    std::unique_ptr<QOpenGLFramebufferObject> m_pMask;
};
