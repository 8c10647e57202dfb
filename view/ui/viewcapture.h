#pragma once

#include "frame/capture.h"

#include <QBrush>
#include <QImage>

#include <optional>

class COpenGLDrawer;

/** The picture for a file that a view is drawing, if it is; what it is drawn with otherwise. */
class CViewCapture
{
public:
    /** See COpenGLDrawer::renderToImage. */
    QImage Take(COpenGLDrawer& drawer, double dScale, const SCaptureParts& parts);

    bool IsOn() const { return m_parts.has_value(); }
    /** Null while there is none. */
    const SCaptureParts* Parts() const { return m_parts ? &*m_parts : nullptr; }
    /** Device pixels for each pixel of the view. */
    double Scale() const { return IsOn() ? m_dScale : 1.0; }
    QBrush Background() const;

private:
    std::optional<SCaptureParts> m_parts;
    double m_dScale = 1.0;
};
