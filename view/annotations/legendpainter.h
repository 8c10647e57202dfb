#pragma once

#include <QtGlobal>

class CAnnotationColormap;
class QPainter;
struct SCanvas;

/** Paints a legend that has been laid out. The painter is afterwards as it was. */
void PaintLegend(QPainter& painter, const CAnnotationColormap& legend, qint32 nColormap,
                 const SCanvas& canvas);
