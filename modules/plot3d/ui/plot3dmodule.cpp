#include "modules/plot3d/ui/plot3dmodule.h"

#include "cases/files/updateblock.h"
#include "data/cases/dataformat.h"
#include "frame/messagesink.h"
#include "frame/novalue.h"
#include "frame/ui/waitcursor.h"
#include "frame/userprompt.h"
#include "modules/plot3d/datafilekeys.h"
#include "modules/plot3d/fieldview/fieldviewimport.h"
#include "modules/plot3d/packrecords.h"
#include "modules/plot3d/plot3dkeys.h"
#include "modules/plot3d/plot3dsimulation.h"
#include "modules/plot3d/ui/filesdialogeditor.h"
#include "simulation/simulationmanager.h"
#include "view/docks/surfacedatadock.h"

#include <QFileInfo>

namespace {

/** Of several grids the first is taken; who wants them as levels gives a series. */
SFilesProblem AddFile(CCaseRecords& records, const QString& sFile)
{
    if (records.grid.IsEmpty() || RoleOfFile(sFile) != RoleGrid)
        return records.AddFile(sFile);
    CMessageSink::Instance().Log(QString("%1 is a second grid file and is left out").arg(sFile), 1);
    return {};
}

SFilesProblem TakeFiles(CCaseRecords& records, const QStringList& sFileList)
{
    const CWaitCursor wait;
    ForgetDetectedFiles();
    for (const QString& sFile : sFileList)
        if (const SFilesProblem problem = AddFile(records, sFile); !problem.IsNone())
            return problem;
    records.AddCompanions();
    return records.Validate();
}

} // namespace

CPlot3DModule::CPlot3DModule(qint32 nId, const QString& sName) : CModuleInterface(nId, sName) {}
CPlot3DModule::~CPlot3DModule() = default;

void CPlot3DModule::Initialize()
{
    if (m_pEditor)
        return;
    m_pEditor = std::make_unique<CFilesDialogEditor>();
    m_pSurfaceDock = new CSurfaceDataDock;
    m_pSurfaceDock->setObjectName(QString("m_p%1SurfaceDock").arg(GetId()));
    m_pSurfaceDock->hide();
    m_secondDocks.append(m_pSurfaceDock); // opened by the user, not with the case
    m_ownedWidgets.append(m_pSurfaceDock);
}

CPlot3DSimulation* CPlot3DModule::MakeSimulation() const { return new CPlot3DSimulation(GetId()); }

CPlot3DSimulation* CPlot3DModule::FindSimulation(qint64 nSimulationId) const
{
    ISimulation* const pSimulation = CSimulationManager::Instance().GetSimulation(nSimulationId);
    return pSimulation && pSimulation->GetModuleId() == GetId()
               ? dynamic_cast<CPlot3DSimulation*>(pSimulation)
               : nullptr;
}

CPlot3DSimulation* CPlot3DModule::ShownPlot3D(qint64 nViewId) const
{
    const ISimulation* const pSimulation = CSimulationManager::Instance().GetSimulationOfView(nViewId);
    return pSimulation ? FindSimulation(pSimulation->GetId()) : nullptr;
}

CPlot3DSimulation* CPlot3DModule::ActivePlot3D() const { return ShownPlot3D(GetActiveViewId()); }

qint64 CPlot3DModule::Analyze(qint64 nViewId)
{
    ICaseFilesEditor* const pEditor = ICaseFilesEditor::Installed();
    CCaseRecords records;
    CPlot3DSimulation* pShown = ShownPlot3D(ViewOrActive(nViewId)); // of which a display alone is meant
    records.bHoldsData = pShown && pShown->HoldsData();
    if (!pEditor || !pEditor->EditCaseFiles(records))
        return NO_ID;
    if (!records.bNoDataRead)
        pShown = FindSimulation(OpenRecords(records, nViewId));
    if (!pShown)
        return NO_ID;
    if (records.HasDisplay()) {
        pShown->ShowDisplayOf(records, ViewOrActive(nViewId));
        pShown->SetDisplayChosen();
    }
    return pShown->GetId();
}

qint64 CPlot3DModule::OpenFromKey(const QByteArray& key, qint64 nViewId, const QString& sFolder)
{
    CDataPack pack;
    if (!ReadDataFileKey(key, GetId(), pack))
        return NO_ID;
    const QString sName = QFileInfo(Get(pack, Plot3DKey::GRID_FILE)).completeBaseName();
    const CCaseRecords records = FindCaseFiles(pack, sName, sFolder);
    const bool bToldMissing = !QFileInfo(records.grid.FileName()).isFile();
    return bToldMissing ? NO_ID : OpenRecords(records, nViewId);
}

