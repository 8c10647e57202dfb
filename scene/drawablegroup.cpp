#include "scene/drawablegroup.h"

namespace {

/** The record that goes ahead of all others; one without a point never does. */
template <class Before>
SPickedPoint Extreme(const QVector<IDrawable*>& drawables, SPickedPoint (IDrawable::*record)() const,
                     Before isBefore)
{
    SPickedPoint extreme;
    for (const IDrawable* const pDrawable : drawables) {
        const SPickedPoint point = (pDrawable->*record)();
        if (point.bHasPoint && (!extreme.bHasPoint || isBefore(point.dValue, extreme.dValue)))
            extreme = point;
    }
    return extreme;
}

} // namespace

QPointF CDrawableGroup::scalarRange() const
{
    QPointF range(std::numeric_limits<double>::max(), std::numeric_limits<double>::lowest());
    for (const IDrawable* const pDrawable : m_drawables) {
        const QPointF own = pDrawable->scalarRange();
        range.setX(std::min(range.x(), own.x()));
        range.setY(std::max(range.y(), own.y()));
    }
    return range;
}

SPickedPoint CDrawableGroup::minimumRecord() const
{
    return Extreme(m_drawables, &IDrawable::minimumRecord, std::less<double>());
}

SPickedPoint CDrawableGroup::maximumRecord() const
{
    return Extreme(m_drawables, &IDrawable::maximumRecord, std::greater<double>());
}
