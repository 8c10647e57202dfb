#include "view/camera/cameramath.h"

#include <cmath>
#include <numbers>

namespace {

constexpr double PAN_SHARE = 0.1;
constexpr double LARGEST_STEP = 0.45;      // of a zoom; half the box and more would turn it inside out
constexpr int SMALLEST_BAND = 4;           // [pixels]
constexpr double LEAST_SHARE = 1e-13;      // of its coordinates that a box must span
constexpr double DEPTH_MARGIN = 0.01;      // of the depth, on either side
constexpr double FLAT_DEPTH = 1e-3;        // of the width, where there is no depth
constexpr double COORDINATE_MARGIN = 1e-6; // of the distance, against rounding on the GPU

/** Cosine and sine of degrees; exact for quarter turns. */
std::pair<double, double> CosSin(double dAngle)
{
    const double dQuarters = dAngle / 90.0;
    if (dQuarters == std::floor(dQuarters)) {
        static constexpr double COSINES[] = {1.0, 0.0, -1.0, 0.0};
        const int n = int(dQuarters - 4.0 * std::floor(dQuarters / 4.0));
        return {COSINES[n], COSINES[(n + 3) % 4]};
    }
    const double dRadians = dAngle * std::numbers::pi / 180.0;
    return {std::cos(dRadians), std::sin(dRadians)};
}

/** The turn about a unit axis through the origin. */
DMatrix4x4 Turn(const DVector3D& u, double dAngle)
{
    const auto [c, s] = CosSin(dAngle);
    const DVector3D crossed[] = {{0.0, -u.z, u.y}, {u.z, 0.0, -u.x}, {-u.y, u.x, 0.0}};
    DMatrix4x4 turn;
    for (int nRow = 0; nRow < 3; ++nRow)
        for (int nColumn = 0; nColumn < 3; ++nColumn)
            turn(nRow, nColumn) =
                (nRow == nColumn ? c : 0.0) + s * crossed[nRow][nColumn] + (1.0 - c) * u[nRow] * u[nColumn];
    return turn;
}

DVector3D UnitVector(int nAxis, double dLength)
{
    DVector3D v;
    v[nAxis] = dLength;
    return v;
}

} // namespace

QMatrix4x4 COrthoCamera::FloatView() const { return STransform(m_view).FloatMatrix(); }

DVector3D COrthoCamera::ViewRow(int nRow) const
{
    return {m_view(nRow, 0), m_view(nRow, 1), m_view(nRow, 2)};
}

QMatrix4x4 COrthoCamera::Ortho(double dNear, double dFar) const
{
    // From doubles: the sides of a box that is small and far off are equal as floats.
    const double w = m_box.Width(), h = m_box.Height(), d = dFar - dNear;
    return {float(2.0 / w),
            0.0F,
            0.0F,
            float(-(m_box.dRight + m_box.dLeft) / w),
            0.0F,
            float(2.0 / h),
            0.0F,
            float(-(m_box.dTop + m_box.dBottom) / h),
            0.0F,
            0.0F,
            float(-2.0 / d),
            float(-(dFar + dNear) / d),
            0.0F,
            0.0F,
            0.0F,
            1.0F};
}

QMatrix4x4 COrthoCamera::Projection() const { return Ortho(m_box.dNear, m_box.dFar); }

QMatrix4x4 COrthoCamera::DrawProjection(const SViewBounds& shown) const
{
    const double dDepth = shown.maximum.z - shown.minimum.z;
    if (shown.IsEmpty() || !std::isfinite(dDepth))
        return Projection();
    const double dMargin = DEPTH_MARGIN * dDepth + FLAT_DEPTH * std::max(m_box.Width(), m_box.Height()) +
                           COORDINATE_MARGIN * std::max(std::abs(shown.minimum.z), std::abs(shown.maximum.z));
    return Ortho(-shown.maximum.z - dMargin, -shown.minimum.z + dMargin); // sight is along -z
}

bool COrthoCamera::SetSides(double dLeft, double dRight, double dTop, double dBottom)
{
    const auto spans = [](double dLow, double dHigh) {
        return std::isfinite(dHigh - dLow) &&
               dHigh - dLow > LEAST_SHARE * std::max(std::abs(dLow), std::abs(dHigh));
    };
    if (!spans(dLeft, dRight) || !spans(dBottom, dTop))
        return false;
    m_box.dLeft = dLeft;
    m_box.dRight = dRight;
    m_box.dTop = dTop;
    m_box.dBottom = dBottom;
    return true;
}

