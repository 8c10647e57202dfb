#pragma once

#include <QObject>

class CRecentFiles;
class CWindowActions;
class ISimulation;

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
    /** Saves to the file of the case; asks for one if it has none. */
    void SlotSaveSimulation();
    /** Asks for a file. A name without the ending ".zento" gets it. */
    void SlotSaveAsSimulation();
    /** Asks for a display file and writes it. */
    void SlotExportDisplayState();

private:
    void Save(const ISimulation& simulation, const QString& sFile);

    CRecentFiles& m_recentFiles;
};
