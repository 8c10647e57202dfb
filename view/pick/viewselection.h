#pragma once

#include <QVector>

class ISelectable;

/**
 * The selecting gestures of a view. Each changes the flags and then tells CSelectableManager once for each
 * simulation in which a flag has changed. Main thread only.
 */
namespace ViewSelection {

/**
 * Selects what a box has hit.
 *
 * @param nSimulationId  the view's current simulation: what of it wasn't hit is deselected
 * @param bControl       the hits are added, and nothing is deselected
 */
void SelectHits(qint64 nViewId, qint64 nSimulationId, const QVector<ISelectable*>& hits, bool bControl);

/**
 * A click: selects what is hovered and deselects all else of the current simulation.
 *
 * @param pHovered  null: a click beside all items, which deselects, or with Control does nothing
 * @param bControl  turns its flag instead, and nothing else
 */
void Click(qint64 nViewId, qint64 nSimulationId, ISelectable* pHovered, bool bControl);

} // namespace ViewSelection
