#pragma once

#include "scene/displaystate.h"

#include <type_traits>

/**
 * The members of SDisplayState under their names, for a drawable and for several as one (CDrawableGroup):
 * each is one call of Self's Change or Value. What has a rule of its own isn't here.
 */
template <class Self> class CDisplayNames
{
public:
    // Visibility and what is drawn.
    void setNodeVisible(bool b) { Put(&SDisplayState::bNodeVisible, b); }
    bool nodeVisible() const { return Ask(&SDisplayState::bNodeVisible); }
    void setDisplayOnNodes(bool b) { Put(&SDisplayState::bDisplayOnNodes, b); }
    bool displayOnNodes() const { return Ask(&SDisplayState::bDisplayOnNodes); }
    void setShowHoles(bool b) { Put(&SDisplayState::bShowHoles, b); }
    bool showHoles() const { return Ask(&SDisplayState::bShowHoles); }
    void setDrawContours(bool b) { Put(&SDisplayState::bDrawContours, b); }
    void setContourCount(qint64 n) { Put(&SDisplayState::nContourCount, n); }
    qint64 contourCount() const { return Ask(&SDisplayState::nContourCount); }

    // Colours.
    void setGeometricColor(bool b) { Put(&SDisplayState::bGeometricColor, b); }
    bool geometricColor() const { return Ask(&SDisplayState::bGeometricColor); }
    void setShadeColor(const QColor& color) { Put(&SDisplayState::shadeColor, color); }
    QColor shadeColor() const { return Ask(&SDisplayState::shadeColor); }
    void setWireframeColor(const QColor& color) { Put(&SDisplayState::wireframeColor, color); }
    QColor wireframeColor() const { return Ask(&SDisplayState::wireframeColor); }
    void setLineThickness(double d) { Put(&SDisplayState::dLineThickness, d); }
    double lineThickness() const { return Ask(&SDisplayState::dLineThickness); }
    void setAlphaValue(double d) { Put(&SDisplayState::dAlpha, d); }
    double alphaValue() const { return Ask(&SDisplayState::dAlpha); }
    void setColormapBindToLocal(bool b) { Put(&SDisplayState::bColormapBindToLocal, b); }
    bool colormapBindToLocal() const { return Ask(&SDisplayState::bColormapBindToLocal); }

    // Variables.
    void setScalarVariable(qint64 n) { Put(&SDisplayState::nScalarVariable, n); }
    qint64 scalarVariable() const { return Ask(&SDisplayState::nScalarVariable); }
    qint64 vectorVariable() const { return Ask(&SDisplayState::nVectorVariable); }
    void setThresholdVariable(qint64 n) { Put(&SDisplayState::nThresholdVariable, n); }
    qint64 thresholdVariable() const { return Ask(&SDisplayState::nThresholdVariable); }
    void setThresholdEnable(bool b) { Put(&SDisplayState::bThresholdEnable, b); }
    bool thresholdEnable() const { return Ask(&SDisplayState::bThresholdEnable); }
    void setThresholdRange(const QPointF& range) { Put(&SDisplayState::thresholdRange, range); }
    QPointF thresholdRange() const { return Ask(&SDisplayState::thresholdRange); }

    // Vectors.
    void setVectorPlane(qint64 n) { Put(&SDisplayState::nVectorPlane, n); }
    qint64 vectorPlane() const { return Ask(&SDisplayState::nVectorPlane); }
    void setVectorSkip(qint64 n) { Put(&SDisplayState::nVectorSkip, n); }
    qint64 vectorSkip() const { return Ask(&SDisplayState::nVectorSkip); }
    void setVectorHeadScale(double d) { Put(&SDisplayState::dVectorHeadScale, d); }
    double vectorHeadScale() const { return Ask(&SDisplayState::dVectorHeadScale); }
    void setVectorBodyScale(double d) { Put(&SDisplayState::dVectorBodyScale, d); }
    double vectorBodyScale() const { return Ask(&SDisplayState::dVectorBodyScale); }

    // The second copy.
    void setExtended(bool b) { Put(&SDisplayState::bExtended, b); }
    bool isExtended() const { return Ask(&SDisplayState::bExtended); }

private:
    template <class T> void Put(T SDisplayState::*member, const std::type_identity_t<T>& value)
    {
        static_cast<Self*>(this)->Change(member, value);
    }
    template <class T> T Ask(T SDisplayState::*member) const
    {
        return static_cast<const Self*>(this)->Value(member);
    }
};
