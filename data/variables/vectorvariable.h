#pragma once

#include "data/variables/ivariable.h"

#include <array>

/** A vector of up to three scalar variables; a component without one is 0. */
class CVectorVariable : public IVariable
{
public:
    /** @param ids  the variables of x, y and z; -1 (or one that doesn't exist) for none */
    CVectorVariable(qint64 nSimulationId, const std::array<qint64, 3>& ids, bool bAddToManager);

    /** Other variables than before; whoever shows the vector is told. */
    void SetComponents(const std::array<qint64, 3>& ids);
    /** The place keeps its number and reads 0.0; the variable is not valid any more. */
    void RemoveInput(qint64 nId) override;
    /** Position of a component's variable among the inputs; -1 if it has none. */
    qint64 GetPosition(int nComponent) const { return GetRecipe().components[nComponent]; }

    double EvaluateScalar(const double* pInputs, qint64 nCount, bool bVectors) const override;
    DVector3D EvaluateVector(const double* pInputs, qint64 nCount, bool bVectors) const override;
};
