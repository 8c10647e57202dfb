#pragma once

#include "frame/novalue.h"
#include "scene/idrawable.h"

#include <type_traits>

/**
 * Several drawables as one: a setter sets all, a getter gives their common value. Where they differ, or where
 * there are none, that is -1 for integers, false for flags, NO_VALUE for reals and an invalid colour. Nothing
 * is kept here but the list.
 */
class CDrawableGroup
{
public:
    const QVector<IDrawable*>& drawables() const { return m_drawables; }

    /** A value of IDrawable::displayType, or -1. */
    int displayType() const
    {
        return Common([](const IDrawable& drawable) { return int(drawable.displayType()); }, -1);
    }
    void setDisplayType(DisplayType_e eType) { SetAll(&IDrawable::setDisplayType, eType); }

    // Visibility and what is drawn.
    void setNodeVisible(bool bValue) { SetAll(&IDrawable::setNodeVisible, bValue); }
    bool nodeVisible() const { return Common(&IDrawable::nodeVisible, bool(false)); }
    void setDisplayOnNodes(bool bValue) { SetAll(&IDrawable::setDisplayOnNodes, bValue); }
    bool displayOnNodes() const { return Common(&IDrawable::displayOnNodes, bool(false)); }
    void setShowHoles(bool bValue) { SetAll(&IDrawable::setShowHoles, bValue); }
    bool showHoles() const { return Common(&IDrawable::showHoles, bool(false)); }
    void setDrawContours(bool bValue) { SetAll(&IDrawable::setDrawContours, bValue); }
    bool drawContours() const { return Common(&IDrawable::drawContours, bool(false)); }
    void setContourCount(qint64 nValue) { SetAll(&IDrawable::setContourCount, nValue); }
    qint64 contourCount() const { return Common(&IDrawable::contourCount, qint64(-1)); }

    // Colours.
    void setGeometricColor(bool bValue) { SetAll(&IDrawable::setGeometricColor, bValue); }
    bool geometricColor() const { return Common(&IDrawable::geometricColor, bool(false)); }
    void setShadeColor(const QColor& value) { SetAll(&IDrawable::setShadeColor, value); }
    QColor shadeColor() const { return Common(&IDrawable::shadeColor, QColor()); }
    void setWireframeColor(const QColor& value) { SetAll(&IDrawable::setWireframeColor, value); }
    QColor wireframeColor() const { return Common(&IDrawable::wireframeColor, QColor()); }
    void setLineThickness(double dValue) { SetAll(&IDrawable::setLineThickness, dValue); }
    double lineThickness() const { return Common(&IDrawable::lineThickness, double(NO_VALUE)); }
    void setAlphaValue(double dValue) { SetAll(&IDrawable::setAlphaValue, dValue); }
    double alphaValue() const { return Common(&IDrawable::alphaValue, double(NO_VALUE)); }

    // Variables.
    void setScalarVariable(qint64 nValue) { SetAll(&IDrawable::setScalarVariable, nValue); }
    qint64 scalarVariable() const { return Common(&IDrawable::scalarVariable, qint64(-1)); }
    void setVectorVariable(qint64 nValue) { SetAll(&IDrawable::setVectorVariable, nValue); }
    qint64 vectorVariable() const { return Common(&IDrawable::vectorVariable, qint64(-1)); }
    void setThresholdVariable(qint64 nValue) { SetAll(&IDrawable::setThresholdVariable, nValue); }
    qint64 thresholdVariable() const { return Common(&IDrawable::thresholdVariable, qint64(-1)); }
    void setThresholdEnable(bool bValue) { SetAll(&IDrawable::setThresholdEnable, bValue); }
    bool thresholdEnable() const { return Common(&IDrawable::thresholdEnable, bool(false)); }
    void setThresholdRange(const QPointF& value) { SetAll(&IDrawable::setThresholdRange, value); }
    QPointF thresholdRange() const { return Common(&IDrawable::thresholdRange, QPointF(1.0, 0.0)); }

    // Vectors.
    void setVectorPlane(qint64 nValue) { SetAll(&IDrawable::setVectorPlane, nValue); }
    qint64 vectorPlane() const { return Common(&IDrawable::vectorPlane, qint64(-1)); }
    void setVectorSkip(qint64 nValue) { SetAll(&IDrawable::setVectorSkip, nValue); }
    qint64 vectorSkip() const { return Common(&IDrawable::vectorSkip, qint64(-1)); }
    void setVectorHeadScale(double dValue) { SetAll(&IDrawable::setVectorHeadScale, dValue); }
    double vectorHeadScale() const { return Common(&IDrawable::vectorHeadScale, double(NO_VALUE)); }
    void setVectorBodyScale(double dValue) { SetAll(&IDrawable::setVectorBodyScale, dValue); }
    double vectorBodyScale() const { return Common(&IDrawable::vectorBodyScale, double(NO_VALUE)); }

    // The second copy.
    void setExtended(bool bValue) { SetAll(&IDrawable::setExtended, bValue); }
    bool isExtended() const { return Common(&IDrawable::isExtended, bool(false)); }
    void setExtensionMatrix(const QMatrix4x4& value) { SetAll(&IDrawable::setExtensionMatrix, value); }
    QMatrix4x4 extensionMatrix() const { return Common(&IDrawable::extensionMatrix, QMatrix4x4()); }

    // The colormap.
    void setColormap(const SColormapRecord& value) { SetAll(&IDrawable::setColormap, value); }
    SColormapRecord colormap() const { return Common(&IDrawable::colormap, SColormapRecord()); }
    void setColormapType(qint32 nValue) { SetAll(&IDrawable::setColormapType, nValue); }
    qint32 colormapType() const { return Common(&IDrawable::colormapType, qint32(-1)); }
    void setColormapBindToLocal(bool bValue) { SetAll(&IDrawable::setColormapBindToLocal, bValue); }
    bool colormapBindToLocal() const { return Common(&IDrawable::colormapBindToLocal, bool(false)); }
    void setColormapValues(double dMinimum, double dMaximum)
    {
        for (IDrawable* const pDrawable : m_drawables)
            pDrawable->setColormapValues(dMinimum, dMaximum);
    }
    void saveColormap()
    {
        for (IDrawable* const pDrawable : m_drawables)
            pDrawable->saveColormap();
    }
    void restoreColormap()
    {
        for (IDrawable* const pDrawable : m_drawables)
            pDrawable->restoreColormap();
    }
    /** The legend of the first drawable, which stands for all; null without any. */
    CAnnotationColormap* annotationColormap() const
    {
        return m_drawables.isEmpty() ? nullptr : m_drawables.first()->annotationColormap();
    }
    /** Least and greatest value of the scalar over all; x > y without any. */
    QPointF scalarRange() const;
    /** Where they are. */
    SPickedPoint minimumRecord() const;
    SPickedPoint maximumRecord() const;

protected:
    QVector<IDrawable*> m_drawables; // owned by the derived class

private:
    template <class Setter, class Value> void SetAll(Setter setter, const Value& value)
    {
        for (IDrawable* const pDrawable : m_drawables)
            (pDrawable->*setter)(value);
    }
    template <class Getter, class Value> Value Common(Getter getter, const Value& mixed) const
    {
        if (m_drawables.isEmpty())
            return mixed;
        const Value first = std::invoke(getter, *m_drawables.first());
        for (const IDrawable* const pDrawable : m_drawables)
            if (!(std::invoke(getter, *pDrawable) == first))
                return mixed;
        return first;
    }
};
