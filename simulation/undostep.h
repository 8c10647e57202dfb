#pragma once

#include "simulation/isimulation.h"

/**
 * Edits a simulation in one step of undo.
 *
 * @param edit  gives whether there was anything to do; false leaves no step
 * @return what the edit gave
 */
template <class Edit> bool EditInOneStep(ISimulation& simulation, const Edit& edit)
{
    simulation.BeginUndoStep();
    const bool bEdited = edit();
    simulation.EndUndoStep(!bEdited);
    return bEdited;
}
