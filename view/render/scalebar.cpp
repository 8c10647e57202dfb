#include "view/render/scalebar.h"

#include "view/render/axestriad.h"

#include <cmath>

namespace {

constexpr double BOTTOM_GAP = 10.0; // between the bar and the height of the axes [pixels]
constexpr double LABEL_GAP = 2.0;

double MarkSpacing(double dHalfWidth)
{
    double p = 1.0;
    while (10.0 * p < dHalfWidth)
        p *= 10.0;
    while (p > dHalfWidth)
        p /= 10.0;
    return p;
}

} // namespace

SScaleBar MakeScaleBar(const QSize& viewport, double dBoxWidth)
{
    SScaleBar bar;
    const double v = 0.5 * dBoxWidth;
    if (!(v > 0.0) || !std::isfinite(v))
        return bar;
    const double p = MarkSpacing(v);
    const int n = std::max(int(std::ceil(v / p)), 2);
    bar.dY = viewport.height() - AxesLength(viewport) - BOTTOM_GAP;
    bar.dLabelY = bar.dY - LABEL_GAP;
    for (int i = 0; i < n; ++i)
        bar.marks.append(
            {0.25 * viewport.width() + i * p / v * 0.5 * viewport.width(), QString::number(i * p, 'g', 6)});
    return bar;
}
