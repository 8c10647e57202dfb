#pragma once

#include "data/values/valuerange.h"

#include <QString>
#include <QVector>

class ISelectable;

/** What the commands about colormaps do with a list of items. The views aren't told. Main thread only. */
namespace ColormapEdit {

/** The items of the pair that are drawn: the selected ones, or all. */
QVector<ISelectable*> Subjects(qint64 nViewId, qint64 nSimulationId, bool bAll);

/** Least and greatest value of the items' scalars over what the items show, holes left out. Empty without a
 * scalar.
 */
SValueRange ItemsRange(const QVector<ISelectable*>& items);

/** The same over the whole case of each item. */
SValueRange CaseRange(const QVector<ISelectable*>& items);

/** Pins the range: it is the same from now on whatever the items' own values are. Nothing for an empty one.
 */
void SetRange(const QVector<ISelectable*>& items, const SValueRange& range);

/** The variable that all items share, "various variables" where they differ, "" without any. */
QString VariableText(const QVector<ISelectable*>& items);

} // namespace ColormapEdit
