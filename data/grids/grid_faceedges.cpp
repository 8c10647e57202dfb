// CGrid: the edges of its faces.
#include "data/grids/faceedges.h"
#include "data/grids/grid.h"
#include "frame/preferences/preferencekeys.h"
#include "frame/preferences/preferences.h"

void CGrid::ResetFaceEdges()
{
    if (m_pFaceEdges)
        m_pFaceEdges->Reset();
}

void CGrid::BuildFaceEdge(int nFace, int nEdge)
{
    if (!m_pFaceEdges)
        m_pFaceEdges = std::make_unique<CFaceEdges>();
    m_pFaceEdges->Get(*this, nFace, nEdge);
}

const QVector<DVector3D>& CGrid::GetFaceEdgePoints(int nFace, int nEdge)
{
    BuildFaceEdge(nFace, nEdge);
    return m_pFaceEdges->Get(*this, nFace, nEdge).points;
}

const QVector<DVector3D>& CGrid::GetFaceEdgeNormals(int nFace, int nEdge)
{
    BuildFaceEdge(nFace, nEdge);
    return m_pFaceEdges->Get(*this, nFace, nEdge).normals;
}

const QVector<DVector3D>& CGrid::GetFaceEdgeInward(int nFace, int nEdge)
{
    BuildFaceEdge(nFace, nEdge);
    return m_pFaceEdges->Get(*this, nFace, nEdge).inward;
}

DVector3D CGrid::GetFaceEdgeBoxMin(int nFace, int nEdge)
{
    BuildFaceEdge(nFace, nEdge);
    return m_pFaceEdges->Get(*this, nFace, nEdge).boxMin;
}

DVector3D CGrid::GetFaceEdgeBoxMax(int nFace, int nEdge)
{
    BuildFaceEdge(nFace, nEdge);
    return m_pFaceEdges->Get(*this, nFace, nEdge).boxMax;
}

bool CGrid::FaceEdgeBoxesTouch(int nFace, int nEdge, const DVector3D& min, const DVector3D& max)
{
    BuildFaceEdge(nFace, nEdge);
    return BoxesTouch(m_pFaceEdges->Get(*this, nFace, nEdge), min, max);
}

bool CGrid::FaceEdgesMatch(int nFace, int nEdge, IGrid& other, int nOtherFace, int nOtherEdge)
{
    BuildFaceEdge(nFace, nEdge);
    const CFaceEdges::SEdge& own = m_pFaceEdges->Get(*this, nFace, nEdge);
    CFaceEdges::SEdge foreign;
    foreign.points = other.GetFaceEdgePoints(nOtherFace, nOtherEdge);
    foreign.normals = other.GetFaceEdgeNormals(nOtherFace, nOtherEdge);
    foreign.inward = other.GetFaceEdgeInward(nOtherFace, nOtherEdge);
    foreign.boxMin = other.GetFaceEdgeBoxMin(nOtherFace, nOtherEdge);
    foreign.boxMax = other.GetFaceEdgeBoxMax(nOtherFace, nOtherEdge);
    return EdgesMatch(own, foreign, Get(CPreferences::Instance(), PreferenceKey::ANGLE_LIMIT));
}
