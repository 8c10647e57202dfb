#pragma once

#include "cases/autosave/autosavefolder.h"

class ISimulation;

/** Keeps a copy of each case whose changes nobody has saved, for the next start after a crash. */
class CAutosaver
{
public:
    explicit CAutosaver(const QString& sRoot) : m_folder(sRoot) {}

    /**
     * Brings the copies up to date: of cases that have changed since, and of those that were saved or closed.
     *
     * @return false if a case couldn't be written
     */
    bool Run();
    /** The program ends as it should: nothing is left to recover. */
    void End() { m_folder.Clear(); }

private:
    bool Keep(const ISimulation& simulation);

    CAutosaveFolder m_folder;
};
