#include "view/drawables/drawable.h"

#include "frame/preferences/preferencekeys.h"
#include "frame/preferences/preferences.h"
#include "scene/drawablemanager.h"
#include "scene/iselectable.h"
#include "simulation/isimulation.h"
#include "simulation/simulationmanager.h"
#include "view/annotations/annotationcolormap.h"

namespace {

qint64 NextSerial()
{
    static qint64 s_nLast = 0;
    return ++s_nLast;
}

struct SFlags
{
    bool bWireframe, bShaded, bNodes, bOutlines, bContours, bVectors;
};

/** What a display type draws, by its value. */
constexpr SFlags TYPE_FLAGS[] = {
    {false, false, false, true, false, false}, // outline
    {true, false, false, false, false, false}, // wireframe
    {false, true, false, false, false, false}, // shaded
    {true, true, false, false, false, false},  // shaded and wireframe
    {false, false, false, false, true, false}, // contours
    {false, false, true, false, false, false}, // nodes
    {false, false, false, false, false, true}, // vectors
};

} // namespace

CDrawable::CDrawable(qint64 nSimulationId, qint64 nViewId, qint64 nBlockId, int nShaderKey)
    : m_nSerial(NextSerial()),
      m_nSimulationId(nSimulationId),
      m_nViewId(nViewId),
      m_nBlockId(nBlockId),
      m_nShaderKey(nShaderKey),
      m_dLineThickness(CPreferences::Instance().Draw().fLineThickness),
      m_pLegend(std::make_unique<CAnnotationColormap>())
{
    m_pLegend->setDrawableSerial(m_nSerial);
    m_colormap.nId = qint32(Get(CPreferences::Instance(), PreferenceKey::DEFAULT_COLORMAP));
    setAutoDelete(false); // a task may call build, it never owns the drawable
    ResetBounds();
    CDrawableManager::Instance().Add(nViewId, nSimulationId, this);
}

CDrawable::~CDrawable() { CDrawableManager::Instance().Remove(this); }

void CDrawable::setViewId(qint64 nViewId)
{
    if (nViewId == m_nViewId)
        return;
    CDrawableManager::Instance().Remove(this);
    m_nViewId = nViewId;
    CDrawableManager::Instance().Add(nViewId, m_nSimulationId, this);
}

void CDrawable::invalidateAll()
{
    invalidateGeometry();
    invalidateValues();
    invalidateThresholds();
    invalidateVectors();
    invalidateContours();
}

void CDrawable::setDisplayOnNodes(bool bOnNodes)
{
    if (bOnNodes == m_bDisplayOnNodes)
        return;
    m_bDisplayOnNodes = bOnNodes;
    invalidateAll();
}

void CDrawable::setShowHoles(bool bShow)
{
    if (bShow == m_bShowHoles)
        return;
    m_bShowHoles = bShow;
    invalidateValues();     // their range counts what is shown
    invalidateThresholds(); // the mask travels with them
    invalidateVectors();
    invalidateContours();
}

bool CDrawable::AllowsDisplayType(DisplayType_e eType) const
{
    return eType != DisplayContour && eType != DisplayVector;
}

void CDrawable::setDisplayType(DisplayType_e eType)
{
    if (eType == m_eDisplayType || !AllowsDisplayType(eType))
        return;
    if ((eType == DisplayContour && m_nScalarVariable == -1) ||
        (eType == DisplayVector && m_nVectorVariable == -1))
        return;
    setDisplayTypeQuick(eType);
    invalidateAll();
}

void CDrawable::setDisplayTypeQuick(DisplayType_e eType)
{
    const SFlags& flags = TYPE_FLAGS[eType];
    m_eDisplayType = eType;
    m_bDrawWireframe = flags.bWireframe;
    m_bDrawShaded = flags.bShaded;
    m_bDrawNodes = flags.bNodes;
    m_bDrawOutlines = flags.bOutlines;
    m_bDrawContours = flags.bContours;
    m_bDrawVectors = flags.bVectors;
}

DisplayType_e CDrawable::effectiveDisplayType() const
{
    return m_eDisplayType == DisplayShaded || m_eDisplayType == DisplayShadedWireframe ? DisplayWireframe
                                                                                       : m_eDisplayType;
}

bool CDrawable::drawContours() const
{
    return m_nScalarVariable != -1 && (m_bDrawContours || m_eDisplayType == DisplayContour);
}

