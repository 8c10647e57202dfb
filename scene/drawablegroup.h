#pragma once

#include "frame/novalue.h"
#include "scene/idrawable.h"

#include <type_traits>

/**
 * Several drawables as one: a setter sets all, a getter gives their common value. Where they differ, or where
 * there are none, that is -1 for integers, false for flags, NO_VALUE for reals, an invalid colour and an
 * empty range. Nothing is kept here but the list.
 */
class CDrawableGroup : public CDisplayNames<CDrawableGroup>
{
public:
    const QVector<IDrawable*>& drawables() const { return m_drawables; }

    template <class T> void Change(T SDisplayState::*member, const std::type_identity_t<T>& value)
    {
        for (IDrawable* const pDrawable : m_drawables)
            pDrawable->Change(member, value);
    }
    /** The value that all have; mixed where they differ, or where there are none. */
    template <class T> T Common(T SDisplayState::*member, const std::type_identity_t<T>& mixed) const
    {
        return CommonOf([=](const IDrawable& drawable) { return drawable.Value(member); }, mixed);
    }
    template <class T> T Value(T SDisplayState::*member) const { return Common(member, Mixed(T())); }

    /** A value of IDrawable::displayType, or -1. */
    int displayType() const { return int(Value(&SDisplayState::nDisplayType)); }
    void setDisplayType(DisplayType_e eType) { SetAll(&IDrawable::setDisplayType, eType); }
    bool drawContours() const { return CommonOf(&IDrawable::drawContours, false); }
    void setVectorVariable(qint64 nId) { SetAll(&IDrawable::setVectorVariable, nId); }
    void setExtensionMatrix(const QMatrix4x4& matrix) { SetAll(&IDrawable::setExtensionMatrix, matrix); }
    QMatrix4x4 extensionMatrix() const { return CommonOf(&IDrawable::extensionMatrix, QMatrix4x4()); }

    // The colormap.
    void setColormap(const SColormapRecord& record) { SetAll(&IDrawable::setColormap, record); }
    SColormapRecord colormap() const { return CommonOf(&IDrawable::colormap, SColormapRecord()); }
    void setColormapType(qint32 nId) { SetAll(&IDrawable::setColormapType, nId); }
    qint32 colormapType() const { return CommonOf(&IDrawable::colormapType, qint32(-1)); }
    void setColormapValues(double dMinimum, double dMaximum)
    {
        SetAll(&IDrawable::setColormapValues, dMinimum, dMaximum);
    }
    void saveColormap() { SetAll(&IDrawable::saveColormap); }
    void restoreColormap() { SetAll(&IDrawable::restoreColormap); }
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
    template <class Setter, class... Values> void SetAll(Setter setter, const Values&... values)
    {
        for (IDrawable* const pDrawable : m_drawables)
            (pDrawable->*setter)(values...);
    }
    template <class Getter, class T> T CommonOf(Getter getter, const T& mixed) const
    {
        if (m_drawables.isEmpty())
            return mixed;
        const T first = std::invoke(getter, *m_drawables.first());
        for (const IDrawable* const pDrawable : m_drawables)
            if (!(std::invoke(getter, *pDrawable) == first))
                return mixed;
        return first;
    }
    static bool Mixed(bool) { return false; }
    static qint64 Mixed(qint64) { return -1; }
    static double Mixed(double) { return NO_VALUE; }
    static QColor Mixed(const QColor&) { return {}; }
    static QPointF Mixed(const QPointF&) { return {1.0, 0.0}; }
};
