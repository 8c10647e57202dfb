#pragma once

#include "scene/colormaprecord.h"

#include <QVector>

#include <utility>

class CAnnotationColormap;
class ISelectable;

/** What a legend says: items of one key share a legend. */
using LegendKey = std::pair<qint64, SColormapRecord>;
LegendKey LegendKeyOf(const ISelectable& item);

/**
 * Shows the legend of the first item on show that has one, to stand for all items of one scalar and one
 * range. It names its own or, for what belongs to one block, that; with items of several it names none.
 *
 * @return null if no item has a legend
 */
CAnnotationColormap* ShowOneLegend(const QVector<ISelectable*>& items);

/**
 * A legend goes out of sight with its item, though others may be coloured by the same: the first of these
 * takes it over as it looks and where it stands, unless one of them shows its own.
 *
 * @param leaving  of one view, no longer on show or about to be deleted
 * @param staying  of the same view; hidden ones, those that leave among them, take nothing over
 */
void PassLegendsOn(const QVector<ISelectable*>& leaving, const QVector<ISelectable*>& staying);
