#pragma once

#include <QSize>
#include <QVector>

class IDrawable;

/**
 * Lays the legends of a view out where they are to stand: where the user has put one, moved inside of the
 * view; any other in the first free place of a row, which it keeps while it is on show.
 *
 * @param drawables  all of the view
 * @param view       its size [pixels]
 */
void PlaceLegends(const QVector<IDrawable*>& drawables, const QSize& view);
