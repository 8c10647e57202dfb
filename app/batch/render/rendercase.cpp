#include "app/batch/render/rendercase.h"

#include "app/batch/batchcase.h"
#include "app/batch/nearnames.h"
#include "cases/blocks/blockcase.h"
#include "cases/display/displaydocument.h"
#include "cases/files/casestorage.h"
#include "data/cases/dataformat.h"
#include "data/variables/variablemanager.h"
#include "frame/moduleregistry.h"
#include "modules/base/ui/moduleinterface.h"
#include "scene/iselectable.h"
#include "scene/selectablekind.h"
#include "scene/selectablemanager.h"
#include "simulation/item.h"
#include "simulation/simulationmanager.h"
#include "view/annotations/onelegend.h"
#include "view/selectables/surfaceitems.h"
#include "view/variablechoice.h"

#include <QFileInfo>

namespace {

/** A new case of a module, in the view; null if there is no such module, or none that can be drawn. */
CBlockCase* AddCase(const QString& sModule)
{
    const IModuleInterface* const pModule = CModuleRegistry::Instance().FindByName(sModule);
    ISimulation* const pSimulation =
        pModule ? static_cast<const CModuleInterface*>(pModule)->MakeSimulation() : nullptr;
    if (!pSimulation)
        return nullptr;
    CSimulationManager& manager = CSimulationManager::Instance();
    manager.AddSimulation(pSimulation, CRenderCase::VIEW);
    manager.SetActiveSimulation(CRenderCase::VIEW, pSimulation->GetId());
    return dynamic_cast<CBlockCase*>(pSimulation);
}

} // namespace

CRenderCase::~CRenderCase() { CSimulationManager::Instance().RemoveAllViews(); }

BatchStatus_e CRenderCase::Fail(BatchStatus_e eStatus, const QString& sError)
{
    m_sError = sError;
    return eStatus;
}

BatchStatus_e CRenderCase::Open(const CBatchOptions& options, const SRenderRequest& request)
{
    BatchStatus_e eStatus = request.sCaseFile.isEmpty() ? OpenData(options) : OpenCaseFile(request.sCaseFile);
    if (eStatus == BatchOk && !request.sDisplayFile.isEmpty())
        eStatus = ReadDisplay(request.sDisplayFile);
    if (eStatus != BatchOk)
        return eStatus;
    for (const QString& sDefinition : options.All("--define"))
        if (const QString sProblem = DefineVariable(m_pSimulation->GetId(), sDefinition); !sProblem.isEmpty())
            return Fail(BatchUsage, sProblem);
    return BatchOk;
}

BatchStatus_e CRenderCase::OpenData(const CBatchOptions& options)
{
    SDataFiles files = DataFilesOf(options);
    files.sSolutionFileList = files.sSolutionFileList.mid(0, 1); // a picture is of one level
    m_pSimulation = AddCase(FormatToOpen(files).sName);
    const QString sProblem = m_pSimulation ? m_pSimulation->OpenData(files) : "these files can't be drawn";
    return sProblem.isEmpty() ? BatchOk : Fail(BatchFailed, sProblem);
}

BatchStatus_e CRenderCase::OpenCaseFile(const QString& sFileName)
{
    QByteArray bytes;
    if (!ReadWholeFile(sFileName, bytes))
        return Fail(BatchFailed, QString("can't read %1").arg(sFileName));
    SCaseFile file;
    const StoredFile_e eStored = file.FromBytes(bytes);
    if (eStored == StoredNewer)
        return Fail(BatchFailed, QString("%1 was written by a newer version of this program").arg(sFileName));
    m_pSimulation = eStored == StoredOk ? AddCase(file.sModule) : nullptr;
    if (!m_pSimulation)
        return Fail(BatchFailed, QString("%1 is no case file of Plot3D data").arg(sFileName));
    m_pSimulation->SetFilePath(QFileInfo(sFileName).absoluteFilePath());
    if (!FillCase(*m_pSimulation, file, VIEW, true))
        return Fail(BatchFailed, QString("%1 can't be opened").arg(sFileName));
    if (const QStringList& sProblemList = m_pSimulation->GetDataProblems(); !sProblemList.isEmpty())
        return Fail(BatchFailed, QString("%1: %2").arg(sFileName, sProblemList.first()));
    m_camera = file.camera.Camera();
    return BatchOk;
}

BatchStatus_e CRenderCase::ReadDisplay(const QString& sFileName)
{
    QByteArray bytes;
    if (!ReadWholeFile(sFileName, bytes) || !m_pSimulation->LoadDisplayFile(sFileName, VIEW))
        return Fail(BatchFailed, QString("%1 can't be shown").arg(sFileName));
    SDisplayDocument document;
    SOldDisplayFile older;
    if (SDisplayDocument::IsJson(bytes) && document.FromBytes(bytes) == StoredOk)
        m_camera = CameraFromJson(document.viewer);
    else if (older.FromBytes(bytes) == StoredOk) {
        SStoredCamera camera;
        camera.block = older.camera;
        m_camera = camera.Camera();
    }
    return BatchOk;
}

QStringList CRenderCase::VariableNames() const
{
    const CVariableManager& manager = CVariableManager::Instance();
    QStringList sNameList;
    for (const qint64 nId : manager.ListVariables(m_pSimulation->GetId(), false))
        sNameList << manager.GetVariable(nId)->GetName();
    return sNameList;
}