bool CPlot3DModule::CanRead(const QStringList& sFileList) const
{
    ForgetDetectedFiles(); // they may have been written anew
    return DataFormatNamed("Plot3D").CanRead(sFileList);
}

qint64 CPlot3DModule::OpenPlot3D(const QStringList& sFileList, qint64 nViewId)
{
    CCaseRecords records;
    const SFilesProblem problem = TakeFiles(records, sFileList);
    if (problem.IsNone())
        return OpenRecords(records, nViewId);
    UserPrompt::Tell(PromptWarning, problem.sTitle, problem.sText);
    return NO_ID;
}

/** The id of a case of these files that is open already, now in the view too; -1 if there is none. */
qint64 CPlot3DModule::ShowOpenCase(const CCaseRecords& records, qint64 nViewId) const
{
    CDataPack pack;
    WriteFileNames(pack, records);
    CSimulationManager& manager = CSimulationManager::Instance();
    ISimulation* const pOpen = manager.FindSimulationByData(MakeDataFileKey(GetId(), {}, pack));
    if (!pOpen)
        return NO_ID;
    if (!manager.GetSimulationIds(nViewId).contains(pOpen->GetId())) {
        manager.AddSimulationToView(pOpen->GetId(), nViewId);
        pOpen->CreateDefaultSelectables(nViewId);
    }
    manager.SetActiveSimulation(nViewId, pOpen->GetId());
    return pOpen->GetId();
}

qint64 CPlot3DModule::OpenRecords(const CCaseRecords& records, qint64 nView)
{
    const qint64 nViewId = ViewOrActive(nView);
    if (const SFilesProblem problem = records.Validate(); !problem.IsNone()) {
        UserPrompt::Tell(PromptWarning, problem.sTitle, problem.sText);
        return NO_ID;
    }
    if (const qint64 nOpen = ShowOpenCase(records, nViewId); nOpen != NO_ID)
        return nOpen;
    CSimulationManager& manager = CSimulationManager::Instance();
    CPlot3DSimulation* const pSimulation = MakeSimulation();
    manager.AddSimulation(pSimulation, nViewId);
    const qint64 nId = pSimulation->GetId();
    QString sError;
    {
        const CUpdateBlock block(nId);
        sError = pSimulation->Load(records);
        if (const double dTime = records.ChosenTime(); dTime != STEADY_TIME)
            manager.SetTime(nViewId, nId, dTime);
    }
    if (!sError.isEmpty()) {
        manager.RemoveSimulationFromView(nId, nViewId);
        UserPrompt::Tell(PromptWarning, "Invalid File", sError);
        return NO_ID;
    }
    manager.SetActiveSimulation(nViewId, nId);
    return nId;
}

/** The case of the data that a display file names; -1, after telling why, if there is none. */
qint64 CPlot3DModule::OpenDataOf(const QString& sDisplayFile, qint64 nViewId)
{
    CCaseRecords records;
    const QString sProblem = ReadDataOfDisplay(sDisplayFile, false, records);
    if (sProblem.isEmpty())
        return OpenRecords(records, nViewId);
    UserPrompt::Tell(PromptWarning, "Display File", sProblem);
    return NO_ID;
}

/** The active case, with the data of the restart if they are found; without one a case of these data. Null,
 * after telling why, if there is none. */
CPlot3DSimulation* CPlot3DModule::CaseOfFieldView(const QString& sRestartFile)
{
    CPlot3DSimulation* const pActive = ActivePlot3D();
    CCaseRecords records = pActive ? pActive->GetRecords() : CCaseRecords();
    const CCaseRecords former = records;
    const bool bFound = FindFieldViewData(sRestartFile, records);
    if (!pActive && bFound)
        return FindSimulation(OpenRecords(records, GetActiveViewId()));
    if (!pActive) {
        UserPrompt::Tell(PromptWarning, "Display File",
                         "Display file does not reference an accessible grid file.");
        return nullptr;
    }
    const QString sProblem = bFound && !AreSameFiles(records, former) ? pActive->Load(records) : QString();
    if (sProblem.isEmpty())
        return pActive;
    UserPrompt::Tell(PromptWarning, "FieldView Import", sProblem);
    return nullptr;
}

bool CPlot3DModule::AddTransient(qint64 nSimulationId)
{
    CPlot3DSimulation* const pSimulation = FindSimulation(nSimulationId);
    if (!pSimulation)
        return false;
    QString sError;
    {
        const CUpdateBlock block(nSimulationId);
        sError = pSimulation->Reload();
    }
    CWidgetManager::Instance().UpdateActiveViewer();
    return sError.isEmpty() || UserPrompt::Tell(PromptWarning, "Invalid File", sError);
}
