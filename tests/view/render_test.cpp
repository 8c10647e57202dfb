// Pictures of small scenes. Skipped where there is no OpenGL.
#include "frame/novalue.h"
#include "frame/preferencekeys.h"
#include "frame/preferences.h"
#include "tests/support/offscreencontext.h"
#include "tests/support/testsimulation.h"
#include "tests/support/testsurface.h"
#include "view/colormaps/colormaptables.h"

#include <gtest/gtest.h>

#include <cmath>

namespace {

constexpr qint64 VIEW = 1;
constexpr int PIXELS = 100;         // each way
constexpr double HALF_WIDTH = 1.25; // so that -1 to 1 takes the pixels 10 to 90
constexpr int TOLERANCE = 8;        // of a colour
const QColor BACKGROUND(0, 0, 0), NAN_COLOR(255, 102, 178);

/** Elements with values, thresholds (variable 2) and vectors (variable 3) that a test gives. */
class CColouredSurface : public CTestSurface
{
public:
    using CTestSurface::CTestSurface;
    std::vector<double> m_values;

protected:
    bool ReadValues(qint64, std::span<double> values) override
    {
        std::copy(m_values.begin(), m_values.end(), values.begin());
        return !m_values.empty();
    }
    bool ReadVectors(qint64, std::span<DVector3D> vectors) override
    {
        for (std::size_t n = 0; n < vectors.size(); ++n)
            vectors[n] = {100.0, 20.0 * double(n), 0.0};
        return true;
    }
};

template <class Key, class Value> void SetPreference(const Key& key, const Value& value)
{
    Set(CPreferences::Instance(), key, value);
    CPreferences::Instance().Apply();
    CShaderManager::Instance().InvalidateGlobalUniforms();
}

class Render : public testing::Test
{
protected:
    void SetUp() override
    {
        if (!m_context.IsValid())
            GTEST_SKIP() << "no OpenGL here";
        m_context.SetSize({PIXELS, PIXELS});
        auto* const pSimulation = new CTestSimulation;
        CSimulationManager::Instance().AddSimulation(pSimulation, VIEW);
        m_nSimulation = pSimulation->GetId();
        m_pSelectable = std::make_unique<CTestSelectable>(VIEW, m_nSimulation, 1);
    }
    void TearDown() override
    {
        m_pSurface.reset();
        CSimulationManager::Instance().RemoveAllViews();
        SetPreference(PreferenceKey::USE_DISPLAY_LISTS, false);
        SetPreference(PreferenceKey::HIGHLIGHT_OUTLINE, false);
        SetPreference(PreferenceKey::USE_OUTLINE_COLOR, true);
    }

    /** n x n elements over the square from -1 to 1, rows from left to right; coloured by its values. */
    template <class Value> CColouredSurface& Square(int n, const Value& value)
    {
        m_pSurface = std::make_unique<CColouredSurface>(
            m_nSimulation, VIEW, SSurfaceSize{n, n}, [n](qint64 r, qint64 c) {
                return DVector3D{-1.0 + 2.0 * double(r) / (n - 1), -1.0 + 2.0 * double(c) / (n - 1), 0.0};
            });
        for (int r = 0; r < n; ++r)
            for (int c = 0; c < n; ++c)
                m_pSurface->m_values.push_back(value(r, c));
        m_pSurface->addOwner(m_pSelectable.get());
        m_pSurface->setScalarVariable(1);
        m_pSurface->setGeometricColor(false);
        m_pSurface->setColormapType(0);
        m_pSurface->setColormapValues(0.0, n - 1);
        m_pSurface->setDisplayType(DisplayShaded);
        return *m_pSurface;
    }
    CColouredSurface& Ramp(int n)
    {
        return Square(n, [](int r, int) { return double(r); });
    }

    void Draw()
    {
        m_context.Clear();
        SFrameSettings frame;
        frame.nViewId = VIEW;
        frame.dLeft = frame.dBottom = -HALF_WIDTH;
        frame.dRight = frame.dTop = HALF_WIDTH;
        frame.viewport = {PIXELS, PIXELS};
        m_context.Renderer().Render(frame);
        m_image = m_context.Image();
    }
    /** At a place of the square. */
    QColor At(double x, double y) const
    {
        return m_image.pixelColor(int((x + HALF_WIDTH) / (2.0 * HALF_WIDTH) * PIXELS),
                                  int((HALF_WIDTH - y) / (2.0 * HALF_WIDTH) * PIXELS));
    }
    void ExpectColor(double x, double y, const QColor& expected) const
    {
        const QColor got = At(x, y);
        EXPECT_TRUE(std::abs(got.red() - expected.red()) <= TOLERANCE &&
                    std::abs(got.green() - expected.green()) <= TOLERANCE &&
                    std::abs(got.blue() - expected.blue()) <= TOLERANCE)
            << "at " << x << ", " << y << ": " << got.name().toStdString() << " in place of "
            << expected.name().toStdString();
    }
    bool HasColor(const QColor& color) const
    {
        for (int y = 0; y < PIXELS; ++y)
            for (int x = 0; x < PIXELS; ++x)
                if (m_image.pixelColor(x, y).rgb() == color.rgb())
                    return true;
        return false;
    }
    static QColor MapColor(int nTexel)
    {
        const auto* const p =
            reinterpret_cast<const uchar*>(FindColormap(0)->texels.constData()) + 3 * nTexel;
        return {p[0], p[1], p[2]};
    }

