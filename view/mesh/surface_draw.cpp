// CSurface: on the GPU.
#include "frame/preferences/preferences.h"
#include "view/gl/colormaptexture.h"
#include "view/gl/drawcontext.h"
#include "view/gl/shadermanager.h"
#include "view/gl/surfaceshaderprogram.h"
#include "view/mesh/surface.h"

#include <QMatrix3x3>

namespace {

constexpr float HEAD_FACTOR = 0.25F; // of the scales that the user sets
constexpr float BODY_FACTOR = 0.001F;
constexpr float OVER_FILL = 0.45F; // brightness of lines over a fill in the colours of a scalar

template <class Draw> void DrawModel(CRawModel& model, const Draw& draw)
{
    model.Bind();
    draw();
    model.Release();
}

} // namespace

bool CSurface::IsAnyStale(std::initializer_list<Stale_e> parts) const
{
    return std::any_of(parts.begin(), parts.end(), [this](Stale_e ePart) { return m_bStale[ePart]; });
}

bool CSurface::IsMainStale() const
{
    return IsAnyStale({StaleGeometry, StaleValues, StaleThresholds}) || (IsLit() && m_bStale[StaleNormals]);
}

std::vector<float> CSurface::MakeNormals() const
{
    if (!IsLit())
        return {};
    std::vector<float> normals(3 * m_size.Count());
    SurfaceArrays::BuildNormals(m_size, m_positions, normals);
    return normals;
}

void CSurface::UploadMain()
{
    if (m_bStale[StaleGeometry]) {
        m_model.Clear(); // an attribute that is no longer there may be of fewer elements
        m_model.Create();
        m_model.SetAttribute(AttributePosition, 3, m_size.Count(),
                             SurfaceArrays::ToFloats(m_positions, m_origin).data());
        std::vector<float> flags(m_size.Count());
        SurfaceArrays::BuildOutlineFlags(m_size, flags);
        m_model.SetAttribute(AttributeOutline, 1, m_size.Count(), flags.data());
        m_pIndices = {};
    }
    if (IsLit() && m_bStale[StaleNormals]) {
        m_model.SetAttribute(AttributeNormal, 3, m_size.Count(), MakeNormals().data());
        m_bStale[StaleNormals] = false;
    }
    if (m_bStale[StaleValues] && !m_values.empty())
        m_model.SetAttribute(AttributeValue, 1, m_size.Count(), m_values.data());
    if (m_bStale[StaleThresholds] && !m_thresholds.empty())
        m_model.SetAttribute(AttributeThreshold, 3, m_size.Count(), m_thresholds.data());
    for (const Stale_e ePart : {StaleGeometry, StaleValues, StaleThresholds})
        m_bStale[ePart] = false;
}

void CSurface::upload()
{
    if (m_size.Count() == 0)
        return;
    ChooseForm();
    if (m_bWithLists) {
        ForgetStaleLists();
        return;
    }
    m_model.Create();
    if (IsMainStale())
        UploadMain();
    if (drawVectors() && m_bStale[StaleVectors])
        UploadVectors();
    if (drawContours() && m_bStale[StaleContours])
        UploadContours();
}

VectorArrays::SArrows CSurface::Arrows() const
{
    if (m_vectors.empty())
        return {};
    const std::vector<float> normals = MakeNormals();
    return VectorArrays::Build(
        {m_size, m_positions, m_origin, normals, m_values, m_thresholds, m_vectors, ShownHoles()});
}

double CSurface::reachOutOfBounds() const
{
    if (!drawVectors())
        return 0.0;
    // The head may reach back beyond the foot; its corners lie within 1.2 of its length from the tip.
    constexpr double HEAD_REACH = 1.2;
    return m_dLongestVector * std::abs(vectorBodyScale()) * BODY_FACTOR *
           (1.0 + HEAD_REACH * std::abs(vectorHeadScale()) * HEAD_FACTOR);
}

void CSurface::UploadVectors()
{
    m_bStale[StaleVectors] = false;
    m_vectorModel.Clear();
    const VectorArrays::SArrows arrows = Arrows();
    m_nVectorIndices = arrows.indices.size();
    if (m_nVectorIndices == 0)
        return;
    m_vectorModel.Create();
    for (const SVertexAttribute& attribute : AttributesOf(arrows))
        m_vectorModel.SetAttribute(attribute.nAttribute, attribute.nComponents,
                                   VectorArrays::CORNERS * m_size.Count(), attribute.pData);
    m_vectorModel.SetIndices(arrows.indices, 0);
}

void CSurface::UploadContours()
{
    m_bStale[StaleContours] = false;
    m_contourModel.Clear();
    m_nContourVertices = static_cast<int>(m_contours.values.size());
    if (m_nContourVertices == 0)
        return;
    m_contourModel.Create();
    for (const SVertexAttribute& attribute : AttributesOf(m_contours))
        m_contourModel.SetAttribute(attribute.nAttribute, attribute.nComponents, m_nContourVertices,
                                    attribute.pData);
}

