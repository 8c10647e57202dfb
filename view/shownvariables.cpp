#include "view/shownvariables.h"

#include "data/variables/variablemanager.h"
#include "scene/drawablemanager.h"
#include "scene/idrawable.h"
#include "simulation/simulationmanager.h"
#include "view/redrawviews.h"

namespace {

/** Calls the function with every drawable of every case, and redraws the cases of which it gives true. */
template <class Function> void ForEachDrawable(const Function& function)
{
    const CSimulationManager& manager = CSimulationManager::Instance();
    for (const qint64 nSimulationId : manager.GetSimulationIds()) {
        bool bChanged = false;
        for (const qint64 nViewId : manager.GetViewIds(nSimulationId))
            for (IDrawable* const pDrawable :
                 CDrawableManager::Instance().GetDrawables(nViewId, nSimulationId))
                bChanged |= function(*pDrawable);
        if (bChanged)
            RedrawViews(nSimulationId);
    }
}

} // namespace

CShownVariables::CShownVariables() { CVariableManager::Instance().AddListener(this); }
CShownVariables::~CShownVariables() { CVariableManager::Instance().RemoveListener(this); }

void CShownVariables::VariableChanged(qint64 nVariableId)
{
    ForEachDrawable([nVariableId](IDrawable& drawable) {
        const bool bScalar = drawable.scalarVariable() == nVariableId;
        const bool bVector = drawable.vectorVariable() == nVariableId;
        const bool bThreshold = drawable.thresholdVariable() == nVariableId;
        if (bScalar) {
            drawable.invalidateValues();
            drawable.invalidateContours();
        }
        if (bVector)
            drawable.invalidateVectors();
        if (bThreshold)
            drawable.invalidateThresholds();
        return bScalar || bVector || bThreshold;
    });
}

void CShownVariables::VariableRemoved(qint64 nVariableId)
{
    ForEachDrawable([nVariableId](IDrawable& drawable) {
        bool bChanged = false;
        if (drawable.scalarVariable() == nVariableId) {
            drawable.setScalarVariable(-1);
            drawable.setGeometricColor(true);
            bChanged = true;
        }
        if (drawable.vectorVariable() == nVariableId) {
            drawable.setVectorVariable(-1);
            bChanged = true;
        }
        if (drawable.thresholdVariable() == nVariableId) {
            drawable.setThresholdVariable(-1);
            drawable.setThresholdEnable(false);
            bChanged = true;
        }
        // Contours or arrows of nothing show nothing.
        const DisplayType_e eType = drawable.displayType();
        if (bChanged && (eType == DisplayContour || eType == DisplayVector))
            drawable.setDisplayType(DisplayShaded);
        return bChanged;
    });
}
