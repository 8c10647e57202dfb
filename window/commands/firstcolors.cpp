#include "window/commands/firstcolors.h"

#include "data/variables/variablemanager.h"
#include "frame/widgetmanager.h"
#include "scene/iselectable.h"
#include "scene/selectablekind.h"
#include "scene/selectablemanager.h"
#include "simulation/isimulation.h"
#include "simulation/item.h"
#include "simulation/simulationmanager.h"
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

qint64 CountPoints(qint64 nSimulationId)
{
    qint64 nPoints = 0;
    const ISimulation* const pSimulation = CSimulationManager::Instance().GetSimulation(nSimulationId);
    for (const CItem* const pBlock : pSimulation ? pSimulation->GetBlocks() : QVector<CItem*>())
        nPoints += pBlock->GetPointCount();
    return nPoints;
}

/** Colours the items over the range of what they show: only that is read. */
void ShowOverShownRange(const QVector<ISelectable*>& subjects, qint64 nId)
{
    SValueRange range;
    for (ISelectable* const pSubject : subjects) {
        pSubject->setScalarVariable(nId);
        pSubject->setGeometricColor(false);
        for (IDrawable* const pDrawable : pSubject->drawables()) {
            pDrawable->build();
            if (const SColormapRecord shown = pDrawable->colormap(); shown.HasLocalRange())
                range.Add({shown.dLocalMinimum, shown.dLocalMaximum});
        }
    }
    if (range.IsEmpty())
        return;
    for (ISelectable* const pSubject : subjects)
        pSubject->setColormapValues(range.dMin, range.dMax);
    CWidgetManager::Instance().SetStatusText(
        "The colours span what is shown; \"Set Global Range\" reads all of the case");
}

} // namespace

void FirstColors::Show(qint64 nViewId, qint64 nSimulationId, qint64 nMostPoints)
{
    const qint64 nId = FindFirstScalar(nSimulationId);
    if (nId == NO_ID)
        return;
    QVector<ISelectable*> subjects;
    for (ISelectable* const pSelectable :
         CSelectableManager::Instance().GetSelectables(nViewId, nSimulationId))
        if (!pSelectable->drawables().isEmpty())
            subjects.append(pSelectable);
    if (CountPoints(nSimulationId) <= nMostPoints)
        VariableChoice::Show(subjects, RoleScalar, nId);
    else
        ShowOverShownRange(subjects, nId);
    ShowOneLegend(subjects);
}
