#include "window/commands/filecommands.h"

#include "cases/files/casefile.h"
#include "frame/messagesink.h"
#include "frame/moduleregistry.h"
#include "frame/preferences/recentfolder.h"
#include "frame/ui/waitcursor.h"
#include "frame/userprompt.h"
#include "frame/widgetmanager.h"
#include "simulation/isimulation.h"
#include "simulation/simulationmanager.h"
#include "window/commands/activepair.h"
#include "window/commands/firstcolors.h"
#include "window/commands/showcase.h"
#include "window/commands/windowactions.h"

#include <QFile>
#include <QFileInfo>
#include <QMenu>

namespace {

constexpr const char* OPEN_TITLE = "Open Simulation";

/** Enough of a file to see what it is. */
QByteArray ReadHead(const QString& sFile)
{
    constexpr qint64 HEAD = 512; // [bytes]
    QFile file(sFile);
    return file.open(QIODevice::ReadOnly) ? file.read(HEAD) : QByteArray();
}

/** A case of a kind that isn't known here is no data file, whatever module would take it for one. */
bool IsCaseFile(const QString& sFile)
{
    return sFile.endsWith(".zento", Qt::CaseInsensitive) || LooksLikeCaseFile(ReadHead(sFile));
}

IModuleInterface* FindOpeningModule(const QString& sName)
{
    for (qint32 nId = 0; nId <= CModuleRegistry::HIGHEST_ID; ++nId) {
        IModuleInterface* const pModule = CModuleRegistry::Instance().FindById(nId);
        if (pModule && pModule->CanOpen() && pModule->GetName() == sName)
            return pModule;
    }
    return nullptr;
}

void TellUnknown(const QString& sFileName)
{
    const QString sText = QString("%1 is not a file of any kind of case known here").arg(sFileName);
    CMessageSink::Instance().Log(sText);
    CWidgetManager::Instance().SetStatusText(sText);
}

/** The first module that makes cases of such files; null if there is none. */
IModuleInterface* FindReadingModule(const QStringList& sFileList)
{
    for (qint32 nId = 0; nId <= CModuleRegistry::HIGHEST_ID; ++nId) {
        IModuleInterface* const pModule = CModuleRegistry::Instance().FindById(nId);
        if (pModule && pModule->CanCreateSimulationFromFile() && pModule->CanRead(sFileList))
            return pModule;
    }
    return nullptr;
}

/** A case made of data files, with its first colours if it wasn't open before; -1, after telling why, if
 * there is none. */
qint64 CreateCase(const QStringList& sFileList, const QVector<qint64>& formerIds)
{
    const CWaitCursor wait;
    IModuleInterface* const pModule = FindReadingModule(sFileList);
    if (!pModule) {
        TellUnknown(sFileList.join(", "));
        UserPrompt::Tell(PromptWarning, "Invalid file", "The selected file could not be identified");
        return -1;
    }
    const qint64 nSimulationId = pModule->CreateFromFiles(sFileList, -1);
    if (nSimulationId == -1)
        return nSimulationId;
    ShowCase::InActiveView(nSimulationId);
    if (!formerIds.contains(nSimulationId))
        FirstColors::Show(CWidgetManager::Instance().GetActiveViewId(), nSimulationId);
    return nSimulationId;
}

/**
 * A new case of data files: the user may want it as it was looked at before. What changes from then on is an
 * edit.
 */
void FinishOpening(qint64 nSimulationId, const QVector<qint64>& formerIds)
{
    ISimulation* const pSimulation = CSimulationManager::Instance().GetSimulation(nSimulationId);
    if (!pSimulation || formerIds.contains(nSimulationId))
        return;
    pSimulation->ChooseDisplayFile(CWidgetManager::Instance().GetActiveViewId());
    ShowCase::InActiveView(nSimulationId);
    pSimulation->NoteSaved();
}

IModuleInterface* ModuleOf(const QAction* pAction)
{
    return CModuleRegistry::Instance().FindById(pAction->data().toLongLong());
}

IModuleInterface* ModuleOf(const ISimulation* pSimulation)
{
    return pSimulation ? CModuleRegistry::Instance().FindById(pSimulation->GetModuleId()) : nullptr;
}

} // namespace

