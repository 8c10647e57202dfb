#pragma once

#include <QVector>

class ISelectable;

/**
 * The surfaces among the candidates that go on from the given ones: both have at least two neighbouring edge
 * points at the same places, and there their normals differ by no more than the limit, whichever side they
 * point to. Only surfaces that are built count; the given ones are left out. Main thread only.
 *
 * @param dAngleLimit  [radians]
 */
QVector<ISelectable*> FindAdjacent(const QVector<ISelectable*>& from, const QVector<ISelectable*>& candidates,
                                   double dAngleLimit);