BatchStatus_e CRenderCase::Show(const SRenderRequest& request)
{
    if (const BatchStatus_e eStatus = ShowSurfaces(request.surfaces); eStatus != BatchOk)
        return eStatus;
    if (const BatchStatus_e eStatus = ShowScalar(request); eStatus != BatchOk)
        return eStatus;
    if (const BatchStatus_e eStatus = ShowVector(request.sVector); eStatus != BatchOk)
        return eStatus;
    if (request.mode || !request.IsStored())
        for (ISelectable* const pSelectable : Shown())
            pSelectable->setDisplayType(request.mode.value_or(DisplayShaded));
    if (request.bLegend)
        ShowOneLegend(Shown());
    return BatchOk;
}

QVector<ISelectable*> CRenderCase::Shown() const
{
    QVector<ISelectable*> shown = CSelectableManager::Instance().GetSelectables(VIEW, m_pSimulation->GetId());
    const auto isOut = [](const ISelectable* p) { return p->drawables().isEmpty() || !p->isVisible(); };
    shown.erase(std::remove_if(shown.begin(), shown.end(), isOut), shown.end());
    return shown;
}

BatchStatus_e CRenderCase::CheckSurface(const SRenderRequest::SSurface& surface)
{
    const QVector<CItem*> blocks = m_pSimulation->GetBlocks();
    if (surface.nBlock < 1 || surface.nBlock > blocks.size())
        return Fail(BatchUsage,
                    QString("there is no block %1; the grid has %2").arg(surface.nBlock).arg(blocks.size()));
    const qint64 nPoints = blocks[int(surface.nBlock - 1)]->GetSize()[surface.nDirection];
    if (surface.nConstant >= 1 && surface.nConstant <= nPoints)
        return BatchOk;
    return Fail(BatchUsage, QString("there is no %1 = %2 in block %3; it has 1 to %4")
                                .arg(QChar("IJK"[surface.nDirection]))
                                .arg(surface.nConstant)
                                .arg(surface.nBlock)
                                .arg(nPoints));
}

BatchStatus_e CRenderCase::ShowSurfaces(const QVector<SRenderRequest::SSurface>& surfaces)
{
    if (surfaces.isEmpty())
        return BatchOk;
    for (ISelectable* const pSelectable : Shown())
        pSelectable->setVisible(false);
    for (const SRenderRequest::SSurface& surface : surfaces) {
        if (const BatchStatus_e eStatus = CheckSurface(surface); eStatus != BatchOk)
            return eStatus;
        const CItem& block = *m_pSimulation->GetBlocks()[int(surface.nBlock - 1)];
        SSurfacePlane plane = FacePlane(block.GetSize(), 2 * surface.nDirection);
        plane.constants[surface.nDirection] = surface.nConstant;
        CreateSurfaceItem(*m_pSimulation, block.GetId(), plane);
    }
    return BatchOk;
}

BatchStatus_e CRenderCase::FindVariable(const QString& sName, bool bVector, qint64& nId)
{
    const CVariableManager& manager = CVariableManager::Instance();
    nId = manager.FindByName(m_pSimulation->GetId(), sName, LocationNode);
    if (nId == NO_ID)
        nId = manager.FindByName(m_pSimulation->GetId(), sName, LocationCell);
    if (nId == NO_ID && manager.FindByName(m_pSimulation->GetId(), sName, LocationNone) != NO_ID)
        return Fail(BatchUsage, QString("'%1' is a constant and has no field to show").arg(sName));
    if (nId == NO_ID)
        return Fail(BatchUsage, QString("there is no variable '%1'%2; --scalar ? lists them")
                                    .arg(sName, NearNamesText(sName, VariableNames())));
    if ((manager.GetVariable(nId)->GetKind() == KindVector) == bVector)
        return BatchOk;
    return Fail(BatchUsage, QString(bVector ? "'%1' is no vector; --scalar colours by it"
                                            : "'%1' is a vector; --mode vector --vector shows it")
                                .arg(sName));
}

BatchStatus_e CRenderCase::ShowScalar(const SRenderRequest& request)
{
    if (request.sScalar.isEmpty())
        return BatchOk;
    qint64 nId = NO_ID;
    if (const BatchStatus_e eStatus = FindVariable(request.sScalar, false, nId); eStatus != BatchOk)
        return eStatus;
    const std::optional<SValueRange> range =
        request.range ? request.range
                      : CVariableManager::Instance().GetVariable(nId)->GetGlobalRange(
                            VIEW, m_pSimulation->GetId(), NO_ID);
    for (ISelectable* const pSelectable : Shown()) {
        pSelectable->setScalarVariable(nId);
        pSelectable->setGeometricColor(false);
        if (range)
            pSelectable->setColormapValues(range->dMin, range->dMax);
        if (request.nColormap != -1)
            pSelectable->setColormapType(request.nColormap);
    }
    return BatchOk;
}

BatchStatus_e CRenderCase::ShowVector(const QString& sName)
{
    if (sName.isEmpty())
        return BatchOk;
    qint64 nId = NO_ID;
    if (const BatchStatus_e eStatus = FindVariable(sName, true, nId); eStatus != BatchOk)
        return eStatus;
    // The first length of the arrows goes by the size of what is shown.
    for (const ISelectable* const pSelectable : Shown())
        for (IDrawable* const pDrawable : pSelectable->drawables())
            pDrawable->build();
    VariableChoice::Show(Shown(), RoleVector, nId);
    return BatchOk;
}
