#pragma once

#include <QOpenGLContext>
#include <QSize>

#include <array>
#include <functional>

/**
 * Draws what is transparent so that all of it shows what lies behind it, in whatever order it is drawn: layer
 * by layer from the front, each the nearest place of each pixel behind the layer before (depth peeling). What
 * lies behind the last of MAX_LAYERS is added in the order in which it comes. One for each view, used with
 * its context current.
 */
class CTransparentLayers
{
public:
    static constexpr int MAX_LAYERS = 8;
    using DrawFunction = std::function<void()>;

    CTransparentLayers() = default;
    CTransparentLayers(const CTransparentLayers&) = delete;
    CTransparentLayers& operator=(const CTransparentLayers&) = delete;

    /**
     * Draws over what the framebuffer that is bound holds.
     *
     * @param viewport     of it [device pixels]
     * @param opaque       draws all that can hide; it is called for its depth alone
     * @param transparent  is called with the peeling programs in use, once a layer
     * @return false, with nothing drawn, where the context can't do it
     */
    bool Draw(const QSize& viewport, const DrawFunction& opaque, const DrawFunction& transparent);
    /** Frees what it keeps in the context. */
    void Release();

private:
    /** A picture with a depth. */
    struct SPlane
    {
        GLuint nFramebuffer = 0;
        GLuint nColor = 0;
        GLuint nDepth = 0;
    };
    enum { SUM, EVEN, ODD, PLANE_COUNT };

    static bool Create(SPlane& plane, const QSize& size);
    bool Prepare(const QSize& size);
    void Peel(const DrawFunction& transparent);
    bool DrawLayer(int nLayer, const DrawFunction& transparent);
    void DrawRest(const DrawFunction& transparent);
    void SetInFront(const SPlane& plane) const;
    /** Two take turns. */
    const SPlane& PlaneOf(int nLayer) const { return m_planes[nLayer % 2 == 0 ? EVEN : ODD]; }

    QSize m_size;
    std::array<SPlane, PLANE_COUNT> m_planes; // the sum of all layers, with the depth of what is opaque
    GLuint m_nQuery = 0;
};