bool COrthoCamera::SetBox(const DVector3D& centre, double dWidth, double dHeight)
{
    return SetSides(centre.x - 0.5 * dWidth, centre.x + 0.5 * dWidth, centre.y + 0.5 * dHeight,
                    centre.y - 0.5 * dHeight);
}

bool COrthoCamera::SetView(const QMatrix4x4& view)
{
    const DMatrix4x4 matrix = DMatrix4x4::FromFloat(view);
    if (!std::all_of(matrix.d.begin(), matrix.d.end(), [](double d) { return std::isfinite(d); }))
        return false;
    m_view = matrix;
    return true;
}

void COrthoCamera::Resize(const QSize& size)
{
    if (size.width() <= 0 || size.height() <= 0)
        return;
    const int nLarger = std::max(size.width(), size.height());
    const QSize former = HasViewport() ? m_viewport : QSize(nLarger, nLarger);
    m_viewport = size;
    if (m_deferred) {
        Take(m_deferred->camera, m_deferred->nFit);
        m_deferred.reset();
        return;
    }
    SetBox(m_box.Centre(), m_box.Width() * size.width() / former.width(),
           m_box.Height() * size.height() / former.height());
}

SPickPoint COrthoCamera::ToWorld(const QPointF& pixel) const
{
    Q_ASSERT(HasViewport());
    return {m_box.dLeft + pixel.x() / m_viewport.width() * m_box.Width(),
            m_box.dTop - pixel.y() / m_viewport.height() * m_box.Height()};
}

QPointF COrthoCamera::ToPixel(const DVector3D& world) const
{
    Q_ASSERT(HasViewport());
    const SPickPoint p = PickGeometry::Project(m_view, world);
    return {(p.x - m_box.dLeft) / m_box.Width() * m_viewport.width(),
            (m_box.dTop - p.y) / m_box.Height() * m_viewport.height()};
}

SPickRect COrthoCamera::PickRect(const QPoint& cursor, qint64 nRadius) const
{
    const QPointF reach = QPointF(1.0, 1.0) * double(nRadius);
    const SPickPoint upperLeft = ToWorld(cursor - reach);
    const SPickPoint lowerRight = ToWorld(cursor + reach);
    return {upperLeft.x, lowerRight.y, lowerRight.x, upperLeft.y};
}

SPickRect COrthoCamera::ToRect(const QRect& pixels) const
{
    const QRect band = pixels.normalized();
    const SPickPoint upperLeft = ToWorld(band.topLeft());
    const SPickPoint lowerRight = ToWorld(QPointF(band.x() + band.width(), band.y() + band.height()));
    return {upperLeft.x, lowerRight.y, lowerRight.x, upperLeft.y};
}

void COrthoCamera::Pan(double dX, double dY, double dSensitivity)
{
    const double dRight = dX * dSensitivity * m_box.Width() * PAN_SHARE;
    const double dDown = dY * dSensitivity * m_box.Height() * PAN_SHARE;
    SetSides(m_box.dLeft - dRight, m_box.dRight - dRight, m_box.dTop + dDown, m_box.dBottom + dDown);
}

void COrthoCamera::Zoom(double dStep, double dX, double dY)
{
    const double dShareX = dX == NO_VALUE ? 0.5 : (dX - m_box.dLeft) / m_box.Width();
    const double dShareY = dY == NO_VALUE ? 0.5 : (dY - m_box.dBottom) / m_box.Height();
    const double dOff = 2.0 * std::min(dStep, LARGEST_STEP);
    const double w = m_box.Width() * dOff, h = m_box.Height() * dOff;
    SetSides(m_box.dLeft + w * dShareX, m_box.dRight - w * (1.0 - dShareX), m_box.dTop - h * (1.0 - dShareY),
             m_box.dBottom + h * dShareY);
}

bool COrthoCamera::ZoomBox(const QRect& pixels)
{
    const QRect band = pixels.normalized();
    if (!HasViewport() || band.width() < SMALLEST_BAND || band.height() < SMALLEST_BAND)
        return false;
    const SPickRect rect = ToRect(band.adjusted(0, 0, -1, -1));
    const double dAspect = double(m_viewport.width()) / m_viewport.height();
    const double w = rect.dRight - rect.dLeft, h = rect.dTop - rect.dBottom;
    return SetBox({0.5 * (rect.dLeft + rect.dRight), 0.5 * (rect.dBottom + rect.dTop), 0.0},
                  std::max(w, h * dAspect), std::max(h, w / dAspect));
}

