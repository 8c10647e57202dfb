#pragma once

#include "view/mesh/surfaceindexbuffer.h"
#include "view/mesh/vectorarrays.h"

#include <vector>

/** What a surface draws, each by one call. */
enum SurfacePart_e {
    NodesPart,
    OutlinesPart,
    WireframePart,
    ShadedPart,
    ContoursPart,
    VectorsPart,
    SURFACE_PART_COUNT
};

/** How the first four, which are drawn from the elements, are drawn. */
struct SElementsPart
{
    GLenum eMode;
    SurfaceIndices_e eIndices; ///< SURFACE_INDICES_COUNT: all elements in order
};
inline constexpr SElementsPart ELEMENTS_PARTS[] = {
    {GL_POINTS, SURFACE_INDICES_COUNT},
    {GL_LINE_STRIP, OutlineIndices},
    {GL_LINE_STRIP, WireframeIndices},
    {GL_TRIANGLES, TriangleIndices},
};

/** One vertex attribute in plain memory, floats without gaps. */
struct SVertexAttribute
{
    int nAttribute;
    int nComponents;
    const float* pData;
};

/** Those of the arrays that there are; good while the arrays stand. */
std::vector<SVertexAttribute> AttributesOf(const VectorArrays::SArrows& arrows);
std::vector<SVertexAttribute> AttributesOf(const SurfaceArrays::SContours& contours);