    COffscreenContext m_context;
    qint64 m_nSimulation = -1;
    std::unique_ptr<CTestSelectable> m_pSelectable;
    std::unique_ptr<CColouredSurface> m_pSurface;
    QImage m_image;
};

} // namespace

TEST_F(Render, ValuesTakeTheirPlaceInTheColormap)
{
    CSurface& surface = Ramp(5);
    surface.setColormapValues(1.0, 3.0); // the outer columns lie beyond its ends
    Draw();
    ExpectColor(-0.9, 0.3, MapColor(0));
    ExpectColor(0.0, 0.3, MapColor(512));
    ExpectColor(0.9, 0.3, MapColor(1023));
    ExpectColor(1.1, 0.0, BACKGROUND);
}

TEST_F(Render, WhatHasNoValueTakesTheNanColour)
{
    for (const double dNoValue : {NO_VALUE, std::nan(""), double(INFINITY), 1e31}) {
        Square(5, [dNoValue](int r, int c) { return r == 2 && c == 2 ? dNoValue : 4.0; });
        Draw();
        ExpectColor(0.03, 0.03, NAN_COLOR);
        ExpectColor(0.2, 0.03, NAN_COLOR);
        ExpectColor(0.8, 0.8, MapColor(1023));
    }
}

TEST_F(Render, ASingularCellHasFullBrightness)
{
    SetPreference(PreferenceKey::USE_OUTLINE_COLOR, false); // all of its elements are at the edge
    // A cell with B in the place of C: neither triangle of the normal has an area, those that are drawn have.
    const auto draw = [this](double x) {
        const DVector3D corners[] = {{-1, -1, -4}, {x, -1, 4}, {1, -1, 4}, {1, 1, 4}}; // rows of two
        m_pSurface = std::make_unique<CColouredSurface>(
            m_nSimulation, VIEW, SSurfaceSize{2, 2}, [&](qint64 r, qint64 c) { return corners[2 * r + c]; });
        m_pSurface->setDisplayType(DisplayShaded);
        m_pSurface->setShadeColor(QColor(200, 200, 200));
        Draw();
        return At(0.5, -0.5).red();
    };
    EXPECT_LT(draw(0.9), 170); // steep: darker
    EXPECT_NEAR(draw(1.0), 200, TOLERANCE);
}

TEST_F(Render, AThresholdAndHolesCutTheSurface)
{
    CColouredSurface& surface = Ramp(5); // the threshold reads the same values
    surface.setThresholdVariable(2);
    surface.setThresholdRange({1.0, 3.0});
    surface.setThresholdEnable(true);
    Draw();
    ExpectColor(-0.6, 0.3, BACKGROUND);
    EXPECT_NE(At(0.0, 0.3), BACKGROUND);
    ExpectColor(0.6, 0.3, BACKGROUND);

    surface.setThresholdEnable(false);
    surface.m_mask.assign(25, 1.0);
    surface.m_mask[2 * 5 + 2] = 0.0; // the middle
    surface.invalidateAll();
    Draw();
    ExpectColor(0.05, 0.05, BACKGROUND);
    ExpectColor(0.2, 0.2, BACKGROUND);
    EXPECT_NE(At(0.7, 0.3), BACKGROUND);
    surface.setShowHoles(false);
    Draw();
    EXPECT_NE(At(0.05, 0.05), BACKGROUND);
}