void CSurface::SetUniforms(CSurfaceShaderProgram& program) const
{
    const bool bMarks = DrawContext().bMarks;
    const bool bSelected = bMarks && isSelected(true), bHighlighted = bMarks && isHighlighted(true);
    program.Set(UniformSelected, bSelected ? 1.0F : 0.0F);
    program.Set(UniformHighlighted, bHighlighted ? 1.0F : 0.0F);
    program.Set(UniformIsPreview, isPreview() ? 1.0F : 0.0F);
    program.Set(UniformAlphaValue, bSelected || bHighlighted ? 1.0F : float(alphaValue()));
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
    upload();
    if (m_size.Count() == 0)
        return;
    SetUniforms(*pProgram);
    glLineWidth(float(lineThickness()) * DrawContext().fLineScale);
    DrawWith(*pProgram, modelMatrix(), bOverlay);
    if (isExtended())
        DrawWith(*pProgram, extensionMatrix(), bOverlay);
}

void CSurface::SetMatrices(CSurfaceShaderProgram& program, const QMatrix4x4& model) const
{
    const SDrawContext& context = DrawContext();
    const QMatrix4x4& view = context.view.FloatMatrix();
    program.Set(UniformNormalMatrix, model.isIdentity() ? context.normal : (view * model).normalMatrix());
    if (m_origin == DVector3D()) {
        program.Set(UniformViewMatrix, view);
        program.Set(UniformModelMatrix, model);
        return;
    }
    // The large parts of camera and origin cancel before anything is rounded to floats.
    const DMatrix4x4 toView =
        context.view.Matrix() * DMatrix4x4::FromFloat(model) * DMatrix4x4::Translation(m_origin);
    program.Set(UniformViewMatrix, STransform(toView).FloatMatrix());
    program.Set(UniformModelMatrix, QMatrix4x4());
}

void CSurface::DrawWith(CSurfaceShaderProgram& program, const QMatrix4x4& model, bool bOverlay)
{
    SetMatrices(program, model);
    if (drawNodes() || nodeVisible())
        DrawLines(program, NodesPart, bOverlay);
    // What is filled is marked by its edge, as long as it shows no other lines.
    if (drawOutlines() || (bOverlay && drawShaded() && !drawWireframe()))
        DrawLines(program, OutlinesPart, bOverlay);
    else if (drawWireframe())
        DrawLines(program, WireframePart, bOverlay);
    if (drawShaded() && !bOverlay)
        DrawShaded(program);
    if (drawVectors())
        DrawLines(program, VectorsPart, bOverlay);
    if (drawContours())
        DrawLines(program, ContoursPart, bOverlay);
}

void CSurface::DrawLines(CSurfaceShaderProgram& program, SurfacePart_e ePart, bool bOverlay)
{
    // Over its own fill a line is seen by the fill's colour, darker.
    const bool bOverFill = drawShaded() && usesColormap() && !bOverlay;
    const bool bHasNormals = ePart < ContoursPart;
    program.Set(UniformBrightness, bOverFill ? OVER_FILL : 1.0F);
    program.Set(UniformEnableLight, bOverFill && bHasNormals ? 1.0F : 0.0F);
    program.Set(UniformConstColor, wireframeColor());
    program.Set(UniformUseOutlineColor, CPreferences::Instance().Draw().bUseOutlineColor ? 1.0F : 0.0F);
    DrawPart(ePart);
}

void CSurface::DrawShaded(CSurfaceShaderProgram& program)
{
    program.Set(UniformSelected, 0.0F);
    program.Set(UniformHighlighted, 0.0F);
    program.Set(UniformAlphaValue, float(alphaValue()));
    program.Set(UniformConstColor, shadeColor());
    program.Set(UniformBrightness, 1.0F);
    program.Set(UniformEnableLight, 1.0F);
    // A triangle in a corner has only edge vertices, and would be filled with the colour of the outline.
    program.Set(UniformUseOutlineColor, 0.0F);
    DrawPart(ShadedPart);
}

void CSurface::DrawPart(SurfacePart_e ePart)
{
    if (m_bWithLists)
        CallList(ePart);
    else if (ePart == VectorsPart && m_nVectorIndices > 0)
        DrawModel(m_vectorModel, [&] { m_vectorModel.DrawElements(GL_LINES, 0, m_nVectorIndices); });
    else if (ePart == ContoursPart && m_nContourVertices > 0)
        DrawModel(m_contourModel, [&] { m_contourModel.DrawArrays(GL_LINES, m_nContourVertices); });
    else if (ePart < ContoursPart)
        DrawModel(m_model, [&] { DrawElements(ePart); });
}

void CSurface::DrawElements(SurfacePart_e ePart)
{
    const auto [eMode, eIndices] = ELEMENTS_PARTS[ePart];
    if (eIndices == SURFACE_INDICES_COUNT) {
        m_model.DrawArrays(eMode, int(m_size.Count()));
        return;
    }
    if (!m_pIndices[eIndices])
        m_pIndices[eIndices] = CSurfaceIndexBuffer::Of(m_size, eIndices);
    m_pIndices[eIndices]->Draw(eMode);
}
