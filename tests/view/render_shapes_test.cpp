// Pictures of surfaces without a proper extent: thin blocks, axes, cells of no area.
#include "tests/view/renderfixture.h"
#include "view/mesh/surfacearrays.h"

namespace {

const QColor ORANGE(240, 160, 0);

class RenderShapes : public Render
{
protected:
    qint64 CountLit() const
    {
        qint64 nLit = 0;
        for (int y = 0; y < PIXELS; ++y)
            for (int x = 0; x < PIXELS; ++x)
                nLit += m_image.pixelColor(x, y).rgb() != BACKGROUND.rgb();
        return nLit;
    }
    /** As drawn in each way, twice: with buffers and with display lists. */
    template <class Check> void DrawAllWays(CSurface& surface, const Check& check)
    {
        for (const bool bLists : {false, true}) {
            SetPreference(PreferenceKey::USE_DISPLAY_LISTS, bLists);
            for (int nType = DisplayOutline; nType <= DisplayVector; ++nType) {
                surface.setDisplayTypeQuick(DisplayType_e(nType));
                surface.invalidateAll();
                Draw();
                EXPECT_EQ(glGetError(), GLenum(GL_NO_ERROR)) << "type " << nType;
                check(DisplayType_e(nType));
            }
        }
    }
};

} // namespace

TEST_F(RenderShapes, ARowOfElementsIsALineAndOneElementAPoint)
{
    const struct
    {
        SSurfaceSize size;
        DVector3D first, last;
    } shapes[] = {
        {{5, 1}, {-0.8, 0.013, 0}, {0.8, 0.013, 0}},
        {{1, 5}, {0.013, -0.8, 0}, {0.013, 0.8, 0}},
        {{1, 1}, {0.013, 0.013, 0}, {0.013, 0.013, 0}},
    };
    SetPreference(PreferenceKey::USE_OUTLINE_COLOR, false);
    for (const auto& shape : shapes) {
        m_more.clear();
        const qint64 nLast = std::max<qint64>(shape.size.Count() - 1, 1);
        CColouredSurface& surface = Add(shape.size, ORANGE, [&](qint64 r, qint64 c) {
            return shape.first + (double(r + c) / double(nLast)) * (shape.last - shape.first);
        });
        surface.setWireframeColor(ORANGE);
        surface.setLineThickness(3.0);
        surface.m_values.assign(shape.size.Count(), 1.0);
        surface.setScalarVariable(1);
        surface.setVectorVariable(3);
        const bool bPoint = shape.size.Count() == 1;
        DrawAllWays(surface, [&](DisplayType_e eType) {
            if (eType == DisplayShaded || eType == DisplayContour) {
                EXPECT_EQ(CountLit(), 0) << "there is no face";
            } else if (eType == DisplayNodes || (!bPoint && eType < DisplayShaded))
                ExpectColor(0.013, 0.013, ORANGE);
        });
        EXPECT_EQ(ViewPicker::PointAt(Pointer(shape.last.x, shape.last.y)).point.ijk,
                  (IVector3D{shape.size.nRows, shape.size.nColumns, 1}));
        surface.setDisplayTypeQuick(DisplayWireframe);
        EXPECT_EQ(ViewPicker::Hits(Pointer(0.2, 0.013)).size(), int(shape.size.nRows > 1));
        EXPECT_EQ(ViewPicker::Hits(Pointer(0.013, 0.2)).size(), int(shape.size.nColumns > 1));
    }
}

TEST_F(RenderShapes, AnAxisThatAnEdgeCollapsesToIsLitLikeTheRest)
{
    SetPreference(PreferenceKey::USE_OUTLINE_COLOR, false);
    // A disc: row 0 is its middle, columns go round.
    CColouredSurface& surface = Add({3, 17}, ORANGE, [](qint64 r, qint64 c) {
        const double dRadius = 0.5 * double(r), dAngle = 2.0 * M_PI * double(c) / 16.0;
        return DVector3D{dRadius * std::cos(dAngle), dRadius * std::sin(dAngle), 0.0};
    });
    std::vector<float> normals(3 * 3 * 17);
    SurfaceArrays::BuildNormals(surface.size(), surface.positions(), normals);
    for (const float f : normals)
        EXPECT_TRUE(std::isfinite(f));
    DrawAllWays(surface, [&](DisplayType_e eType) {
        if (eType != DisplayShaded)
            return;
        for (const auto& [x, y] : {std::pair{0.02, 0.02}, {-0.02, 0.1}, {0.3, -0.3}, {-0.6, 0.6}})
            ExpectColor(x, y, ORANGE);
        ExpectColor(0.8, 0.8, BACKGROUND);
    });
    // Values along the axis differ: each wedge has its own colour next to it, none is lost.
    surface.m_values.assign(3 * 17, 1.0);
    surface.setScalarVariable(1);
    surface.setGeometricColor(false);
    surface.setColormapType(0);
    surface.setColormapValues(0.0, 1.0);
    surface.setDisplayType(DisplayShaded);
    Draw();
    ExpectColor(0.02, 0.02, MapColor(1023));
}

TEST_F(RenderShapes, CellsWithoutAreaDrawNothingAndHarmNoNeighbour)
{
    SetPreference(PreferenceKey::USE_OUTLINE_COLOR, false);
    // Rows 1 and 2 of four stand in one place; row 3 goes back over row 2's cells as a line.
    const double rows[] = {-0.8, 0.0, 0.0, 0.8};
    CColouredSurface& surface = Add({4, 5}, ORANGE, [&](qint64 r, qint64 c) {
        return DVector3D{rows[r], -0.8 + 0.4 * double(c), 0.0};
    });
    surface.m_values.assign(20, 0.5);
    surface.setScalarVariable(1);
    surface.setVectorVariable(3);
    DrawAllWays(surface, [&](DisplayType_e eType) {
        if (eType != DisplayShaded)
            return;
        for (const double x : {-0.6, -0.03, 0.03, 0.6})
            ExpectColor(x, 0.1, ORANGE);
    });
    surface.setDisplayTypeQuick(DisplayShaded);
    EXPECT_EQ(ViewPicker::Hits(Pointer(0.0, 0.1)).size(), 1);

    // All elements in one place: nothing to see but the point, and nothing fails.
    m_more.clear();
    CColouredSurface& spot = Add({3, 3}, ORANGE, [](qint64, qint64) { return DVector3D{0.113, 0.113, 0}; });
    spot.m_values.assign(9, 0.5);
    spot.setScalarVariable(1);
    spot.setVectorVariable(3);
    DrawAllWays(spot, [&](DisplayType_e eType) {
        if (eType == DisplayShaded || eType == DisplayContour) {
            EXPECT_EQ(CountLit(), 0);
        }
    });
    EXPECT_TRUE(ViewPicker::PointAt(Pointer(0.113, 0.113)).point.bHasPoint);
}

TEST_F(RenderShapes, WithoutElementsNothingIsDrawnAndPicked)
{
    CColouredSurface& surface = Add({0, 0}, ORANGE, [](qint64, qint64) { return DVector3D(); });
    surface.setScalarVariable(1);
    surface.setVectorVariable(3);
    DrawAllWays(surface, [&](DisplayType_e) { EXPECT_EQ(CountLit(), 0); });
    EXPECT_TRUE(ViewPicker::Hits({VIEW, {}, {-2, -2, 2, 2}}).isEmpty());
    EXPECT_FALSE(surface.needsBuild()) << "it would be built each frame";
}
