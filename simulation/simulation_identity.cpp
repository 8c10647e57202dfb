// ISimulationIdentity: the name, of which the window hears through the manager.
#include "simulation/isimulationidentity.h"
#include "simulation/simulationmanager.h"

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
