#pragma once

#include "data/variables/expressionvariable.h"
#include "data/variables/variablemanager.h"
#include "frame/novalue.h"
#include "modules/plot3d/ui/plot3dmodule.h"
#include "simulation/simulationcases.h"
#include "tests/modules/plot3d/plot3dcasetest.h"
#include "tests/support/casewindow.h"
#include "tests/support/everysetting.h"
#include "view/annotations/annotationcolormap.h"
#include "view/selectables/selectablefactory.h"
#include "view/selectables/surfaceitems.h"

#include <gtest/gtest.h>

/** Cases with a display, of the module and the selectables of the program. The window is there from
 * OpenWindow on. */
class ShownCase : public Plot3DCaseTest
{
protected:
    ShownCase() { QDir().mkpath(Path("data")); }
    ~ShownCase() override
    {
        CSimulationManager::Instance().RemoveAllViews();
        m_pWindow.reset();
    }

    void OpenWindow() { m_pWindow = std::make_unique<CCaseWindow>(); }

    /** Two levels, functions and boundaries, in the folder "data" beside where cases are saved. */
    void WriteData()
    {
        Write("data/wing.x", 2, KindGrid);
        Write("data/flow1.q", 49, KindQ);
        Write("data/flow2.q", 49, KindQ);
        Write("data/wing.f", 53, KindFunction);
        WriteText("data/wing.fvbnd", "FVBND 1 4\nwall\nBOUNDARIES\n1 3 1 1 1 $ 1 $\n1 2 1 1 1 $ 1 $\n");
    }
    CPlot3DSimulation* OpenData()
    {
        WriteData();
        return Simulation(
            m_module.OpenPlot3D({Path("data/wing.x"), Path("data/flow1.q"), Path("data/wing.f")}, VIEW));
    }
    static CPlot3DSimulation* Simulation(qint64 nId)
    {
        return static_cast<CPlot3DSimulation*>(CSimulationManager::Instance().GetSimulation(nId));
    }
    static qint64 Variable(const ISimulation& simulation, const char* sName)
    {
        return CVariableManager::Instance().FindByName(simulation.GetId(), sName, LocationNode);
    }
    static ISelectable* Shown(const ISimulation& simulation, qint64 nItemId)
    {
        return CSelectableManager::Instance().Find(VIEW, simulation.GetId(), nItemId);
    }
    /** Everything that can be set of one item is set to what it isn't at first; nAxis sets items apart. */
    static void SetAll(ISelectable& item, const ISimulation& simulation, int n)
    {
        const SShownVariables variables{Variable(simulation, n % 2 ? "P[Q]" : "F1.2"),
                                        Variable(simulation, "Momentum"), Variable(simulation, "RU")};
        for (IDrawable* const p : item.drawables()) {
            SetEverySetting(*p, variables, n);
            p->setDrawOutlines(n % 2);
            p->setDrawNodes(true);
        }
        CAnnotationColormap& legend = *item.annotationColormap();
        SLegendSettings settings = legend.settings();
        settings.title.sText = QString("Title %1").arg(n);
        settings.title.color = QColor(1, 2, 3);
        settings.nLabelCount = 4 + n;
        settings.nDigits = 2;
        legend.setSettings(settings);
        legend.setVisible(true);
        legend.setPosition({20 * n, 30});
        item.setSelected(n % 2);
        item.setVisible(n != 2);
    }
    /** A case in which nothing is as at first: surfaces, a formula, levels, mirror, sectors, camera. */
    CPlot3DSimulation* OpenWing()
    {
        CPlot3DSimulation* const pWing = OpenData();
        auto* const pFormula = new CExpressionVariable(pWing->GetId(), true);
        pFormula->SetName("twice");
        pFormula->SetScope(CVariableManager::Instance().ListVariables(pWing->GetId(), false));
        EXPECT_TRUE(pFormula->SetExpression("2 * <P[Q]>", false, true));
        for (const qint64 nBlock : {1, 3}) {
            SSurfacePlane plane = FacePlane(pWing->GetItem(nBlock)->GetSize(), 0);
            plane.constants.i = 2;
            CreateSurfaceItem(*pWing, nBlock, plane);
        }
        int n = 0;
        for (ISelectable* const p : CSelectableManager::Instance().GetSelectables(VIEW, pWing->GetId()))
            SetAll(*p, *pWing, ++n);
        CSimulationManager& manager = CSimulationManager::Instance();
        manager.SetTime(VIEW, pWing->GetId(), 2.0);
        manager.SetRotationCentre(VIEW, pWing->GetId(), {0.5, -1.5, 2.0});
        manager.SetMirror(VIEW, pWing->GetId(), {{false, true, false}, {0.0, -7.0, 0.0}});
        manager.SetSectors(VIEW, pWing->GetId(), {{false, false, true}, {1, 1, 3}});
        if (m_pWindow) {
            m_pWindow->m_view.m_camera.view.rotate(40.0F, 1.0F, 1.0F, 0.0F);
            m_pWindow->m_view.m_camera.viewCenter = {3.0, 4.0};
            m_pWindow->m_view.m_camera.viewSize = {200.0, 100.0};
            m_pWindow->m_view.m_camera.rotationPoint = {1.0, 2.0, 3.0};
        }
        return pWing;
    }
    void CloseAll() { CSimulationManager::Instance().RemoveAllViews(); }
    QStringList DisplayFiles() const
    {
        return QDir(Path("data")).entryList({"*.disp"}, QDir::Files, QDir::Name);
    }

    CSelectableFactory m_factory; // in place of the plain ones of the base
    CSimulationCases m_cases;
    CPlot3DModule m_module;
    std::unique_ptr<CCaseWindow> m_pWindow; // null: a run without one
};
