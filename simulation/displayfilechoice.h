#pragma once

class ISimulation;
class QString;

/**
 * Asks the user for a display file: one of the "*.disp" files in the simulation's directory or, where there
 * is none, any file, found from the directory that was used last.
 *
 * @return its full name; empty if the user wants none
 */
QString AskDisplayFile(const ISimulation& simulation);
