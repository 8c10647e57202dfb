#pragma once

#include <QByteArray>

/**
 * The keys by which stored displays name variables (IVariable::ToBytes). Forming one goes through all inputs
 * of a formula, and a display may name the same variable thousands of times: while a CScope lives, keys are
 * formed once. Variables must not change meanwhile. Main thread only.
 */
namespace VariableKeys {

class CScope
{
public:
    CScope();
    ~CScope();
    CScope(const CScope&) = delete;
    CScope& operator=(const CScope&) = delete;
};

/** Null for an unknown variable. */
QByteArray KeyOf(qint64 nVariableId);

/**
 * The variable of the key. A key names the data files of its case; where these have moved, or the display is
 * of another case, the variable of the simulation with the same name, kind and location is meant.
 *
 * @return -1 if there is none
 */
qint64 Find(const QByteArray& key, qint64 nSimulationId);

} // namespace VariableKeys
