// CSurface: on the GPU.
#include "frame/preferences.h"
#include "view/colormaptexture.h"
#include "view/drawcontext.h"
#include "view/shadermanager.h"
#include "view/surface.h"
#include "view/surfaceshaderprogram.h"
#include "view/vectorarrays.h"

#include <QMatrix3x3>

namespace {

constexpr float HEAD_FACTOR = 0.25F; // of the scales that the user sets
constexpr float BODY_FACTOR = 0.001F;

std::vector<float> ToFloats(std::span<const DVector3D> points)
{
    std::vector<float> floats(3 * points.size());
    float* pFloat = floats.data();
    for (const DVector3D& point : points)
        for (int nAxis = 0; nAxis < 3; ++nAxis)
            *pFloat++ = static_cast<float>(point[nAxis]);
    return floats;
}

} // namespace

void CSurface::UploadMain()
{
    if (m_bStale[StaleGeometry]) {
        m_model.SetAttribute(AttributePosition, 3, m_size.Count(), ToFloats(m_positions).data());
        if (!m_normals.empty())
            m_model.SetAttribute(AttributeNormal, 3, m_size.Count(), m_normals.data());
        std::vector<float> flags(m_size.Count());
        SurfaceArrays::BuildOutlineFlags(m_size, flags);
        m_model.SetAttribute(AttributeOutline, 1, m_size.Count(), flags.data());
        m_pIndices = {};
    }
    if (m_bStale[StaleValues] && !m_values.empty())
        m_model.SetAttribute(AttributeValue, 1, m_size.Count(), m_values.data());
    if (m_bStale[StaleThresholds] && !m_thresholds.empty())
        m_model.SetAttribute(AttributeThreshold, 3, m_size.Count(), m_thresholds.data());
    m_bStale[StaleGeometry] = m_bStale[StaleValues] = m_bStale[StaleThresholds] = false;
}

void CSurface::Upload()
{
    if (m_size.Count() == 0)
        return;
    m_model.Create();
    if (m_bStale[StaleGeometry] || m_bStale[StaleValues] || m_bStale[StaleThresholds])
        UploadMain();
    if (drawVectors() && m_bStale[StaleVectors])
        UploadVectors();
    if (drawContours() && m_bStale[StaleContours])
        UploadContours();
}

void CSurface::UploadVectors()
{
    m_bStale[StaleVectors] = false;
    m_nVectorIndices = 0;
    if (m_vectors.empty())
        return;
    const VectorArrays::SArrows arrows =
        VectorArrays::Build({m_size, m_positions, m_normals, m_values, m_thresholds, m_vectors,
                             showHoles() ? std::span<const char>(m_holes) : std::span<const char>()});
    const qint64 nVertices = VectorArrays::CORNERS * m_size.Count();
    m_vectorModel.Create();
    m_vectorModel.SetAttribute(AttributePosition, 3, nVertices, arrows.positions.data());
    m_vectorModel.SetAttribute(AttributeVector, 3, nVertices, arrows.vectors.data());
    m_vectorModel.SetAttribute(AttributeIJ, 3, nVertices, arrows.ij.data());
    if (!arrows.normals.empty())
        m_vectorModel.SetAttribute(AttributeNormal, 3, nVertices, arrows.normals.data());
    if (!arrows.values.empty())
        m_vectorModel.SetAttribute(AttributeValue, 1, nVertices, arrows.values.data());
    if (!arrows.thresholds.empty())
        m_vectorModel.SetAttribute(AttributeThreshold, 3, nVertices, arrows.thresholds.data());
    m_vectorModel.SetIndices(arrows.indices, 0);
    m_nVectorIndices = arrows.indices.size();
}

void CSurface::UploadContours()
{
    m_bStale[StaleContours] = false;
    m_nContourVertices = static_cast<int>(m_contours.values.size());
    if (m_nContourVertices == 0)
        return;
    m_contourModel.Create();
    m_contourModel.SetAttribute(AttributePosition, 3, m_nContourVertices, m_contours.positions.data());
    m_contourModel.SetAttribute(AttributeValue, 1, m_nContourVertices, m_contours.values.data());
}

