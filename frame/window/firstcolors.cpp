#include "frame/window/firstcolors.h"

#include "data/variables/variablemanager.h"
#include "scene/iselectable.h"
#include "scene/selectablemanager.h"
#include "view/annotations/onelegend.h"
#include "view/variablechoice.h"

namespace {

const char* const PRESSURE = "P[Q]";

bool StandsInFiles(const IVariable& variable)
{
    return variable.IsFileVariable() && variable.IsListed() && variable.GetKind() == KindScalar &&
           !variable.IsGridVariable() && !variable.IsHoleVariable();
}

qint64 FindFirstScalar(qint64 nSimulationId)
{
    const qint64 nPressure = VariableChoice::Find(nSimulationId, PRESSURE, RoleScalar);
    if (nPressure != NO_ID)
        return nPressure;
    const CVariableManager& manager = CVariableManager::Instance();
    for (const qint64 nId : manager.ListVariables(nSimulationId, false))
        if (StandsInFiles(*manager.GetVariable(nId)))
            return nId;
    return NO_ID;
}

} // namespace

void FirstColors::Show(qint64 nViewId, qint64 nSimulationId)
{
    const qint64 nId = FindFirstScalar(nSimulationId);
    if (nId == NO_ID)
        return;
    QVector<ISelectable*> subjects;
    for (ISelectable* const pSelectable :
         CSelectableManager::Instance().GetSelectables(nViewId, nSimulationId))
        if (!pSelectable->drawables().isEmpty())
            subjects.append(pSelectable);
    VariableChoice::Show(subjects, RoleScalar, nId);
    ShowOneLegend(subjects);
}
