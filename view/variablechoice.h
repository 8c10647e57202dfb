#pragma once

#include "data/variables/ivariable.h"

#include <QVector>

class CDrawableGroup;
class ISelectable;

/**
 * Which variables items are shown with: what the commands and boxes of the window do. The views aren't told.
 * Main thread only.
 */
namespace VariableChoice {

/**
 * What can be chosen in a case, in the order of the variable list: by group, then by name; those that draw on
 * several simulations last. Vectors only for KindVector, scalars only for KindScalar.
 */
QVector<qint64> ListedVariables(qint64 nSimulationId, VariableKind_e eKind);

/**
 * Colours the items by the variable, over its range in the whole case; those that are coloured by it already
 * keep their range. -1 clears it.
 */
void SetScalar(const QVector<ISelectable*>& items, qint64 nVariableId);

/** The arrows of the items; -1 clears it. */
void SetVector(const QVector<ISelectable*>& items, qint64 nVariableId);

/** Hides what lies outside a range of the variable, at first none of it; -1 shows all again. */
void SetThreshold(const QVector<ISelectable*>& items, qint64 nVariableId);

/** The variable that all items agree in; -1 without one or where they differ. */
qint64 CommonVariable(const QVector<ISelectable*>& items, qint64 (CDrawableGroup::*getter)() const);

} // namespace VariableChoice
