#pragma once

#include "view/mesh/surfaceparts.h"

#include <QOpenGLContext>
#include <QPointer>

#include <array>
#include <span>

/**
 * The display lists of a surface: names in the share group of the context that compiled them. Compile, Call
 * and AreUsed need a current context, Forget and the destructor don't.
 */
class CSurfaceLists
{
public:
    CSurfaceLists() = default;
    CSurfaceLists(const CSurfaceLists&) = delete;
    CSurfaceLists& operator=(const CSurfaceLists&) = delete;
    ~CSurfaceLists();

    /** The user wants lists and the current context has them, which one of the core profile hasn't. */
    static bool AreUsed();

    bool Has(SurfacePart_e ePart) const { return m_names[ePart] != 0; }
    /** A list that draws the indexed vertices. */
    void Compile(SurfacePart_e ePart, std::span<const SVertexAttribute> attributes, GLenum eMode,
                 const QVector<quint32>& indices);
    /** A list that draws the vertices 0 to nCount - 1. */
    void Compile(SurfacePart_e ePart, std::span<const SVertexAttribute> attributes, GLenum eMode, int nCount);
    /** Draws; nothing if there is no such list. Attributes that have no array are zero again afterwards. */
    void Call(SurfacePart_e ePart) const;

    /** Leaves the names to AbandonedNames. */
    void Forget(SurfacePart_e ePart);
    void ForgetAll();

private:
    template <class Draw>
    void CompileWith(SurfacePart_e ePart, std::span<const SVertexAttribute> attributes, const Draw& draw);

    QPointer<QOpenGLContextGroup> m_pGroup;
    std::array<GLuint, SURFACE_PART_COUNT> m_names = {};
};
