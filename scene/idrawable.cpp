#include "scene/idrawable.h"

namespace {

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

bool IDrawable::AllowsDisplayType(DisplayType_e eType) const
{
    return eType != DisplayContour && eType != DisplayVector;
}

void IDrawable::setDisplayType(DisplayType_e eType)
{
    if (eType == m_state.nDisplayType || !AllowsDisplayType(eType))
        return;
    if ((eType == DisplayContour && m_state.nScalarVariable == -1) ||
        (eType == DisplayVector && m_state.nVectorVariable == -1))
        return;
    setDisplayTypeQuick(eType);
    invalidateAll();
}

void IDrawable::setDisplayTypeQuick(DisplayType_e eType)
{
    const SFlags& flags = TYPE_FLAGS[eType];
    m_state.nDisplayType = eType;
    m_state.bDrawWireframe = flags.bWireframe;
    m_state.bDrawShaded = flags.bShaded;
    m_state.bDrawNodes = flags.bNodes;
    m_state.bDrawOutlines = flags.bOutlines;
    m_state.bDrawContours = flags.bContours;
    m_state.bDrawVectors = flags.bVectors;
}

DisplayType_e IDrawable::effectiveDisplayType() const
{
    const DisplayType_e eType = displayType();
    return eType == DisplayShaded || eType == DisplayShadedWireframe ? DisplayWireframe : eType;
}

qint64 IDrawable::effectiveScalarVariable() const
{
    return usesColormap() || drawContours() ? m_state.nScalarVariable : -1;
}

void IDrawable::setVectorVariable(qint64 nId)
{
    if (nId == m_state.nVectorVariable)
        return;
    Change(&SDisplayState::nVectorVariable, nId);
    if (nId != -1)
        setDisplayType(DisplayVector);
}

void IDrawable::setColormap(const SColormapRecord& record)
{
    if (record == m_state.colormap)
        return;
    m_state.colormap = record;
    invalidateContours(); // their levels follow the range
}

void IDrawable::setColormapValues(double dMinimum, double dMaximum)
{
    SColormapRecord record = m_state.colormap;
    const bool bInverted = record.IsInverted() || dMinimum > dMaximum;
    auto [dLow, dHigh] = std::minmax({dMinimum, dMaximum});
    // A range of no extent has no colours to tell apart.
    dHigh = dHigh > dLow ? dHigh : dLow + std::max(std::abs(dLow) * 1e-6, 1e-6);
    record.dMinimum = bInverted ? dHigh : dLow;
    record.dMaximum = bInverted ? dLow : dHigh;
    setColormap(record);
}

QPointF IDrawable::colormapRange() const
{
    const SColormapRecord& map = m_state.colormap;
    if (m_state.bColormapBindToLocal && map.HasLocalRange())
        return scalarRange();
    return {map.dMinimum, map.dMaximum};
}
