// A case that was saved and opened looks as before, pixel for pixel. Skipped where there is no OpenGL.
#include "frame/memory/memorymanager.h"
#include "frame/preferences/preferencekeys.h"
#include "frame/preferences/preferences.h"
#include "tests/modules/plot3d/showncase.h"
#include "tests/support/files.h"
#include "tests/support/offscreencontext.h"

#include <QFile>
#include <QJsonDocument>
#include <QPainter>
#include <QTest>

namespace {

constexpr QSize SIZE(320, 240);
const QVector<IVector3D> SIZES(2, {5, 4, 3}); // of the blocks

/** A grid of two blocks with places of their own, and fields that vary over them. */
class CasePicture : public ShownCase
{
protected:
    void SetUp() override
    {
        if (!m_context.IsValid())
            GTEST_SKIP() << "no OpenGL here";
        m_context.SetSize(SIZE);
        OpenWindow();
        Plot3DFixture::WriteValues(
            Path("scene.x"), KindGrid, SIZES, 3, [](int nBlock, int nAxis, const IVector3D& ijk) {
                const double xyz[] = {double(ijk.i) + 4.5 * nBlock, double(ijk.j) + 0.3 * double(ijk.i),
                                      double(ijk.k)};
                return xyz[nAxis];
            });
        Plot3DFixture::WriteValues(
            Path("scene.q"), KindQ, SIZES, 5, [](int nBlock, int nArray, const IVector3D& ijk) {
                return 1.0 + 0.1 * double(nArray * ijk.i) + 0.2 * double(ijk.j * ijk.k) + 0.3 * nBlock;
            });
    }
    void TearDown() override { CSimulationManager::Instance().RemoveAllViews(); }

    CPlot3DSimulation* OpenScene()
    {
        CPlot3DSimulation* const pScene =
            Simulation(m_module.OpenPlot3D({Path("scene.x"), Path("scene.q")}, VIEW));
        for (const qint64 nBlock : {1, 2}) {
            SSurfacePlane plane = FacePlane({5, 4, 3}, 2);
            plane.constants.j = 3;
            CreateSurfaceItem(*pScene, nBlock, plane);
        }
        int n = 0;
        for (ISelectable* const p : CSelectableManager::Instance().GetSelectables(VIEW, pScene->GetId())) {
            p->setScalarVariable(Variable(*pScene, n % 2 ? "P[Q]" : "RU"));
            p->setVectorVariable(Variable(*pScene, "Momentum"));
            p->setDisplayType(
                std::array{DisplayShaded, DisplayContour, DisplayVector, DisplayShadedWireframe}[n]);
            p->setGeometricColor(n == 3);
            p->setColormapType(n);
            p->setColormapValues(1.0, 2.0 + n);
            p->setShadeColor(QColor(200, 40 * n, 90));
            p->setVectorBodyScale(0.4);
            p->setAlphaValue(n == 0 ? 0.6 : 1.0);
            p->setSelected(n == 1);
            ++n;
        }
        CAnnotationColormap& legend = *Shown(*pScene, 1)->annotationColormap();
        legend.setVisible(true);
        legend.setPosition({180, 20});
        CSimulationManager::Instance().SetMirror(VIEW, pScene->GetId(),
                                                 {{false, true, false}, {0.0, -1.0, 0.0}});
        return pScene;
    }
    QImage Draw()
    {
        m_context.Clear();
        SFrameSettings frame;
        frame.nViewId = VIEW;
        QMatrix4x4 view;
        view.rotate(35.0F, 1.0F, 0.5F, 0.2F);
        frame.view = DMatrix4x4::FromFloat(view);
        frame.dLeft = -4.0;
        frame.dRight = 12.0;
        frame.dBottom = -8.0;
        frame.dTop = 4.0;
        frame.viewport = SIZE;
        m_context.Renderer().Render(frame);
        QImage image = m_context.Image().convertToFormat(QImage::Format_ARGB32);
        QPainter painter(&image);
        for (const qint64 nSimulation : CSimulationManager::Instance().GetSimulationIds(VIEW))
            for (ISelectable* const p : CSelectableManager::Instance().GetSelectables(VIEW, nSimulation))
                if (CAnnotationColormap* const pLegend = p->annotationColormap();
                    pLegend && pLegend->isVisible())
                    pLegend->paint(&painter, {SIZE});
        return image;
    }
    static int CountColors(const QImage& image)
    {
        QSet<QRgb> colors;
        for (int y = 0; y < image.height(); ++y)
            for (int x = 0; x < image.width(); ++x)
                colors.insert(image.pixel(x, y));
        return colors.size();
    }

