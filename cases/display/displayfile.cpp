#include "cases/display/displayfile.h"

#include "cases/display/displaydocument.h"
#include "cases/display/displayoverrides.h"
#include "cases/display/pairdisplay.h"
#include "cases/display/pairjson.h"
#include "cases/display/viewjson.h"
#include "cases/files/casestorage.h"
#include "cases/files/updateblock.h"
#include "cases/files/viewcamera.h"
#include "frame/replacefile.h"
#include "frame/userprompt.h"
#include "frame/widgetmanager.h"
#include "simulation/displayfilechoice.h"
#include "simulation/isimulation.h"
#include "simulation/simulationmanager.h"
#include "simulation/undostep.h"

#include <QDateTime>
#include <QDir>
#include <QFileInfo>

namespace {

constexpr const char* TITLE = "Display File";

bool Tell(const char* sText, const QString& sFile)
{
    return UserPrompt::Tell(PromptWarning, TITLE, QString(sText).arg(sFile));
}

SOverridable TakeOverridable(const ISimulation& simulation, qint64 nViewId)
{
    const CSimulationManager& manager = CSimulationManager::Instance();
    return {simulation.SaveViewJson(nViewId), MirrorToJson(manager.GetMirror(nViewId, simulation.GetId())),
            SectorsToJson(manager.GetSectors(nViewId, simulation.GetId()))};
}

/** Sectors that can't be drawn are a problem of the table too. */
QStringList ApplyTable(const QJsonObject& table, SOverridable& values)
{
    QStringList sErrorList = DisplayOverrides::Apply(table, values);
    const double dTransforms =
        CountDisplayTransforms(MirrorFromJson(values.mirror), SectorsFromJson(values.sectors));
    if (dTransforms > MAX_DISPLAY_TRANSFORMS)
        sErrorList.append(TransformLimitText(dTransforms));
    return sErrorList;
}

bool ReadOldFile(ISimulation& simulation, const QByteArray& bytes, const QString& sFile, qint64 nViewId)
{
    SOldDisplayFile file;
    const StoredFile_e eStored = file.FromBytes(bytes);
    if (eStored == StoredNewer) {
        TellNewer(sFile);
        return false;
    }
    bool bShown = false;
    if (eStored == StoredOk) {
        const CUpdateBlock block(simulation.GetId());
        CUndoStep step(simulation.GetId());
        bShown = simulation.LoadViewState(file.display, nViewId, file.dVersion);
        if (!bShown)
            step.Discard();
    }
    if (!bShown)
        return Tell("Failed to load display data from:\n%1", sFile);
    ApplyCameraBlock(nViewId, file.camera);
    return true;
}

bool ShowDocument(ISimulation& simulation, const SDisplayDocument& document, const SOverridable& values,
                  qint64 nViewId)
{
    {
        CUndoStep step(simulation.GetId());
        if (!simulation.LoadViewJson(values.display, nViewId, document.dVersion)) {
            step.Discard();
            return false;
        }
        PairDisplay::Apply(nViewId, simulation.GetId(), MirrorFromJson(values.mirror),
                           SectorsFromJson(values.sectors));
    }
    if (const auto camera = CameraFromJson(document.viewer))
        ApplyViewCamera(nViewId, *camera);
    return true;
}

bool ReadDocument(ISimulation& simulation, const QByteArray& bytes, const QString& sFile, qint64 nViewId)
{
    SDisplayDocument document;
    const StoredFile_e eStored = document.FromBytes(bytes);
    if (eStored == StoredNewer) {
        TellNewer(sFile);
        return false;
    }
    if (eStored == StoredBad)
        return Tell("Invalid display file format:\n%1", sFile);
    if (!IsViewJson(document.display)) // before anything of the case changes
        return Tell("Failed to load display data from:\n%1", sFile);
    SOverridable values{document.display, MirrorToJson(MirrorFromJson(document.mirror)),
                        SectorsToJson(SectorsFromJson(document.sectors))};
    if (const QStringList sErrorList = ApplyTable(document.overrides, values); !sErrorList.isEmpty())
        UserPrompt::Tell(PromptWarning, "Display Override Errors", sErrorList.join('\n'));
    bool bShown = false;
    QString sProblem;
    {
        const CUpdateBlock block(simulation.GetId());
        sProblem = simulation.LoadDataFiles(document.overrides, QFileInfo(sFile).absolutePath());
        bShown = ShowDocument(simulation, document, values, nViewId);
    }
    if (!sProblem.isEmpty())
        UserPrompt::Tell(PromptWarning, TITLE, sProblem);
    return bShown || Tell("Failed to load display data from:\n%1", sFile);
}

} // namespace

QString FreeDisplayFile(const QString& sDirectory, const QString& sEnd)
{
    constexpr int MOST_TRIES = 60;
    const QDateTime now = QDateTime::currentDateTime();
    QString sName;
    for (int nSecond = 0; nSecond < MOST_TRIES && (sName.isEmpty() || QFileInfo::exists(sName)); ++nSecond)
        sName = QString("%1%2%3~%4")
                    .arg(sDirectory, QString(QDir::separator()),
                         now.addSecs(nSecond).toString("yyyy-MM-dd~hh:mm:ss"), sEnd);
    return sName;
}

QByteArray MakeDisplayFile(const ISimulation& simulation, qint64 nViewId)
{
    const SOverridable values = TakeOverridable(simulation, nViewId);
    SDisplayDocument document;
    document.display = values.display;
    document.overrides = DisplayOverrides::Build(values);
    const QJsonObject dataFiles = simulation.SaveDataFiles();
    for (auto it = dataFiles.begin(); it != dataFiles.end(); ++it)
        document.overrides[it.key()] = it.value();
    if (const std::optional<SCamera> camera = TakeViewCamera(nViewId))
        document.viewer = CameraToJson(*camera);
    return document.ToBytes();
}

void WriteDisplayFile(const ISimulation& simulation, qint64 nViewId)
{
    const QString sDirectory = Get(simulation, SimulationKey::DIRECTORY);
    if (CWidgetManager::Instance().GetViewerById(nViewId) && !sDirectory.isEmpty() &&
        QDir(sDirectory).exists())
        ReplaceFile(FreeDisplayFile(sDirectory, "analyze.disp"), MakeDisplayFile(simulation, nViewId));
}

bool ReadDisplayFile(ISimulation& simulation, const QString& sFile, qint64 nViewId)
{
    QByteArray bytes;
    if (!ReadWholeFile(sFile, bytes))
        return Tell("Could not open display file:\n%1", sFile);
    const bool bShown = SDisplayDocument::IsJson(bytes) ? ReadDocument(simulation, bytes, sFile, nViewId)
                                                        : ReadOldFile(simulation, bytes, sFile, nViewId);
    if (bShown)
        simulation.SetExtraText(sFile);
    return bShown;
}

bool OfferDisplayFiles(ISimulation& simulation, qint64 nViewId)
{
    const QStringList sFileList = ListDisplayFiles(simulation);
    if (sFileList.isEmpty())
        return false;
    if (const QString sFile = ChooseDisplayFileOf(sFileList); !sFile.isEmpty())
        simulation.LoadDisplayFile(sFile, nViewId);
    return true;
}
