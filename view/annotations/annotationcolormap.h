#pragma once

#include "view/annotations/annotation.h"
#include "view/annotations/legendlayout.h"

#include <optional>

class IDrawable;

/**
 * The legend of a drawable: title, subtitle, colour bar and numbers beside it. It knows its drawable by
 * serial, so one that is gone is no harm; without one, without a scalar and in a constant colour it paints
 * nothing. It is laid out anew when a setting, its place or one of its texts has changed.
 */
class CAnnotationColormap : public CAnnotation
{
public:
    void setDrawableSerial(qint64 nSerial) { m_nSerial = nSerial; }
    qint64 drawableSerial() const { return m_nSerial; }

    const SLegendSettings& settings() const { return m_settings; }
    void setSettings(const SLegendSettings& settings);

    QByteArray toBinary() const override;
    /** A serial that is set stays: stored ones are of another session. */
    bool fromBinary(const QByteArray& bytes) override;
    QJsonObject toJson() const override;
    void fromJson(const QJsonObject& object) override;

    void setPosition(const QPoint& position) override;
    QPoint shownPosition() const override { return m_shownPosition; }
    void paint(QPainter* pPainter, const SCanvas& canvas) override;
    /** The frame as it was last laid out. */
    QRect rect() const override { return m_layout.frame; }
    bool hitTest(const QPoint& point) const override;
    /** Makes the item the only selected one and lets the user edit its colormap. */
    bool doubleClicked() override;

    /** It is visible and has something to say. */
    bool isShown() const { return ShownDrawable(); }
    /** Lays it out if that is due; nothing without a drawable. */
    void updateLayout();
    /** Moves what is seen of it; its position stays. */
    void showAt(const QPoint& position);
    /** Where nobody has moved it from the usual place: one that was free; nothing: none was looked for. */
    void setFreePlace(const std::optional<QPoint>& place) { m_freePlace = place; }
    /** Where it is to stand, inside of a view or not; nothing if a free place has to be found. */
    std::optional<QPoint> wantedPosition() const
    {
        return position() == DEFAULT_POSITION ? m_freePlace : position();
    }
    /** Looks like the other one, is visible as it is and stands where it stands. */
    void takeLook(const CAnnotationColormap& other);
    /** As before the first frame, and with no pointer over it. */
    void forgetLayout();
    const SLegendLayout& layout() const { return m_layout; }
    /** The texts in force as of the last layout. */
    const SLegendContent& content() const { return m_content; }

private:
    /** The drawable that it can be painted for, or null. */
    const IDrawable* ShownDrawable() const;
    void UpdateLayout(const IDrawable& drawable);

    qint64 m_nSerial = -1;
    SLegendSettings m_settings;
    bool m_bDirty = true;
    SLegendContent m_content;
    SLegendLayout m_layout; // at the shown position
    QPoint m_shownPosition = DEFAULT_POSITION;
    std::optional<QPoint> m_freePlace; // not stored: a view that opens finds one anew
};
