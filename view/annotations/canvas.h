#pragma once

#include <QBrush>
#include <QColor>
#include <QFont>
#include <QRectF>
#include <QSize>

/** What is painted on over the scene of a view. Places are pixels of the view without any scale. */
struct SCanvas
{
    QSize size;
    double dScale = 1.0; ///< device pixels of the picture for each pixel of the view: 1, or more in a capture
    QBrush background = {}; ///< behind the scene, spread over the size; what it leaves out counts as white
    bool bMarks = true;     ///< what the pointer is over is framed

    /** What a text takes at a place: its own colour or, if that is invalid, the automatic one there. */
    QColor TextColor(const QColor& color, const QRectF& place) const;
};

/** Black or white: what stands out more from the background. */
QColor ColorToReadOn(const QColor& background);

/** The application's font for texts over the scene: large enough to be read, at any scaling of a display. */
QFont OverlayFont();

/** The font for a picture that is so many times as large. */
QFont Scaled(QFont font, double dScale);