void CSurface::SetUniforms(CSurfaceShaderProgram& program) const
{
    const bool bMarked = isSelected(true) || isHighlighted(true);
    program.Set(UniformSelected, isSelected(true) ? 1.0F : 0.0F);
    program.Set(UniformHighlighted, isHighlighted(true) ? 1.0F : 0.0F);
    program.Set(UniformIsPreview, isPreview() ? 1.0F : 0.0F);
    program.Set(UniformAlphaValue, bMarked ? 1.0F : float(alphaValue()));
    program.Set(UniformVecPlane, float(vectorPlane()));
    program.Set(UniformVecHeadScale, float(vectorHeadScale()) * HEAD_FACTOR);
    program.Set(UniformVecBodyScale, float(vectorBodyScale()) * BODY_FACTOR);
    program.Set(UniformVecSkip, float(vectorSkip()));
    const QPointF range = colormapRange();
    program.Set(UniformColorMap, QVector3D(usesColormap() ? 1.0F : 0.0F, float(range.x()), float(range.y())));
    if (usesColormap())
        DrawContext().pColormap->Use(colormapType());
    QMatrix3x3 thresholds;
    thresholds.fill(0.0F);
    if (thresholdEnable() && m_bThresholdThere) {
        thresholds(0, 0) = 1.0F;
        thresholds(0, 1) = float(thresholdRange().x());
        thresholds(0, 2) = float(thresholdRange().y());
    }
    if (m_bMaskThere)
        thresholds(2, 0) = thresholds(2, 1) = thresholds(2, 2) = 1.0F;
    program.Set(UniformThresholdMatrix, thresholds);
}

void CSurface::draw(bool bOverlay)
{
    CSurfaceShaderProgram* const pProgram = CShaderManager::Instance().GetSurfaceProgram(shaderKey());
    if (!pProgram)
        return;
    Upload();
    if (m_size.Count() == 0)
        return;
    SetUniforms(*pProgram);
    glLineWidth(float(lineThickness()) * DrawContext().fLineScale);
    DrawWith(*pProgram, modelMatrix(), bOverlay);
    if (isExtended())
        DrawWith(*pProgram, extensionMatrix(), bOverlay);
}

void CSurface::DrawWith(CSurfaceShaderProgram& program, const QMatrix4x4& model, bool bOverlay)
{
    const SDrawContext& context = DrawContext();
    program.Set(UniformModelMatrix, model);
    program.Set(UniformNormalMatrix,
                model.isIdentity() ? context.normal : (context.view * model).normalMatrix());
    m_model.Bind();
    program.Set(UniformEnableLight, 0.0F);
    program.Set(UniformConstColor, wireframeColor());
    if (drawNodes() || nodeVisible())
        m_model.DrawArrays(GL_POINTS, int(m_size.Count()));
    if (drawOutlines())
        DrawIndices(OutlineIndices, GL_LINE_STRIP);
    else if (drawWireframe() || (bOverlay && drawShaded()))
        DrawIndices(WireframeIndices, GL_LINE_STRIP);
    if (drawShaded() && !bOverlay)
        DrawShaded(program);
    m_model.Release();
    if (drawVectors())
        DrawVectors(program);
    if (drawContours())
        DrawContours(program);
}

void CSurface::DrawShaded(CSurfaceShaderProgram& program)
{
    program.Set(UniformSelected, 0.0F);
    program.Set(UniformHighlighted, 0.0F);
    program.Set(UniformAlphaValue, float(alphaValue()));
    program.Set(UniformConstColor, shadeColor());
    program.Set(UniformEnableLight, 1.0F);
    // A triangle in a corner has only edge vertices, and would be filled with the colour of the outline.
    program.Set(UniformUseOutlineColor, 0.0F);
    DrawIndices(TriangleIndices, GL_TRIANGLES);
    program.Set(UniformUseOutlineColor, CPreferences::Instance().Draw().bUseOutlineColor ? 1.0F : 0.0F);
}

void CSurface::DrawIndices(SurfaceIndices_e eIndices, GLenum eMode)
{
    if (!m_pIndices[eIndices])
        m_pIndices[eIndices] = CSurfaceIndexBuffer::Of(m_size, eIndices);
    m_pIndices[eIndices]->Draw(eMode);
}

void CSurface::DrawVectors(CSurfaceShaderProgram& program)
{
    if (m_nVectorIndices == 0)
        return;
    program.Set(UniformEnableLight, 0.0F);
    program.Set(UniformConstColor, wireframeColor());
    m_vectorModel.Bind();
    m_vectorModel.DrawElements(GL_LINES, 0, m_nVectorIndices);
    m_vectorModel.Release();
}

void CSurface::DrawContours(CSurfaceShaderProgram& program)
{
    if (m_nContourVertices == 0)
        return;
    program.Set(UniformEnableLight, 0.0F);
    program.Set(UniformConstColor, wireframeColor());
    m_contourModel.Bind();
    m_contourModel.DrawArrays(GL_LINES, m_nContourVertices);
    m_contourModel.Release();
}
