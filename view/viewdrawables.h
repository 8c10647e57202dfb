#pragma once

#include <QVector>

class IDrawable;

/** The drawables of a view, of all cases that stand in it, in their order. */
namespace ViewDrawables {

QVector<IDrawable*> All(qint64 nViewId);
QVector<IDrawable*> Visible(qint64 nViewId);

} // namespace ViewDrawables
