#include "view/render/axestriad.h"

namespace {

constexpr int AXES_SHARE = 15;
constexpr double CORNER_GAP = 10.0;
constexpr double LABEL_GAP = 10.0;

} // namespace

int AxesLength(const QSize& viewport) { return std::min(viewport.width(), viewport.height()) / AXES_SHARE; }

SAxesTriad MakeAxes(const QPointF& origin, const QSize& viewport, const DMatrix4x4& view)
{
    const double s = AxesLength(viewport);
    SAxesTriad triad{origin, {}};
    for (int nAxis = 0; nAxis < 3; ++nAxis) {
        const DVector3D column{view(0, nAxis), view(1, nAxis), view(2, nAxis)};
        const double dLength = Length(column);
        const QPointF direction = dLength > 0.0 ? QPointF(column.x, -column.y) / dLength : QPointF();
        triad.axes[nAxis] = {origin + s * direction, origin + (s + LABEL_GAP) * direction};
    }
    return triad;
}

SAxesTriad MakeCornerAxes(const QSize& viewport, const DMatrix4x4& view, double dScale)
{
    const double dFromCorner = AxesLength(viewport) + CORNER_GAP * dScale;
    return MakeAxes({dFromCorner, viewport.height() - dFromCorner}, viewport, view);
}