bool CDrawable::drawVectors() const
{
    return m_nVectorVariable != -1 && (m_bDrawVectors || m_eDisplayType == DisplayVector);
}

void CDrawable::setContourCount(qint64 nCount)
{
    if (nCount == m_nContourCount)
        return;
    m_nContourCount = nCount;
    invalidateContours();
}

void CDrawable::setGeometricColor(bool bGeometric)
{
    if (bGeometric == m_bGeometricColor)
        return;
    m_bGeometricColor = bGeometric;
    invalidateValues(); // those of a scalar that doesn't show aren't built
}

void CDrawable::setScalarVariable(qint64 nId)
{
    if (nId == m_nScalarVariable)
        return;
    m_nScalarVariable = nId;
    invalidateValues();
    invalidateContours();
}

qint64 CDrawable::effectiveScalarVariable() const
{
    return usesColormap() || drawContours() ? m_nScalarVariable : -1;
}

void CDrawable::setVectorVariable(qint64 nId)
{
    if (nId == m_nVectorVariable)
        return;
    m_nVectorVariable = nId;
    invalidateVectors();
    if (nId != -1)
        setDisplayType(DisplayVector);
}

void CDrawable::setThresholdVariable(qint64 nId)
{
    if (nId == m_nThresholdVariable)
        return;
    m_nThresholdVariable = nId;
    invalidateThresholds();
}

void CDrawable::setColormap(const SColormapRecord& record)
{
    if (record == m_colormap)
        return;
    m_colormap = record;
    invalidateContours(); // their levels follow the range
}

void CDrawable::setColormapValues(double dMinimum, double dMaximum)
{
    SColormapRecord record = m_colormap;
    const bool bInverted = record.IsInverted() || dMinimum > dMaximum;
    auto [dLow, dHigh] = std::minmax({dMinimum, dMaximum});
    // A range of no extent has no colours to tell apart.
    dHigh = dHigh > dLow ? dHigh : dLow + std::max(std::abs(dLow) * 1e-6, 1e-6);
    record.dMinimum = bInverted ? dHigh : dLow;
    record.dMaximum = bInverted ? dLow : dHigh;
    setColormap(record);
}

QPointF CDrawable::colormapRange() const
{
    if (m_bColormapBindToLocal && m_colormap.HasLocalRange())
        return {m_colormap.dLocalMinimum, m_colormap.dLocalMaximum};
    return {m_colormap.dMinimum, m_colormap.dMaximum};
}

QPointF CDrawable::scalarRange() const { return {m_colormap.dLocalMinimum, m_colormap.dLocalMaximum}; }

void CDrawable::setColormapBindToLocal(bool bBind)
{
    if (bBind == m_bColormapBindToLocal)
        return;
    m_bColormapBindToLocal = bBind;
    invalidateContours();
}

bool CDrawable::OwnerShows(bool (ISelectable::*is)() const, bool bRespect) const
{
    // The owners first: for most drawables of a frame they are all that has to be asked.
    const auto isShown = [is](const ISelectable* p) { return (p->*is)(); };
    if (m_bPreview || std::none_of(m_owners.begin(), m_owners.end(), isShown))
        return false;
    if (!bRespect || CPreferences::Instance().Draw().bHighlightOutline)
        return true; // the outline lies round the item and hides nothing of it
    const ISimulation* const pSimulation = CSimulationManager::Instance().GetSimulation(m_nSimulationId);
    return !pSimulation || pSimulation->ShowsSelection();
}

bool CDrawable::isSelected(bool bRespect) const { return OwnerShows(&ISelectable::isSelected, bRespect); }
bool CDrawable::isHighlighted(bool bRespect) const { return OwnerShows(&ISelectable::isHover, bRespect); }

void CDrawable::ResetBounds()
{
    constexpr double LARGEST = std::numeric_limits<double>::max();
    m_boundsMinimum = {LARGEST, LARGEST, LARGEST};
    m_boundsMaximum = {-LARGEST, -LARGEST, -LARGEST};
}

void CDrawable::AddToBounds(const DVector3D& point)
{
    for (int nAxis = 0; nAxis < 3; ++nAxis) {
        m_boundsMinimum[nAxis] = std::min(m_boundsMinimum[nAxis], point[nAxis]);
        m_boundsMaximum[nAxis] = std::max(m_boundsMaximum[nAxis], point[nAxis]);
    }
}