    COffscreenContext m_context;
};

} // namespace

TEST_F(CasePicture, IsTheSameAfterSavingAndOpening)
{
    CPlot3DSimulation* const pScene = OpenScene();
    const QImage before = Draw();
    EXPECT_GT(CountColors(before), 100) << "nothing to see";
    ASSERT_TRUE(m_module.Save(Path("scene.zento"), pScene->GetId()));
    const QJsonObject json = pScene->SaveViewJson(VIEW);
    CSimulationManager::Instance().RemoveAllViews();
    CPlot3DSimulation* const pAgain = Simulation(m_module.Open(Path("scene.zento"), -1));
    ASSERT_NE(pAgain, nullptr);
    EXPECT_TRUE(Draw() == before);

    // The same through text, onto the case as it opens from its data.
    CSimulationManager::Instance().RemoveAllViews();
    CPlot3DSimulation* const pFresh =
        Simulation(m_module.OpenPlot3D({Path("scene.x"), Path("scene.q")}, VIEW));
    CSimulationManager::Instance().SetMirror(VIEW, pFresh->GetId(), {{false, true, false}, {0.0, -1.0, 0.0}});
    EXPECT_FALSE(Draw() == before);
    ASSERT_TRUE(
        pFresh->LoadViewJson(QJsonDocument::fromJson(QJsonDocument(json).toJson()).object(), VIEW, 1.0));
    EXPECT_TRUE(Draw() == before);
}

TEST_F(CasePicture, ASelectionShowsAsThePreferencesAllow)
{
    const CPlot3DSimulation* const pScene = OpenScene();
    CPreferences& preferences = CPreferences::Instance();
    for (const bool bOutline : {false, true})
        for (const bool bOnItems : {false, true}) {
            Set(preferences, PreferenceKey::HIGHLIGHT_OUTLINE, bOutline);
            Set(preferences, PreferenceKey::HIGHLIGHT_IN_ANALYZE, bOnItems);
            preferences.Apply();
            for (const qint64 nItem : pScene->GetItemIds())
                Shown(*pScene, nItem)->setSelected(false);
            const QImage unselected = Draw();
            Shown(*pScene, 1)->setSelected(true);
            EXPECT_EQ(Draw() == unselected, !bOutline && !bOnItems) << bOutline << bOnItems;
        }
    preferences = CPreferences();
}

TEST_F(CasePicture, WhatCantBeReadHasNoColoursAndIsBackWithItsFile)
{
    const CPlot3DSimulation* const pScene = OpenScene();
    const QImage before = Draw();
    const QByteArray bytes = Files::Read(Path("scene.q"));
    const auto redraw = [&] {
        for (ISelectable* const p : CSelectableManager::Instance().GetSelectables(VIEW, pScene->GetId()))
            for (IDrawable* const pDrawable : p->drawables())
                pDrawable->invalidateValues();
        return Draw();
    };
    for (const int nBytes : {0, 1000}) {
        CMemoryManager::Instance().FreeAll();
        QFile::remove(Path("scene.q"));
        if (nBytes > 0)
            Files::Write(Path("scene.q"), bytes.left(nBytes));
        EXPECT_FALSE(redraw() == before);
        for (const IDrawable* const pDrawable : Shown(*pScene, 1)->drawables())
            EXPECT_GT(pDrawable->colormap().dLocalMinimum, pDrawable->colormap().dLocalMaximum) << "no range";
        Files::Write(Path("scene.q"), bytes);
        QTest::qWait(600); // a frame doesn't look at files more often
        EXPECT_TRUE(Draw() == before);
    }
}
