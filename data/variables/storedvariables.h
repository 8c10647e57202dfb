#pragma once

#include <QVector>

class IVariable;

/**
 * The user's formulas outlive their case: they are kept in the preferences and made again in every case that
 * has what they are made of. One is known there by its name and location. Main thread only.
 */
namespace StoredVariables {

/**
 * Keeps the variable as it is now, in place of the one that was kept under its former name and location. Not
 * kept are variables that aren't a valid formula of the user, and those that draw on another simulation.
 *
 * @return whether the kept list has changed
 */
bool Keep(const IVariable& variable, const QString& sFormerName, int nFormerLocation);

/** Drops the variable from what is kept; whether it was there. */
bool Forget(const IVariable& variable);

/** Removes the variable with everything built on it, from the case and from what is kept. */
void RemoveForGood(qint64 nVariableId);

} // namespace StoredVariables

/**
 * Makes every kept variable in the simulation whose inputs exist there, by name, at its location or as
 * constants, and whose name is free. To be called when a case has opened and its own variables are known.
 *
 * @return ids of those made, in order
 */
QVector<qint64> MakeStoredVariables(qint64 nSimulationId);
