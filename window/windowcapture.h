#pragma once

#include "frame/capture.h"

#include <QImage>

class CViewArea;
class QWidget;

/** Pictures of the main window and of its views. */
namespace WindowCapture {

/**
 * A view that fills the area alone, else the active view or the entire window, as asked for. The size is that
 * of the request times the device's pixel ratio.
 *
 * @return null if there is no view, or if it can't be drawn in that size
 */
QImage Take(QWidget& window, const CViewArea& area, const SCapture& capture);

/** The size that a picture of the view has at its own scale; empty without views. */
QSize ViewSize(const CViewArea& area);

} // namespace WindowCapture
