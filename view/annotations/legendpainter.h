#pragma once

#include <QtGlobal>

class CAnnotationColormap;
class QPainter;

/**
 * Paints a legend that has been laid out. The painter is afterwards as it was.
 * @param dScale  device pixels for each pixel of the layout
 */
void PaintLegend(QPainter& painter, const CAnnotationColormap& legend, qint32 nColormap, double dScale);
