#pragma once

#include <QObject>

class CRecentFiles;
class CWindowActions;

/** Saving the case on top of the active view, and exporting what that view shows. */
class CSaveCommands : public QObject
{
    Q_OBJECT

public:
    CSaveCommands(CWindowActions& actions, CRecentFiles& recentFiles);

signals:
    /** A case has been saved to its file. */
    void SignalSaved();

public slots:
    void SlotSaveSimulation();
    void SlotSaveAsSimulation();
    /** Asks for a display file and writes it. */
    void SlotExportDisplayState();

private slots:
    void SlotSimulationSaved(qlonglong nSimulationId);

private:
    CRecentFiles& m_recentFiles;
};
