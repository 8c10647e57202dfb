#include "view/mesh/surfacearrays.h"

#include "frame/novalue.h"

#include <gtest/gtest.h>

#include <cmath>
#include <map>

using namespace SurfaceArrays;

namespace {

/** Elements at (row, column, height). */
template <class Height> std::vector<DVector3D> Field(const SSurfaceSize& size, const Height& height)
{
    std::vector<DVector3D> positions;
    for (qint64 r = 0; r < size.nRows; ++r)
        for (qint64 c = 0; c < size.nColumns; ++c)
            positions.push_back({double(r), double(c), height(double(r), double(c))});
    return positions;
}

std::vector<DVector3D> NormalsOf(const SSurfaceSize& size, const std::vector<DVector3D>& positions)
{
    std::vector<float> floats(3 * size.Count());
    BuildNormals(size, positions, floats);
    std::vector<DVector3D> normals;
    for (qint64 n = 0; n < size.Count(); ++n)
        normals.push_back({floats[3 * n], floats[3 * n + 1], floats[3 * n + 2]});
    return normals;
}

using Edges = std::map<std::pair<quint32, quint32>, int>;

/** How often a strip runs along each pair of elements, whichever way. */
Edges EdgesOf(const QVector<quint32>& strip)
{
    Edges edges;
    for (int n = 1; n < strip.size(); ++n)
        ++edges[std::minmax(strip[n - 1], strip[n])];
    return edges;
}

} // namespace

TEST(SurfaceArrays, NormalsAreUnitVectorsOfTheCellAlsoWhereATriangleIsNone)
{
    const SSurfaceSize size{3, 9000}; // more than one piece of work
    for (const DVector3D& normal :
         NormalsOf(size, Field(size, [](double r, double c) { return 2.0 * r - c; })))
        EXPECT_LT(Length(normal - DVector3D{-2, 1, 1} / std::sqrt(6.0)), 1e-6);

    // All of row 0 in one place: one triangle of each of its cells is none, the other gives the normal.
    std::vector<DVector3D> cone = Field({3, 3}, [](double, double) { return 0.0; });
    cone[0] = cone[1] = cone[2] = {0, 1, 0};
    for (const DVector3D& normal : NormalsOf({3, 3}, cone))
        EXPECT_EQ(normal, (DVector3D{0, 0, 1}));
    // Rows 0 and 1 too: nothing of their cells is left.
    cone[3] = cone[4] = cone[5] = cone[0];
    const std::vector<DVector3D> normals = NormalsOf({3, 3}, cone);
    EXPECT_EQ(normals[1], DVector3D());
    EXPECT_EQ(normals[4], (DVector3D{0, 0, 1}));

    EXPECT_EQ(NormalsOf({1, 2}, {{0, 0, 0}, {1, 0, 0}})[1], (DVector3D{0, 0, 1})); // no cells
}

TEST(SurfaceArrays, IndexListsCoverEachLineOnceAndEachCellByTwoTriangles)
{
    for (const SSurfaceSize& size : {SSurfaceSize{2, 2}, {2, 5}, {3, 4}, {4, 3}, {5, 5}}) {
        const auto nCount = quint32(size.Count());
        const QVector<quint32> wireframe = WireframeIndices(size);
        EXPECT_EQ(wireframe.size(), 2 * size.Count() - 1);
        const Edges lines = EdgesOf(wireframe);
        EXPECT_EQ(qint64(lines.size()), size.nRows * (size.nColumns - 1) + (size.nRows - 1) * size.nColumns);
        for (const auto& [edge, nTimes] : lines) {
            const quint32 nStep = edge.second - edge.first;
            EXPECT_TRUE(nStep == size.nColumns || (nStep == 1 && edge.second % size.nColumns != 0));
            EXPECT_LT(edge.second, nCount);
        }

        const QVector<quint32> outline = OutlineIndices(size);
        EXPECT_EQ(outline.size(), 2 * (size.nRows + size.nColumns) - 3);
        EXPECT_EQ(outline.first(), outline.last());
        std::vector<float> flags(size.Count());
        BuildOutlineFlags(size, flags);
        for (const auto& [edge, nTimes] : EdgesOf(outline)) {
            EXPECT_TRUE(lines.count(edge)) << "not a grid line";
            EXPECT_EQ(nTimes, 1);
            EXPECT_EQ(flags[edge.first], 1.0F);
        }
        EXPECT_EQ(std::count(flags.begin(), flags.end(), 1.0F), outline.size() - 1);

        const QVector<quint32> triangles = TriangleIndices(size);
        const std::vector<DVector3D> positions = Field(size, [](double, double) { return 0.0; });
        double dArea = 0.0;
        for (int n = 0; n + 2 < triangles.size(); n += 3) {
            const DVector3D& a = positions[triangles[n]];
            dArea += Length(Cross(positions[triangles[n + 1]] - a, positions[triangles[n + 2]] - a)) / 2.0;
        }
        EXPECT_EQ(triangles.size(), 6 * (size.nRows - 1) * (size.nColumns - 1));
        EXPECT_EQ(dArea, double((size.nRows - 1) * (size.nColumns - 1)));
    }
    EXPECT_TRUE(TriangleIndices({1, 4}).isEmpty());
    EXPECT_TRUE(WireframeIndices({0, 4}).isEmpty());
}

