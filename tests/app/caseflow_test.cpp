// A case on its way through the whole program: opened from data, shown, saved, closed, opened again. With
// OpenGL the view looks the same before and after; without it that is skipped.
#include "frame/moduleregistry.h"
#include "modules/plot3d/ui/plot3dmodule.h"
#include "scene/iselectable.h"
#include "scene/selectablemanager.h"
#include "simulation/simulationcases.h"
#include "simulation/simulationmanager.h"
#include "tests/support/plot3dfile.h"
#include "tests/support/print.h"
#include "tests/support/promptscript.h"
#include "tests/support/testsettings.h"
#include "view/selectables/selectablefactory.h"
#include "view/ui/oglviewer.h"
#include "view/ui/opengldrawer.h"
#include "window/commands/windowactions.h"
#include "window/mainwindow.h"
#include "window/viewarea.h"

#include <QDir>
#include <QTabBar>
#include <QTemporaryDir>
#include <QTest>

#include <gtest/gtest.h>

namespace {

class CaseFlow : public testing::Test
{
protected:
    CaseFlow()
    {
        CModuleRegistry::Instance().SetFactory(CPlot3DModule::PLOT3D_ID,
                                               [] { return std::make_unique<CPlot3DModule>(); });
        m_pWindow = std::make_unique<CMainWindow>();
        // A sheared block, and fields over it.
        Plot3DFixture::WriteValues(Path("scene.x"), KindGrid, {{5, 4, 3}}, 3,
                                   [](int, int nAxis, const IVector3D& ijk) {
                                       return double(ijk[nAxis]) + (nAxis == 1 ? 0.3 * double(ijk.i) : 0.0);
                                   });
        Plot3DFixture::WriteValues(Path("scene.q"), KindQ, {{5, 4, 3}}, 5,
                                   [](int, int nArray, const IVector3D& ijk) {
                                       return 1.0 + 0.1 * double(nArray * ijk.i + ijk.j * ijk.k);
                                   });
    }
    ~CaseFlow() override
    {
        CSimulationManager::Instance().RemoveAllViews();
        m_pWindow.reset();
    }

    QString Path(const char* sName) const { return m_folder.filePath(sName); }
    void Trigger(ActionId_e eId) { m_pWindow->GetActions().Get(eId)->trigger(); }
    COglViewer& View() { return *m_pWindow->GetViewArea().GetOglViewer(1); }
    static ISimulation* OnTop() { return CSimulationManager::Instance().GetSimulationOfView(1); }
    /** Null without OpenGL. */
    QImage Picture()
    {
        if (QGuiApplication::platformName() == "offscreen")
            return {};
        View().GetDrawer().UpdateAll();
        QCoreApplication::processEvents();
        return View().GetDrawer().grabFramebuffer();
    }

    const CFreshPreferences m_fresh;
    QTemporaryDir m_folder;
    CSelectableFactory m_factory;
    CSimulationCases m_cases;
    std::unique_ptr<CMainWindow> m_pWindow;
};

} // namespace

TEST_F(CaseFlow, WhatWasShownIsShownAgain)
{
    m_pWindow->resize(900, 700);
    m_pWindow->show();
    QCoreApplication::processEvents();
    m_pWindow->SlotOpenSimulation(Path("scene.x"));
    ASSERT_NE(OnTop(), nullptr);
    Picture(); // the first frame fits the view
    CSelectableManager::Instance().Find(1, OnTop()->GetId(), 1)->setDisplayType(DisplayShadedWireframe);
    Trigger(ActionYPositive);
    Trigger(ActionZoomIn);
    const SCamera camera = View().GetCamera();
    const QImage picture = Picture();
    const QByteArray display = OnTop()->SaveViewState(1);
    const QJsonObject json = OnTop()->SaveViewJson(1);
    CPromptScript user;
    user.ChooseFile(Path("scene"));
    Trigger(ActionSave);

    auto* const pTabs = m_pWindow->findChild<QTabBar*>("m_pSimulationTabList");
    emit pTabs->tabCloseRequested(0);
    EXPECT_EQ(OnTop(), nullptr);
    EXPECT_EQ(QDir(m_folder.path()).entryList({"*~analyze.disp"}).size(), 1) << "the display file of closing";
    View().SetCamera(SCamera());
    Picture();
    user.ChooseFile(Path("scene.zento"));
    Trigger(ActionOpen);
    ASSERT_NE(OnTop(), nullptr);
    EXPECT_EQ(OnTop()->SaveViewState(1), display);
    EXPECT_EQ(OnTop()->GetSavedData(), OnTop()->ToBytes());
    EXPECT_EQ(pTabs->count(), 1);
    const QImage again = Picture();
    EXPECT_EQ(View().GetCamera(), camera) << "no fit on top of it";
    EXPECT_TRUE(again == picture);

    // The next time from the data, the user is asked for the display of the last time.
    emit pTabs->tabCloseRequested(0); // it is as it was saved: nothing is asked
    user.ChooseEntry(QDir(m_folder.path()).entryList({"*~analyze.disp"}, QDir::Files, QDir::Name).last());
    m_pWindow->SlotOpenSimulation(Path("scene.x"));
    EXPECT_EQ(user.AskedChoices().last().sTitle, "Select Display File");
    EXPECT_EQ(OnTop()->SaveViewJson(1), json);
    EXPECT_EQ(View().GetCamera(), camera);
    EXPECT_TRUE(Picture() == picture);
}
