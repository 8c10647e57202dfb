#pragma once

class ISimulation;

/** Saving a case to its file, by the module that it is of. CSimulationManager tells of each success. */
namespace CaseSaving {

/** Whether the case can be saved at all. */
bool CanSave(const ISimulation& simulation);
/**
 * Asks for a file where the case has none.
 *
 * @return false if the user cancelled, or if the file can't be written, which is told; the case goes on as it
 * was
 */
bool Save(const ISimulation& simulation);
/** The same, always asking. A name without the ending ".zento" gets it. */
bool SaveAs(const ISimulation& simulation);

} // namespace CaseSaving