TEST(SurfaceArrays, ContoursOfALinearFieldLieAtTheirLevels)
{
    const SSurfaceSize size{4, 5};
    const auto value = [](double r, double c) { return 10.0 * r + c; };
    const std::vector<DVector3D> positions = Field(size, value);
    std::vector<float> values, thresholds;
    for (const DVector3D& p : positions) {
        values.push_back(float(p.z));
        thresholds.insert(thresholds.end(), {float(p.x), 0.0F, 1.0F});
    }
    const SContours lines = BuildContours({size, positions, {}, values, {}, thresholds}, 8, 0.0, 34.0);
    ASSERT_EQ(lines.positions.size(), 3 * lines.values.size());
    ASSERT_EQ(lines.values.size() % 2, 0U);
    std::map<float, double> lengths; // by level
    for (std::size_t n = 0; n < lines.values.size(); ++n) {
        const float* const p = &lines.positions[3 * n];
        EXPECT_NEAR(value(p[0], p[1]), lines.values[n], 1e-4);
        EXPECT_NEAR(lines.thresholds[3 * n], p[0], 1e-5);
        EXPECT_EQ(lines.thresholds[3 * n + 2], 1.0F);
        if (n % 2 == 1) {
            EXPECT_EQ(lines.values[n], lines.values[n - 1]);
            lengths[lines.values[n]] += std::hypot(p[0] - p[-3], p[1] - p[-2]);
        }
    }
    EXPECT_EQ(lengths.size(), 8U); // the ninth level touches a corner, or is missed by rounding
    EXPECT_NEAR(lengths[17.0F], 4.0 * std::hypot(0.1, 1.0), 1e-4);
}

TEST(SurfaceArrays, ContoursAreWholeAtASaddleAndSpareCellsWithoutValue)
{
    const SSurfaceSize size{3, 3};
    const std::vector<DVector3D> positions = Field(size, [](double, double) { return 0.0; });
    // High at two opposite corners of the first cell alone: two segments, each from edge to edge.
    const std::vector<float> saddle = {1, 0, 0, 0, 1, 1, 0, 1, 1};
    const SContours lines =
        BuildContours({{2, 2}, positions, {}, std::vector<float>{1, 0, 0, 1}, {}, {}}, 2, 0, 1);
    EXPECT_EQ(std::count(lines.values.begin(), lines.values.end(), 0.5F), 4);

    const auto count = [&](const std::vector<float>& values, const std::vector<char>& holes) {
        const SContours found = BuildContours({size, positions, {}, values, holes, {}}, 2, 0.0, 1.0);
        return std::count(found.values.begin(), found.values.end(), 0.5F);
    };
    EXPECT_EQ(count(saddle, {}), 4 + 2 + 2);
    EXPECT_EQ(count(saddle, {0, 0, 1, 0, 0, 0, 0, 0, 0}), 4 + 2); // the cell of element 2
    for (const double dNone : {NO_VALUE, std::nan(""), 1e30}) {
        std::vector<float> values = saddle;
        values[0] = ToGpuValue(dNone);
        EXPECT_EQ(count(values, {}), 2 + 2) << dNone;
    }
}
