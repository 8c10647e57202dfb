// CMultipleHandleSlider: where its parts stand and how they look. All colours are of the palette.
#include "frame/ui/sliders/multiplehandleslider.h"

#include <QPainter>
#include <QPainterPath>

namespace {

// [pixels]
constexpr double HANDLE_WIDTH = 11.0;
constexpr double HANDLE_HEIGHT = 18.0;
constexpr double GROOVE_HEIGHT = 4.0;
constexpr double CORNER = 3.0;
constexpr int MARGIN = 3; // room for the ring of the focus

QColor Mixed(const QColor& a, const QColor& b)
{
    return {(a.red() + b.red()) / 2, (a.green() + b.green()) / 2, (a.blue() + b.blue()) / 2};
}

/** The palette's highlight where that stands out from the window, else the colour of links, which does. */
QColor Accent(const QPalette& palette)
{
    constexpr int LEAST_CONTRAST = 60; // of the lightness
    const QColor highlight = palette.color(QPalette::Active, QPalette::Highlight);
    const QColor window = palette.color(QPalette::Active, QPalette::Window);
    return std::abs(highlight.lightness() - window.lightness()) < LEAST_CONTRAST
               ? palette.color(QPalette::Active, QPalette::Link)
               : highlight;
}

} // namespace

QSize CMultipleHandleSlider::sizeHint() const { return {160, int(HANDLE_HEIGHT) + 2 * MARGIN}; }

QSize CMultipleHandleSlider::minimumSizeHint() const
{
    return {int(HANDLE_WIDTH) * std::max(2, 2 * GetHandleCount()) + 2 * MARGIN, sizeHint().height()};
}

QRectF CMultipleHandleSlider::GrooveRect() const
{
    const double dSide = MARGIN + HANDLE_WIDTH / 2.0;
    return {dSide, (height() - GROOVE_HEIGHT) / 2.0, std::max(1.0, width() - 2.0 * dSide), GROOVE_HEIGHT};
}

double CMultipleHandleSlider::PlaceOf(double dValue) const
{
    const QRectF groove = GrooveRect();
    const double dRange = m_dMaximum - m_dMinimum;
    return groove.left() + (dRange > 0.0 ? (dValue - m_dMinimum) / dRange * groove.width() : 0.0);
}

double CMultipleHandleSlider::ValueAt(double dX) const
{
    const QRectF groove = GrooveRect();
    const double dShare = std::clamp((dX - groove.left()) / groove.width(), 0.0, 1.0);
    return m_dMinimum + dShare * (m_dMaximum - m_dMinimum);
}

QPoint CMultipleHandleSlider::GetHandlePoint(int nHandle) const
{
    return {qRound(PlaceOf(m_handles[nHandle].GetValue())), height() / 2};
}

/** The ends of a range point outwards at the top, so that two at one place can be told apart. */
QPainterPath CMultipleHandleSlider::HandlePath(int nHandle) const
{
    const CSliderHandle& handle = m_handles[nHandle];
    const QRectF box(PlaceOf(handle.GetValue()) - HANDLE_WIDTH / 2.0, (height() - HANDLE_HEIGHT) / 2.0,
                     HANDLE_WIDTH, HANDLE_HEIGHT);
    QPainterPath path;
    if (handle.GetShape() == HandleBlock) {
        path.addRoundedRect(box, CORNER, CORNER);
        return path;
    }
    const bool bLeft = handle.GetShape() == HandleLeftEnd;
    const double dStraight = bLeft ? box.right() : box.left();
    const double dPointed = bLeft ? box.left() : box.right();
    path.addPolygon(QPolygonF({{dStraight, box.top()},
                               {dStraight, box.bottom()},
                               {box.center().x(), box.bottom()},
                               {dPointed, box.center().y()},
                               {box.center().x(), box.top()},
                               {dStraight, box.top()}}));
    return path;
}

void CMultipleHandleSlider::PaintHandle(QPainter& painter, int nHandle) const
{
    const QPalette::ColorGroup eGroup = isEnabled() ? QPalette::Active : QPalette::Disabled;
    const auto Color = [&](QPalette::ColorRole eRole) { return palette().color(eGroup, eRole); };
    const bool bFocus = hasFocus() && nHandle == m_nActive;
    const bool bLit = isEnabled() && (nHandle == m_nHovered || nHandle == m_nDragged);
    const QPainterPath path = HandlePath(nHandle);
    if (bFocus) {
        painter.setPen(QPen(Accent(palette()), 2.0 * MARGIN, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
        painter.setBrush(Qt::NoBrush);
        painter.drawPath(path);
    }
    painter.setPen(QPen(bLit ? Accent(palette()) : Color(QPalette::WindowText), bLit ? 1.6 : 1.0));
    painter.setBrush(Color(QPalette::Button));
    painter.drawPath(path);
}

void CMultipleHandleSlider::paintEvent(QPaintEvent*)
{
    const QPalette::ColorGroup eGroup = isEnabled() ? QPalette::Active : QPalette::Disabled;
    const QColor window = palette().color(eGroup, QPalette::Window);
    const QColor text = palette().color(eGroup, QPalette::WindowText);
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const QRectF groove = GrooveRect();
    painter.setPen(Qt::NoPen);
    painter.setBrush(Mixed(window, Mixed(window, text)));
    painter.drawRoundedRect(groove, GROOVE_HEIGHT / 2.0, GROOVE_HEIGHT / 2.0);
    if (m_handles.isEmpty())
        return;
    const double dFrom = m_handles.size() == 1 ? groove.left() : PlaceOf(m_handles.first().GetValue());
    const QRectF span(QPointF(dFrom, groove.top()),
                      QPointF(PlaceOf(m_handles.last().GetValue()), groove.bottom()));
    painter.setBrush(isEnabled() ? Accent(palette()) : Mixed(window, text));
    painter.drawRoundedRect(span, GROOVE_HEIGHT / 2.0, GROOVE_HEIGHT / 2.0);
    for (int n = 0; n < m_handles.size(); ++n)
        PaintHandle(painter, n);
}
