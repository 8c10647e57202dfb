// Displays of any bytes, as bytes and as JSON, shown in a case of blocks with a surface and a boundary: the
// case stays whole, and what it shows then is a display that it can be shown as again.
#include "cases/display/displaydocument.h"
#include "data/cases/casedata.h"
#include "modules/plot3d/plot3dsimulation.h"
#include "scene/selectablekind.h"
#include "scene/selectablemanager.h"
#include "simulation/item.h"
#include "simulation/simulationcases.h"
#include "simulation/simulationmanager.h"
#include "view/selectables/selectablefactory.h"
#include "view/selectables/surfaceitems.h"

#include <QGuiApplication>

#include <cstdlib>

namespace {

constexpr qint64 VIEW = 1;

void Require(bool bHolds)
{
    if (!bHolds)
        std::abort();
}

CItem& Make(CPlot3DSimulation& simulation, qint64 nKind, qint64 nParent, const char* sName)
{
    CItem& item = *simulation.CreateItem(nKind, 0, true, simulation.GetItemCount(), -1, 0);
    item.SetName(sName, 0);
    if (nKind == KindBlock) {
        item.SetSize({5, 4, 3});
        item.SetGridType(1);
    } else {
        item.SetParentId(nParent, true);
    }
    return item;
}

CPlot3DSimulation& MakeCase()
{
    auto* const pSimulation = new CPlot3DSimulation(1);
    CSimulationManager::Instance().AddSimulation(pSimulation, VIEW);
    Make(*pSimulation, KindBlock, -1, "Block 1");
    Make(*pSimulation, KindBlock, -1, "Block 2");
    Definitions::ToPack(FacePlane({5, 4, 3}, 2), Make(*pSimulation, KindSurface, 1, "Surface"));
    Definitions::ToPack(FacePlane({5, 4, 3}, 0), Make(*pSimulation, KindBoundarySurface, 1, "wall"));
    pSimulation->CreateDefaultSelectables(VIEW);
    return *pSimulation;
}

} // namespace

// Qt 5.15's parser doesn't free what it has built of a broken document, nor the font library its tables.
extern "C" const char* __lsan_default_suppressions() { return "leak:libQt5Core\nleak:libfontconfig"; }

extern "C" int LLVMFuzzerInitialize(int* pCount, char*** pArguments)
{
    qputenv("QT_QPA_PLATFORM", "offscreen"); // legends have fonts
    new QGuiApplication(*pCount, *pArguments);
    new CSimulationCases;
    new CSelectableFactory;
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* pData, size_t nSize)
{
    if (nSize == 0)
        return 0;
    const QByteArray bytes(reinterpret_cast<const char*>(pData) + 1, int(nSize) - 1);
    CPlot3DSimulation& simulation = MakeCase();
    if (pData[0] & 1) {
        SDisplayDocument document;
        if (document.FromBytes(bytes) == StoredOk)
            simulation.LoadViewJson(document.display, VIEW, 1.0);
    } else {
        simulation.LoadViewState(bytes, VIEW, pData[0] & 2 ? -1.0 : 1.0);
    }
    Require(simulation.GetItems(KindBlock).size() == 2);
    for (const CItem* const pItem : simulation.GetItems())
        Require(pItem->GetType() == KindBlock || simulation.GetItem(pItem->GetParentId()));
    const QByteArray state = simulation.SaveViewState(VIEW);
    Require(simulation.LoadViewState(state, VIEW, 1.0));
    simulation.LoadViewJson(simulation.SaveViewJson(VIEW), VIEW, 1.0);
    CSimulationManager::Instance().RemoveAllViews();
    return 0;
}