TEST_F(Render, ContoursStopAtHolesAndThresholds)
{
    CColouredSurface& surface = Ramp(5);
    surface.setContourCount(8); // levels at each half
    surface.setDisplayType(DisplayContour);
    surface.m_mask.assign(25, 1.0);
    surface.m_mask[3 * 5 + 4] = 0.0;
    surface.invalidateAll();
    Draw();
    EXPECT_NE(At(-0.75, -0.3), BACKGROUND);
    EXPECT_NE(At(0.75, -0.3), BACKGROUND);
    ExpectColor(0.75, 0.8, BACKGROUND);
    ExpectColor(-0.62, 0.3, BACKGROUND);
    surface.setThresholdVariable(2);
    surface.setThresholdRange({2.0, 4.0});
    surface.setThresholdEnable(true);
    Draw();
    ExpectColor(-0.75, -0.3, BACKGROUND);
    EXPECT_NE(At(0.75, -0.3), BACKGROUND);
}

TEST_F(Render, ArrowsFollowTheScalarAndTheThreshold)
{
    CColouredSurface& surface = Square(5, [](int, int) { return 0.0; });
    surface.setVectorVariable(3);
    Draw();
    ASSERT_TRUE(HasColor(MapColor(0)));
    surface.m_values.assign(25, 4.0);
    surface.setScalarVariable(4);
    Draw();
    EXPECT_FALSE(HasColor(MapColor(0)));
    surface.setThresholdVariable(2);
    surface.setThresholdRange({0.0, 1.0});
    surface.setThresholdEnable(true);
    Draw();
    EXPECT_FALSE(HasColor(MapColor(1023)));
}

TEST_F(Render, WhatIsSelectedShowsInItsColour)
{
    const SDrawPreferences& draw = CPreferences::Instance().Draw();
    CSurface& surface = Ramp(5);
    for (const DisplayType_e eType : {DisplayShaded, DisplayWireframe, DisplayOutline}) {
        surface.setDisplayType(eType);
        m_pSelectable->setSelected(true);
        Draw();
        ExpectColor(-1.0, 0.3, draw.selectColor);
        m_pSelectable->setHover(true); // goes ahead
        Draw();
        ExpectColor(-1.0, 0.3, draw.highlightColor);
        m_pSelectable->setSelected(false);
        m_pSelectable->setHover(false);
        Draw();
        EXPECT_NE(At(-1.0, 0.3).rgb(), draw.highlightColor.rgb());
        EXPECT_FALSE(HasColor(draw.selectColor));
    }
}

TEST_F(Render, TheSilhouetteIsThreePixelsWide)
{
    SetPreference(PreferenceKey::HIGHLIGHT_OUTLINE, true);
    const SDrawPreferences& draw = CPreferences::Instance().Draw();
    Ramp(5);
    Draw();
    const QRgb within = m_image.pixel(12, 50);
    m_pSelectable->setSelected(true);
    Draw();
    for (const int nPixel : {7, 8, 9})
        EXPECT_EQ(m_image.pixelColor(nPixel, 50).rgb(), draw.selectColor.rgb()) << nPixel;
    EXPECT_EQ(m_image.pixelColor(6, 50).rgb(), BACKGROUND.rgb());
    EXPECT_EQ(m_image.pixel(12, 50), within);
    EXPECT_EQ(m_image.pixelColor(7, 7).rgb(), BACKGROUND.rgb()); // 3 * sqrt(2) from the corner
    EXPECT_EQ(m_image.pixelColor(8, 8).rgb(), draw.selectColor.rgb());
}

TEST_F(Render, DisplayListsDrawTheSamePicture)
{
    CColouredSurface& surface = Ramp(6);
    surface.m_mask.assign(36, 1.0);
    surface.m_mask[14] = 0.0;
    surface.setThresholdVariable(2);
    surface.setThresholdRange({0.0, 4.5});
    surface.setVectorVariable(3);
    const auto compare = [this](const std::string& sWhat) {
        SetPreference(PreferenceKey::USE_DISPLAY_LISTS, false);
        Draw();
        const QImage buffers = m_image;
        SetPreference(PreferenceKey::USE_DISPLAY_LISTS, true);
        Draw();
        EXPECT_EQ(m_image, buffers) << sWhat;
        Draw();
        EXPECT_EQ(m_image, buffers) << sWhat << ", second frame";
    };
    for (int nType = DisplayOutline; nType <= DisplayVector; ++nType) {
        surface.setDisplayType(DisplayType_e(nType));
        compare("type " + std::to_string(nType));
    }
    surface.setDisplayType(DisplayShaded);
    surface.setDrawContours(true); // after the list of the surface in one frame
    surface.setNodeVisible(true);
    surface.invalidateAll();
    compare("all at once");
    EXPECT_TRUE(HasColor(MapColor(0)) || HasColor(MapColor(1023)));

    surface.m_values.assign(36, 2.0); // with lists on
    surface.setScalarVariable(4);
    surface.setThresholdEnable(true);
    Draw();
    const QImage lists = m_image;
    compare("after a change");
    EXPECT_EQ(lists, m_image);
}
