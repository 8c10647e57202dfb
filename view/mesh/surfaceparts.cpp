#include "view/mesh/surfaceparts.h"

#include "view/gl/surfaceshaderprogram.h"

namespace {

struct SArray
{
    int nAttribute;
    int nComponents;
    const std::vector<float>& floats;
};

std::vector<SVertexAttribute> NotEmpty(std::initializer_list<SArray> arrays)
{
    std::vector<SVertexAttribute> attributes;
    for (const SArray& array : arrays)
        if (!array.floats.empty())
            attributes.push_back({array.nAttribute, array.nComponents, array.floats.data()});
    return attributes;
}

} // namespace

std::vector<SVertexAttribute> AttributesOf(const VectorArrays::SArrows& arrows)
{
    return NotEmpty({{AttributePosition, 3, arrows.positions},
                     {AttributeVector, 3, arrows.vectors},
                     {AttributeIJ, 3, arrows.ij},
                     {AttributeNormal, 3, arrows.normals},
                     {AttributeValue, 1, arrows.values},
                     {AttributeThreshold, 3, arrows.thresholds}});
}

std::vector<SVertexAttribute> AttributesOf(const SurfaceArrays::SContours& contours)
{
    return NotEmpty({{AttributePosition, 3, contours.positions},
                     {AttributeValue, 1, contours.values},
                     {AttributeThreshold, 3, contours.thresholds}});
}
