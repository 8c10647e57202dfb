#include "view/annotations/annotation.h"

#include "frame/packs/bytestream.h"

#include <QDataStream>

namespace {
constexpr char VISIBLE[] = "visible", SOLID[] = "backgroundSolid", OUTLINE[] = "backgroundOutline",
               COLOR[] = "backgroundColor", X[] = "x", Y[] = "y";

/** No gradient and no picture, which a stream would read without a look at what is left. */
bool HasPlainBrush(const QByteArray& bytes)
{
    constexpr int STYLE = 4; // behind four flags
    return bytes.size() > STYLE && uchar(bytes[STYLE]) <= Qt::DiagCrossPattern;
}
} // namespace

QPoint CAnnotation::inside(const QPoint& position, const QSize& view) const
{
    const QRect frame = rect().translated(position - shownPosition());
    const auto shift = [](int nFirst, int nLast, int nSize) {
        return std::max(std::min(nSize - 1 - nLast, 0), -nFirst);
    };
    return position + QPoint(shift(frame.left(), frame.right(), view.width()),
                             shift(frame.top(), frame.bottom(), view.height()));
}

QByteArray CAnnotation::toBinary() const
{
    QByteArray bytes;
    QDataStream stream(&bytes, QIODevice::WriteOnly);
    PrepareStream(stream);
    stream << m_state.bVisible << m_state.bHot << m_state.bSolid << m_state.bOutline << m_state.brush
           << m_state.position << m_state.size << m_state.bKeep;
    return bytes;
}

bool CAnnotation::fromBinary(const QByteArray& bytes)
{
    if (!HasPlainBrush(bytes))
        return false;
    QDataStream stream(bytes);
    PrepareStream(stream);
    SState state;
    stream >> state.bVisible >> state.bHot >> state.bSolid >> state.bOutline >> state.brush >>
        state.position >> state.size >> state.bKeep;
    if (stream.status() != QDataStream::Ok)
        return false;
    state.bHot = false; // no pointer is over what has just been read
    m_state = state;
    return true;
}

QJsonObject CAnnotation::toJson() const
{
    return {{VISIBLE, m_state.bVisible}, {SOLID, m_state.bSolid},
            {OUTLINE, m_state.bOutline}, {COLOR, m_state.brush.color().name(QColor::HexArgb)},
            {X, m_state.position.x()},   {Y, m_state.position.y()}};
}

void CAnnotation::fromJson(const QJsonObject& object)
{
    m_state.bVisible = object[VISIBLE].toBool(m_state.bVisible);
    m_state.bSolid = object[SOLID].toBool(m_state.bSolid);
    m_state.bOutline = object[OUTLINE].toBool(m_state.bOutline);
    if (const QColor color(object[COLOR].toString()); color.isValid())
        m_state.brush = QBrush(color);
    setPosition({object[X].toInt(position().x()), object[Y].toInt(position().y())});
}