bool COrthoCamera::ZoomToBounds(const SViewBounds& bounds)
{
    if (bounds.IsEmpty())
        return false;
    const DVector3D extent = bounds.maximum - bounds.minimum;
    const double dRatioX = extent.x / m_box.Width(), dRatioY = extent.y / m_box.Height();
    if (!(dRatioX > 0.0 && dRatioY > 0.0))
        return false;
    const double dScale = std::max(dRatioX, dRatioY);
    return SetBox(bounds.Centre(), m_box.Width() * dScale, m_box.Height() * dScale);
}

void COrthoCamera::Rotate(const DVector3D& axis, double dAngle, const DVector3D& point)
{
    const double dLength = Length(axis);
    if (!(dLength > 0.0) || !std::isfinite(dLength) || !std::isfinite(dAngle))
        return;
    m_view = m_view * DMatrix4x4::Translation(point) * Turn(axis / dLength, dAngle) *
             DMatrix4x4::Translation(-point);
}

void COrthoCamera::RotateRow(int nRow, double dAngle, const DVector3D& point)
{
    if (nRow >= 0 && nRow < 3)
        Rotate(ViewRow(nRow), dAngle, point);
}

void COrthoCamera::LookAlong(int nAxis, bool bPositive)
{
    const DVector3D back = UnitVector(nAxis, bPositive ? -1.0 : 1.0);
    const DVector3D up = UnitVector(nAxis == 2 ? 1 : 2, 1.0);
    const DVector3D rows[] = {Cross(up, back), up, back};
    const DVector3D seen = m_view.MapPoint(m_rotationPoint);
    for (int nRow = 0; nRow < 3; ++nRow) {
        for (int n = 0; n < 3; ++n)
            m_view(nRow, n) = rows[nRow][n];
        m_view(nRow, 3) = seen[nRow] - Dot(rows[nRow], m_rotationPoint);
    }
}

CameraFollow_e COrthoCamera::Apply(CameraOperator_e eOperator, const SCameraOperator& values,
                                   double dMouseSensitivity)
{
    switch (eOperator) {
    case CameraSetView:
        SetView(values.view);
        break;
    case CameraPan:
        Pan(values.dX, values.dY, dMouseSensitivity);
        break;
    case CameraRotate:
        Rotate(ViewRow(0) * values.dY + ViewRow(1) * values.dX, values.dScreenAngle, values.rotationPoint);
        break;
    case CameraRotateRow:
        RotateRow(values.nRow, values.dScreenAngle, values.rotationPoint);
        break;
    case CameraZoom:
        Zoom(values.dZoomStep, values.dZoomX, values.dZoomY);
        break;
    case CameraZoomFit:
        return FollowZoomFit;
    case CameraZoomSelection:
        return FollowZoomSelection;
    case CameraZoomBox:
        ZoomBox(values.box);
        break;
    case CameraRotateAxis:
        RotateRow(values.nAxis, values.dAngle, m_rotationPoint);
        break;
    }
    return FollowDone;
}

SCamera COrthoCamera::Camera() const
{
    if (m_deferred)
        return m_deferred->camera;
    SCamera camera;
    camera.projection = Projection();
    camera.view = FloatView();
    camera.rect = HasViewport() ? QRect(QPoint(), m_viewport) : QRect();
    camera.viewCenter = {m_box.Centre().x, m_box.Centre().y};
    camera.viewSize = {m_box.Width(), m_box.Height()};
    camera.rotationPoint = m_rotationPoint;
    return camera;
}

void COrthoCamera::SetCamera(const SCamera& camera, int nFit)
{
    if (HasViewport())
        Take(camera, nFit);
    else
        m_deferred = SDeferred{camera, nFit};
}

void COrthoCamera::Take(const SCamera& camera, int nFit)
{
    SetView(camera.view);
    m_rotationPoint = camera.rotationPoint;
    double w = camera.viewSize.width(), h = camera.viewSize.height();
    const double dAspect = double(m_viewport.width()) / m_viewport.height();
    const bool bKeepsHeight = nFit == FitHeight || (nFit != FitWidth && dAspect > w / h);
    (bKeepsHeight ? w : h) = bKeepsHeight ? h * dAspect : w / dAspect;
    SetBox({camera.viewCenter.x(), camera.viewCenter.y(), 0.0}, w, h);
}
