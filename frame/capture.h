#pragma once

#include <QSize>

/** What stands behind the scene in a captured picture; the order is that of the dialog's entries. */
enum CaptureBackground_e {
    CaptureDisplayed,   ///< what the view shows
    CaptureCustom,      ///< the last of the preference's background colours
    CaptureTransparent, ///< nothing
};

/** What goes into a captured picture of a view. */
struct SCaptureParts
{
    CaptureBackground_e eBackground = CaptureDisplayed;
    bool bAxes = true;
    bool bAnnotations = true;
    bool bScale = true; ///< the scale bar
};

/** A picture of the window. */
struct SCapture
{
    QSize size; ///< [pixels, ahead of the device's ratio], in the aspect of what is captured
    SCaptureParts parts;
    bool bActiveViewOnly = true; ///< false: the entire window
};
