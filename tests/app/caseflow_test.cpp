// A case on its way through the whole program: opened from data, shown, saved, closed, opened again. With
// OpenGL the view looks the same before and after; without it that is skipped.
#include "frame/applicationinfo.h"
#include "frame/moduleregistry.h"
#include "frame/preferences.h"
#include "frame/window/mainwindow.h"
#include "frame/window/viewarea.h"
#include "frame/window/windowactions.h"
#include "modules/plot3d/ui/plot3dmodule.h"
#include "scene/iselectable.h"
#include "scene/selectablemanager.h"
#include "simulation/simulationcases.h"
#include "simulation/simulationmanager.h"
#include "tests/support/print.h"
#include "tests/support/promptscript.h"
#include "view/selectables/selectablefactory.h"
#include "view/ui/oglviewer.h"
#include "view/ui/opengldrawer.h"

#include <QFile>
#include <QSettings>
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
        WriteReals("scene.x", 3, 0);
        WriteReals("scene.q", 5, 4);
    }
    ~CaseFlow() override
    {
        CSimulationManager::Instance().RemoveAllViews();
        m_pWindow.reset();
        CPreferences::Instance() = CPreferences();
        QSettings(QSettings::UserScope, ApplicationInfo::ORGANISATION, ApplicationInfo::NAME).clear();
    }

    /** A sheared block of 5 x 4 x 3 points and fields over it. */
    void WriteReals(const char* sName, int nArrays, int nHeader)
    {
        QFile file(Path(sName));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        const qint32 head[] = {1, 5, 4, 3};
        file.write(reinterpret_cast<const char*>(head), sizeof head);
        std::vector<float> reals(nHeader, 0.5F);
        for (int nArray = 0; nArray < nArrays; ++nArray)
            for (int n = 0; n < 60; ++n) {
                const int i = n % 5, j = n / 5 % 4, k = n / 20;
                const float xyz[] = {float(i), float(j) + 0.3F * float(i), float(k)};
                reals.push_back(nHeader == 0 ? xyz[nArray] : 1.0F + 0.1F * float(nArray * i + j * k));
            }
        file.write(reinterpret_cast<const char*>(reals.data()), qint64(reals.size() * sizeof(float)));
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
    m_pWindow->SlotOpenSimulation(Path("scene.zento"));
    ASSERT_NE(OnTop(), nullptr);
    EXPECT_EQ(OnTop()->SaveViewState(1), display);
    EXPECT_EQ(pTabs->count(), 1);
    const QImage again = Picture();
    EXPECT_EQ(View().GetCamera(), camera) << "no fit on top of it";
    EXPECT_TRUE(again == picture);

    // The next time from the data, the user is asked for the display of the last time.
    user.Press("Close");
    emit pTabs->tabCloseRequested(0);
    user.ChooseEntry(QDir(m_folder.path()).entryList({"*~analyze.disp"}, QDir::Files, QDir::Name).last());
    m_pWindow->SlotOpenSimulation(Path("scene.x"));
    EXPECT_EQ(user.AskedChoices().last().sTitle, "Select Display File");
    EXPECT_EQ(OnTop()->SaveViewJson(1), json);
    EXPECT_EQ(View().GetCamera(), camera);
    EXPECT_TRUE(Picture() == picture);
}
