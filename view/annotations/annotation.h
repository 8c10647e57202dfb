#pragma once

#include <QBrush>
#include <QByteArray>
#include <QJsonObject>
#include <QPoint>
#include <QRect>

class QPainter;
struct SCanvas;

/**
 * Something painted over the scene of a view, which the pointer can take hold of. Places are pixels of the
 * view without any scale. Main thread only.
 */
class CAnnotation
{
public:
    static constexpr QPoint DEFAULT_POSITION{50, 50};

    virtual ~CAnnotation() = default;

    virtual QByteArray toBinary() const;
    /** False for bytes that end early or hold something else; everything stays as it was then. */
    virtual bool fromBinary(const QByteArray& bytes);

    /** Shown at all. */
    virtual bool isVisible() const { return m_state.bVisible; }
    /** Top left of the content. */
    virtual void setPosition(const QPoint& position) { m_state.position = position; }
    virtual QPoint position() const { return m_state.position; }
    /** Top left of the content where it is seen, which may be moved so that it is in the view. */
    virtual QPoint shownPosition() const { return position(); }
    virtual void paint(QPainter*, const SCanvas&) {}
    /** What the pointer can hit. */
    virtual QRect rect() const { return {m_state.position, m_state.size}; }
    /** A double click on it; false if nothing came of it. */
    virtual bool doubleClicked() { return false; }

    /** Whether it is on show and holds the point. */
    virtual bool hitTest(const QPoint& point) const { return isVisible() && rect().contains(point); }

    virtual QJsonObject toJson() const;
    /** What the object doesn't name stays as it is. */
    virtual void fromJson(const QJsonObject& object);

    void setVisible(bool bVisible) { m_state.bVisible = bVisible; }
    /** The pointer is over it, or drags it. */
    void setHot(bool bHot) { m_state.bHot = bHot; }
    bool isHot() const { return m_state.bHot; }
    /** The position nearest to that one in which it lies in a view of that size, or at its upper left. */
    QPoint inside(const QPoint& position, const QSize& view) const;
    /** The frame is filled with the brush. */
    void setBackgroundSolid(bool bSolid) { m_state.bSolid = bSolid; }
    bool isBackgroundSolid() const { return m_state.bSolid; }
    /** The frame is drawn as lines in the brush's colour. */
    void setBackgroundOutline(bool bOutline) { m_state.bOutline = bOutline; }
    bool isBackgroundOutline() const { return m_state.bOutline; }
    void setBrush(const QBrush& brush) { m_state.brush = brush; }
    QBrush brush() const { return m_state.brush; }
    QSize size() const { return m_state.size; }

protected:
    void setSize(const QSize& size) { m_state.size = size; }

private:
    struct SState
    {
        bool bVisible = false;
        bool bHot = false;
        bool bSolid = false;
        bool bOutline = false;
        QBrush brush{Qt::white};
        QPoint position = DEFAULT_POSITION;
        QSize size{0, 0};
        bool bKeep = true; // stored and restored only
    };
    SState m_state;
};
