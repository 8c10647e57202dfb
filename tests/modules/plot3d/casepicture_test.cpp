// A case that was saved and opened looks as before, pixel for pixel. Skipped where there is no OpenGL.
#include "tests/modules/plot3d/showncase.h"
#include "tests/support/offscreencontext.h"

#include <QJsonDocument>
#include <QPainter>

namespace {

constexpr QSize SIZE(320, 240);

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
        WriteReals("scene.x", 3, 0, [](int nBlock, int nArray, int i, int j, int k) {
            const float xyz[] = {float(i) + 4.5F * float(nBlock), float(j) + 0.3F * float(i), float(k)};
            return xyz[nArray];
        });
        WriteReals("scene.q", 5, 4, [](int nBlock, int nArray, int i, int j, int k) {
            return 1.0F + 0.1F * float(nArray * i) + 0.2F * float(j * k) + 0.3F * float(nBlock);
        });
    }
    void TearDown() override { CSimulationManager::Instance().RemoveAllViews(); }

    template <class Value> void WriteReals(const char* sName, int nArrays, int nHeader, const Value& value)
    {
        QFile file(Path(sName));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        const qint32 head[] = {2, 5, 4, 3, 5, 4, 3};
        file.write(reinterpret_cast<const char*>(head), sizeof head);
        std::vector<float> reals;
        for (int nBlock = 0; nBlock < 2; ++nBlock) {
            reals.insert(reals.end(), nHeader, 0.5F);
            for (int nArray = 0; nArray < nArrays; ++nArray)
                for (int k = 0; k < 3; ++k)
                    for (int j = 0; j < 4; ++j)
                        for (int i = 0; i < 5; ++i)
                            reals.push_back(value(nBlock, nArray, i, j, k));
        }
        file.write(reinterpret_cast<const char*>(reals.data()), qint64(reals.size() * sizeof(float)));
    }
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
                    pLegend->paint(&painter, 1.0);
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
