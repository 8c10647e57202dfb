#include "view/annotations/legendplaces.h"

#include "scene/idrawable.h"
#include "view/annotations/annotationcolormap.h"

namespace {

constexpr int GAP = 10; // between legends [pixels]

/** The legends that stand somewhere. */
using Legends = QVector<CAnnotationColormap*>;

const CAnnotationColormap* FindOverlapped(const Legends& legends, const QRect& frame)
{
    const auto overlaps = [&frame](const CAnnotationColormap* p) { return p->rect().intersects(frame); };
    const auto found = std::find_if(legends.begin(), legends.end(), overlaps);
    return found == legends.end() ? nullptr : *found;
}

/** Goes along rows from the usual place; that place again if all are taken. */
QPoint FirstFreePlace(const CAnnotationColormap& legend, const Legends& placed, const QSize& view)
{
    const QPoint start = CAnnotation::DEFAULT_POSITION;
    const QRect first = legend.rect().translated(start - legend.shownPosition());
    QRect frame = first;
    int nRowEnd = first.bottom(); // of what stands in the row
    while (const CAnnotationColormap* const pOther = FindOverlapped(placed, frame)) {
        nRowEnd = std::max(nRowEnd, pOther->rect().bottom());
        frame.moveLeft(pOther->rect().right() + GAP);
        if (frame.right() < view.width())
            continue;
        frame.moveTopLeft({first.left(), nRowEnd + GAP});
        if (frame.bottom() >= view.height())
            return start;
    }
    return start + frame.topLeft() - first.topLeft();
}

} // namespace

void PlaceLegends(const QVector<IDrawable*>& drawables, const QSize& view)
{
    Legends placed, waiting;
    for (const IDrawable* const pDrawable : drawables) {
        CAnnotationColormap& legend = *pDrawable->annotationColormap();
        if (!pDrawable->isVisible() || !legend.isShown()) {
            legend.setFreePlace({});
            continue;
        }
        legend.updateLayout();
        const std::optional<QPoint> place = legend.wantedPosition();
        if (place)
            legend.showAt(legend.inside(*place, view));
        (place ? placed : waiting).append(&legend);
    }
    for (CAnnotationColormap* const pLegend : waiting) {
        pLegend->setFreePlace(FirstFreePlace(*pLegend, placed, view));
        pLegend->showAt(pLegend->inside(*pLegend->wantedPosition(), view));
        placed.append(pLegend);
    }
}
