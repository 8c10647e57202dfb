#include "modules/plot3d/fieldview/fieldviewimport.h"

#include "cases/display/displayfile.h"
#include "data/variables/variablemanager.h"
#include "frame/messagesink.h"
#include "frame/preferences/recentfolder.h"
#include "frame/replacefile.h"
#include "frame/userprompt.h"
#include "modules/plot3d/datafilekeys.h"
#include "modules/plot3d/fieldview/fieldviewdisplay.h"
#include "modules/plot3d/filerecords.h"
#include "simulation/isimulation.h"

#include <QDir>
#include <QFileInfo>
#include <QJsonArray>

namespace {

constexpr const char* FILE_END = "fieldview-import~analyze.disp";

/** Full name of the first of the files that is there, as it is named or beside the restart; empty if none is.
 */
QString FindFirst(const QStringList& sFileList, const QDir& folder)
{
    for (QString sFile : sFileList) {
        sFile.replace('\\', '/');
        for (const QString& sName : {sFile, QFileInfo(sFile).fileName()})
            if (const QFileInfo file(folder, sName); file.isFile())
                return file.absoluteFilePath();
    }
    return {};
}

QStringList VariablesOf(const ISimulation& simulation)
{
    const CVariableManager& manager = CVariableManager::Instance();
    QStringList sNameList;
    for (const qint64 nId : manager.ListVariables(simulation.GetId(), false))
        if (const IVariable* const pVariable = manager.GetVariable(nId))
            sNameList.append(pVariable->GetName());
    return sNameList;
}

/** One line for all, so that a user sees what wasn't understood. */
void LogPassedOver(const QString& sRestartFile, const SFieldViewRestart& restart)
{
    QStringList sSectionList;
    for (auto it = restart.passedOver.constBegin(); it != restart.passedOver.constEnd(); ++it)
        sSectionList << QString("%1 of %2").arg(QString::number(it.value()), it.key());
    if (!sSectionList.isEmpty())
        CMessageSink::Instance().Log(
            QString("%1: lines passed over: %2").arg(sRestartFile, sSectionList.join(", ")));
}

/** With the time of day, as other display files; plain where that is no name for a file. */
QString WriteDisplay(const QString& sDirectory, const QByteArray& bytes)
{
    const QString sPlain = QDir(sDirectory).filePath(FILE_END);
    for (const QString& sFile : {FreeDisplayFile(sDirectory, FILE_END), sPlain})
        if (ReplaceFile(sFile, bytes))
            return sFile;
    UserPrompt::Tell(PromptWarning, "FieldView Restart",
                     QString("Failed to save display file:\n%1").arg(sPlain));
    return {};
}

} // namespace

std::optional<SFieldViewRestart> OpenFieldView(const QString& sRestartFile)
{
    constexpr const char* TITLE = "FieldView Import";
    if (!IsFieldViewRestart(sRestartFile)) {
        UserPrompt::Tell(
            PromptWarning, TITLE,
            QString("This file is not a valid FieldView restart .dat file:\n%1").arg(sRestartFile));
        return {};
    }
    std::optional<SFieldViewRestart> restart = ReadFieldViewRestart(sRestartFile);
    if (!restart)
        UserPrompt::Tell(PromptWarning, TITLE, "Failed to parse FieldView restart files.");
    return restart;
}

QString AskFieldView()
{
    const QString sFile = RecentFolder::AskFile(
        {"Select FieldView Restart File", {}, "FieldView Restart (*.dat);;All Files (*)"});
    return !sFile.isEmpty() && OpenFieldView(sFile) ? sFile : QString();
}

bool FindFieldViewData(const QString& sRestartFile, CCaseRecords& records)
{
    const std::optional<SFieldViewRestart> restart = ReadFieldViewRestart(sRestartFile);
    if (!restart)
        return false;
    const QDir folder = QFileInfo(sRestartFile).absoluteDir();
    const QString sGrid = FindFirst(restart->sGridFileList, folder),
                  sQ = FindFirst(restart->sQFileList, folder);
    QJsonArray functions;
    for (const QString& sFunction : restart->sFunctionFileList)
        if (const QString sFile = FindFirst({sFunction}, folder); !sFile.isEmpty())
            functions.append(sFile);
    if (sGrid.isEmpty())
        return false;
    // Fields of another grid wouldn't fit.
    QJsonObject keys{{"dataFiles.gridFile", sGrid}};
    if (!sQ.isEmpty())
        keys["dataFiles.qFile"] = sQ;
    if (!functions.isEmpty())
        keys["dataFiles.functionFiles"] = functions;
    const bool bOtherGrid = records.grid.FileName() != sGrid;
    ForgetDetectedFiles();
    records = ReadDataFileKeys(keys, bOtherGrid ? CCaseRecords() : records, {folder.path()});
    return true;
}

bool ShowFieldView(ISimulation& simulation, const QString& sRestartFile, qint64 nViewId)
{
    const std::optional<SFieldViewRestart> restart = OpenFieldView(sRestartFile);
    if (!restart)
        return false;
    LogPassedOver(sRestartFile, *restart);
    SDisplayDocument document =
        ToDisplayDocument(*restart, VariablesOf(simulation), simulation.SaveViewJson(nViewId));
    const QJsonObject dataFiles = simulation.SaveDataFiles();
    for (auto it = dataFiles.begin(); it != dataFiles.end(); ++it)
        document.overrides[it.key()] = it.value();
    const QString sFile = WriteDisplay(Get(simulation, SimulationKey::DIRECTORY), document.ToBytes());
    return !sFile.isEmpty() && simulation.LoadDisplayFile(sFile, nViewId);
}
