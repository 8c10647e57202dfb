#pragma once

#include <QObject>

class CWindowActions;
class ISimulation;
struct SRestartFile;

/** Restart files of one case: a reference to its data with what the active view shows of it. */
class CRestartCommands : public QObject
{
    Q_OBJECT

public:
    explicit CRestartCommands(CWindowActions& actions);

public slots:
    /** Asks for a file and writes the case on top of the active view. */
    void SlotExportSimulationRestart();
    /**
     * Asks for a file and shows it in the active view: in the case that stands there, or, if bData, in the
     * one whose data the file names, which is opened where it isn't yet.
     */
    void SlotImportSimulationRestart(bool bData);

private:
    void Show(const SRestartFile& file, const QString& sFolder, bool bData) const;
    ISimulation* FindCase(const SRestartFile& file, const QString& sFolder, bool bData) const;
};
