#pragma once

#include <QVector>

class CAnnotationColormap;
class ISelectable;

/**
 * Shows the legend of the first item on show that has one, to stand for all items of one scalar and one
 * range. With several items it doesn't name its own.
 *
 * @return null if no item has a legend
 */
CAnnotationColormap* ShowOneLegend(const QVector<ISelectable*>& items);