CFileCommands::CFileCommands(CWindowActions& actions, QMenu* pNewMenu, QMenu* pAnalyzeMenu,
                             QMenu* pRecentMenu)
    : m_recentFiles(pRecentMenu, actions)
{
    FillModuleMenu(pNewMenu, &IModuleInterface::CanCreateNew);
    FillModuleMenu(pAnalyzeMenu, &IModuleInterface::CanAnalyze);
    actions.BindWithoutSlot(ActionNewSimulation);
    actions.BindWithoutSlot(ActionAnalyze);
    connect(pNewMenu, &QMenu::triggered, this, &CFileCommands::SlotNewSimulation);
    connect(pAnalyzeMenu, &QMenu::triggered, this, &CFileCommands::SlotAnalyzeSimulation);
    actions.Bind(ActionImport, this, [] {
        if (ISimulation* const pSimulation = CWidgetManager::Instance().GetActiveSimulation())
            pSimulation->EditData();
    });
    actions.Bind(ActionExport, this, [] {
        const SActivePair active;
        if (IModuleInterface* const pModule = ModuleOf(active.pSimulation))
            pModule->Export(active.nViewId);
    });
    actions.Bind(ActionOpen, this, [this] { SlotOpenSimulation({}); });
    connect(&m_recentFiles, &CRecentFiles::SignalOpen, this, &CFileCommands::SlotOpenSimulation);
}

void CFileCommands::FillModuleMenu(QMenu* pMenu, bool (IModuleInterface::*can)() const)
{
    for (qint32 nId = 0; nId <= CModuleRegistry::HIGHEST_ID; ++nId) {
        const IModuleInterface* const pModule = CModuleRegistry::Instance().FindById(nId);
        if (pModule && (pModule->*can)())
            pMenu->addAction(pModule->GetName())->setData(nId);
    }
}

void CFileCommands::SlotNewSimulation(QAction* pAction)
{
    IModuleInterface* const pModule = ModuleOf(pAction);
    const qint64 nSimulationId = pModule ? pModule->CreateNew() : -1;
    ShowCase::InActiveView(nSimulationId);
    if (ISimulation* const pSimulation = CSimulationManager::Instance().GetSimulation(nSimulationId))
        pSimulation->NoteSaved();
}

void CFileCommands::SlotAnalyzeSimulation(QAction* pAction)
{
    IModuleInterface* const pModule = ModuleOf(pAction);
    if (!pModule)
        return;
    const QVector<qint64> openIds = CSimulationManager::Instance().GetSimulationIds();
    const qint64 nSimulationId = pModule->Analyze(-1);
    ShowCase::InActiveView(nSimulationId);
    FinishOpening(nSimulationId, openIds);
}

void CFileCommands::SlotOpenSimulation(const QString& sFileName)
{
    const QString sFile =
        sFileName.isEmpty()
            ? RecentFolder::AskFile({OPEN_TITLE, {}, "Simulation File (*.zento);; All Files (*)"})
            : sFileName;
    if (!sFile.isEmpty())
        OpenFiles({sFile});
}

bool CFileCommands::OpenCase(const QString& sFile)
{
    SCaseFile file;
    file.FromBytes(ReadHead(sFile)); // as far as it goes: to the name
    IModuleInterface* const pModule = FindOpeningModule(file.sModule);
    if (!pModule) {
        const bool bCase = IsCaseFile(sFile);
        if (bCase)
            TellUnknown(sFile);
        return bCase;
    }
    const qint64 nSimulationId = pModule->Open(sFile, -1);
    if (nSimulationId != -1) {
        ShowCase::InActiveView(nSimulationId);
        m_recentFiles.Add(sFile);
    }
    return true;
}

void CFileCommands::OpenFiles(const QStringList& sFileList)
{
    CWidgetManager::Instance().SetStatusText({}); // what was told of another file
    QStringList sDataFileList;                    // what is no case: together they may make one
    for (const QString& sFile : sFileList) {
        if (!QFileInfo(sFile).isFile() || !QFile(sFile).open(QIODevice::ReadOnly)) // a pipe would wait
            UserPrompt::Tell(PromptCritical, OPEN_TITLE, "Failed to open the selected file");
        else if (!OpenCase(sFile))
            sDataFileList.append(sFile);
    }
    RecentFolder::Keep(sFileList.last());
    if (sDataFileList.isEmpty())
        return;
    const QVector<qint64> openIds = CSimulationManager::Instance().GetSimulationIds();
    const qint64 nSimulationId = CreateCase(sDataFileList, openIds);
    if (nSimulationId == -1)
        return;
    m_recentFiles.Add(sDataFileList.first());
    FinishOpening(nSimulationId, openIds);
}
