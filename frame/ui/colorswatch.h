#pragma once

class QColor;
class QPainter;
class QRect;

/** A colour to choose by; one that is invalid, and finds itself between the two, as black and white. */
void PaintColorSwatch(QPainter& painter, const QRect& rect, const QColor& color);
