#pragma once

#include "frame/novalue.h"
#include "frame/preferences/preferencekeys.h"
#include "frame/preferences/preferences.h"
#include "tests/support/offscreencontext.h"
#include "tests/support/testsimulation.h"
#include "tests/support/testsurface.h"
#include "view/colormaps/colormaptables.h"
#include "view/pick/viewpicker.h"

#include <gtest/gtest.h>

#include <cmath>
#include <deque>

inline constexpr qint64 VIEW = 1;
inline constexpr int PIXELS = 100;         // each way
inline constexpr double HALF_WIDTH = 1.25; // so that -1 to 1 takes the pixels 10 to 90
inline constexpr int TOLERANCE = 8;        // of a colour
inline const QColor BACKGROUND(0, 0, 0), NAN_COLOR(255, 102, 178);

/** Elements with values, thresholds (variable 2) and vectors (variable 3) that a test gives. */
class CColouredSurface : public CTestSurface
{
public:
    using CTestSurface::CTestSurface;
    std::vector<double> m_values;
    std::optional<DVector3D> m_vector; // of all elements

protected:
    LoadStatus_e ReadValues(qint64, std::span<double> values) override
    {
        std::copy(m_values.begin(), m_values.end(), values.begin());
        return m_values.empty() ? LoadNever : LoadOk;
    }
    LoadStatus_e ReadVectors(qint64, std::span<DVector3D> vectors) override
    {
        for (std::size_t n = 0; n < vectors.size(); ++n)
            vectors[n] = m_vector.value_or(DVector3D{100.0, 20.0 * double(n), 0.0});
        return LoadOk;
    }
};

template <class Key, class Value> void SetPreference(const Key& key, const Value& value)
{
    Set(CPreferences::Instance(), key, value);
    CPreferences::Instance().Apply();
    CShaderManager::Instance().InvalidateGlobalUniforms();
}

/** Pictures of small scenes, seen along -z. Skipped where there is no OpenGL; no test may leave an error of
 * it. */
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
        SetPreference(PreferenceKey::HIGHLIGHT_OUTLINE, false);
    }
    void TearDown() override
    {
        if (m_context.IsValid()) {
            EXPECT_EQ(glGetError(), GLenum(GL_NO_ERROR));
        }
        m_more.clear();
        m_pSurface.reset();
        CSimulationManager::Instance().RemoveAllViews();
        SetPreference(PreferenceKey::USE_DISPLAY_LISTS, false);
        SetPreference(PreferenceKey::HIGHLIGHT_OUTLINE, true);
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

    /** One more item: a shaded surface of a colour of its own. */
    template <class Place>
    CColouredSurface& Add(const SSurfaceSize& size, const QColor& color, const Place& place)
    {
        SItem& item = m_more.emplace_back();
        item.pSelectable = std::make_unique<CTestSelectable>(VIEW, m_nSimulation, qint64(m_more.size()) + 1);
        item.pSurface = std::make_unique<CColouredSurface>(m_nSimulation, VIEW, size, place);
        item.pSurface->addOwner(item.pSelectable.get());
        item.pSurface->setDisplayType(DisplayShaded);
        item.pSurface->setShadeColor(color);
        return *item.pSurface;
    }
    /** A square of one cell that faces the user. */
    CColouredSurface& AddSquare(const DVector3D& centre, double dHalf, const QColor& color)
    {
        return Add({2, 2}, color, [=](qint64 r, qint64 c) {
            return centre + DVector3D{dHalf * double(2 * r - 1), dHalf * double(2 * c - 1), 0.0};
        });
    }

    void Draw()
    {
        m_context.Clear();
        SFrameSettings frame;
        frame.nViewId = VIEW;
        frame.view = m_view;
        frame.measureLine = m_measureLine;
        frame.dLeft = m_middle.x - HALF_WIDTH;
        frame.dRight = m_middle.x + HALF_WIDTH;
        frame.dBottom = m_middle.y - HALF_WIDTH;
        frame.dTop = m_middle.y + HALF_WIDTH;
        frame.viewport = {PIXELS, PIXELS};
        frame.bMarks = m_bMarks;
        m_context.Renderer().Render(frame);
        m_image = m_context.Image();
    }
    /** At a place of the square: measured from the middle of the picture. */
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
    /** What the pointer meets there. */
    static SPickArea Pointer(double x, double y)
    {
        const double dReach = 0.02;
        return {VIEW, {}, {x - dReach, y - dReach, x + dReach, y + dReach}};
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
    DMatrix4x4 m_view;
    std::vector<DVector3D> m_measureLine;
    bool m_bMarks = true;
    SPickPoint m_middle; // of the picture, in view coordinates
    qint64 m_nSimulation = -1;
    std::unique_ptr<CTestSelectable> m_pSelectable;
    std::unique_ptr<CColouredSurface> m_pSurface;
    struct SItem
    {
        std::unique_ptr<CTestSelectable> pSelectable;
        std::unique_ptr<CColouredSurface> pSurface;
    };
    std::deque<SItem> m_more;
    QImage m_image;
};
