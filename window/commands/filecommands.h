#pragma once

#include "window/recentfiles.h"

#include <QObject>

class CWindowActions;
class IModuleInterface;
class QAction;
class QMenu;

/** Making and opening cases. What is made or opened stands on top of the active view. */
class CFileCommands : public QObject
{
    Q_OBJECT

public:
    /** Binds its actions; the menus list the modules that make empty cases, and cases from results. */
    CFileCommands(CWindowActions& actions, QMenu* pNewMenu, QMenu* pAnalyzeMenu, QMenu* pRecentMenu);

    CRecentFiles& GetRecentFiles() { return m_recentFiles; }

public slots:
    /** Makes an empty case of the module whose id is the action's data. */
    void SlotNewSimulation(QAction* pAction);
    /** Makes a case from results with the module whose id is the action's data. */
    void SlotAnalyzeSimulation(QAction* pAction);
    /** Opens the file, see OpenFiles; asks for it if the name is empty. */
    void SlotOpenSimulation(const QString& sFileName);
    /**
     * Opens each simulation file with the module that its first field names. The others are data files: the
     * first module that can makes one case of them all. Files of no known kind change nothing; the log and
     * the status bar say so.
     */
    void OpenFiles(const QStringList& sFileList);

private:
    void FillModuleMenu(QMenu* pMenu, bool (IModuleInterface::*can)() const);

    CRecentFiles m_recentFiles;
    bool OpenCase(const QString& sFile);
};
