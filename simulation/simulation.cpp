// ISimulation: the name, time, selectables and the run.
#include "frame/novalue.h"
#include "runs/process.h"
#include "scene/iselectable.h"
#include "simulation/isimulation.h"
#include "simulation/item.h"
#include "simulation/itemkeys.h"
#include "simulation/simulationmanager.h"

#include <QDir>
#include <QFileInfo>

void ISimulationIdentity::SetName(const QString& sName)
{
    if (sName == GetName())
        return;
    Set(*this, SimulationKey::NAME, sName);
    CSimulationManager::Instance().SlotSimulationNameChanged(GetId());
}

QString ISimulationIdentity::GetName() const { return Get(*this, SimulationKey::NAME); }

void ISimulationIdentity::SetToolTip(const QString& sToolTip)
{
    Set(*this, SimulationKey::TOOL_TIP, sToolTip);
}

QString ISimulationIdentity::GetToolTip() const
{
    return GetString(SimulationKey::TOOL_TIP.sPath, GetName());
}

ISimulation::ISimulation(qint64 nModuleId) : ISimulationItems(nModuleId) {}
ISimulation::~ISimulation() = default;

void ISimulation::InsertTime(double dTime, qint64 nStep, qint64 nFirst, qint64 nLast)
{
    m_times.Insert(dTime, nStep, nFirst, nLast);
}

void ISimulation::AddTime(double dTime, qint64 nStep)
{
    if (dTime != STEADY_TIME)
        InsertTime(dTime, nStep, 0, GetTimeCount() - 1);
}

void ISimulation::SetSelectableDimension(ISelectable* pSelectable) const
{
    const CItem* const pItem = GetItem(pSelectable->itemId());
    pSelectable->setDimension(pItem && Get(*pItem, ItemKey::IS_2D) ? 1 : 2);
}

SReferenceState ISimulation::GetReferenceState() const
{
    SReferenceState reference;
    reference.dGamma = GetGamma();
    reference.dGasConstant = GetGasConstant();
    reference.dPressure = GetFreeStreamPressure();
    reference.dDensity = GetFreeStreamDensity();
    reference.dVelocity = GetFreeStreamVelocity();
    reference.bGasAssumed = GasPropertiesAssumed();
    reference.bFreeStreamAssumed = FreeStreamAssumed();
    return reference;
}

void ISimulation::CreateConservativeVariables(const QString& sPrefix)
{
    ::CreateConservativeVariables(GetId(), sPrefix, GetReferenceState());
}

void ISimulation::CreateMeanflowVariables() { ::CreateMeanflowVariables(GetId(), GetReferenceState()); }

CProcess* ISimulation::GetProcess() const { return CSimulationManager::Instance().GetProcess(GetId()); }

bool ISimulation::IsProcessRunning() const
{
    const CProcess* const pProcess = GetProcess();
    return pProcess && pProcess->IsRunning();
}

bool ISimulation::StopProcess()
{
    if (!IsProcessRunning())
        return false;
    GetProcess()->Kill();
    return true;
}

QString ISimulation::GetWorkingDirectory() const
{
    const QString sDirectory = Get(*this, SimulationKey::WORKING_DIRECTORY);
    if (!sDirectory.isEmpty() && QDir(sDirectory).exists())
        return sDirectory;
    const QString sFileDirectory =
        GetFilePath().isEmpty() ? QString() : QFileInfo(GetFilePath()).absolutePath();
    return !sFileDirectory.isEmpty() && QDir(sFileDirectory).exists() ? sFileDirectory : QString();
}
