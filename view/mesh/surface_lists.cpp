// CSurface: in display lists.
#include "view/gl/drawcontext.h"
#include "view/gl/surfaceshaderprogram.h"
#include "view/mesh/surface.h"

/** A change of the user's mind, or a view in another context, frees what is there; all is made anew. */
void CSurface::ChooseForm()
{
    const bool bWithLists = CSurfaceLists::AreUsed();
    if (bWithLists == m_bWithLists && m_pContext == DrawContext().pOpenGL)
        return;
    m_bWithLists = bWithLists;
    m_pContext = DrawContext().pOpenGL;
    m_lists.ForgetAll();
    for (CRawModel* const pModel : {&m_model, &m_contourModel, &m_vectorModel})
        pModel->Clear();
    m_pIndices = {};
    m_bStale.fill(true);
}

/** A list can't be changed in part. What is shown is compiled when it is drawn. */
void CSurface::ForgetStaleLists()
{
    if (IsMainStale())
        for (const SurfacePart_e ePart : {NodesPart, OutlinesPart, WireframePart, ShadedPart})
            m_lists.Forget(ePart);
    if (m_bStale[StaleContours])
        m_lists.Forget(ContoursPart);
    if (m_bStale[StaleVectors])
        m_lists.Forget(VectorsPart);
    const bool bWithoutNormals = !IsLit() && m_bStale[StaleNormals];
    m_bStale.fill(false);
    m_bStale[StaleNormals] = bWithoutNormals;
}

void CSurface::CallList(SurfacePart_e ePart)
{
    if (!m_lists.Has(ePart)) {
        if (ePart == ContoursPart)
            CompileContours();
        else if (ePart == VectorsPart)
            CompileVectors();
        else
            CompileElements(ePart);
    }
    m_lists.Call(ePart);
}

void CSurface::CompileElements(SurfacePart_e ePart)
{
    const std::vector<float> positions = SurfaceArrays::ToFloats(m_positions, m_origin);
    std::vector<float> flags(m_size.Count());
    SurfaceArrays::BuildOutlineFlags(m_size, flags);
    std::vector<SVertexAttribute> attributes = {{AttributePosition, 3, positions.data()},
                                                {AttributeOutline, 1, flags.data()}};
    const std::vector<float> normals = MakeNormals();
    if (!normals.empty())
        attributes.push_back({AttributeNormal, 3, normals.data()});
    if (!m_values.empty())
        attributes.push_back({AttributeValue, 1, m_values.data()});
    if (!m_thresholds.empty())
        attributes.push_back({AttributeThreshold, 3, m_thresholds.data()});
    const auto [eMode, eIndices] = ELEMENTS_PARTS[ePart];
    if (eIndices == SURFACE_INDICES_COUNT)
        m_lists.Compile(ePart, attributes, eMode, int(m_size.Count()));
    else
        m_lists.Compile(ePart, attributes, eMode, SurfaceIndices(m_size, eIndices));
}

void CSurface::CompileContours()
{
    m_lists.Compile(ContoursPart, AttributesOf(m_contours), GL_LINES, int(m_contours.values.size()));
}

void CSurface::CompileVectors()
{
    const VectorArrays::SArrows arrows = Arrows();
    m_lists.Compile(VectorsPart, AttributesOf(arrows), GL_LINES, arrows.indices);
}
