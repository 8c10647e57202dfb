#include "data/grids/flippedgrid.h"
#include "data/grids/gridmask.h"
#include "data/grids/gridpack.h"
#include "data/grids/interpgrid.h"
#include "data/grids/transformgrid.h"
#include "tests/support/testgrid.h"

#include <gtest/gtest.h>

#include <bit>

namespace {

using namespace TestBlock;

/** Makes grids and keeps them, except packs and blends, which go when they are disposed of. */
class CWorld
{
public:
    template <class Grid, class... Arguments> Grid* Make(Arguments&&... arguments)
    {
        auto pGrid = std::make_unique<Grid>(std::forward<Arguments>(arguments)...);
        Grid* const pResult = pGrid.get();
        m_grids.push_back(std::move(pGrid));
        return pResult;
    }
    CTestGrid* Double(const SBlockShape& shape = {{5, 4, 3}})
    {
        return Make<CTestGrid>(shape, Shaken(Box(), 0.3));
    }
    CTestGridOf<float>* Single(const SBlockShape& shape = {{5, 4, 3}})
    {
        return Make<CTestGridOf<float>>(shape, Shaken(Sheared(), 0.2));
    }
    template <class... Axes> CFlippedGrid* Flipped(IGrid* pInner, Axes... nAxes)
    {
        auto* const pGrid = Make<CFlippedGrid>(pInner);
        (pGrid->ToggleFlip(nAxes), ...);
        return pGrid;
    }
    CTransformGrid* Moved(IGrid* pInner)
    {
        auto* const pGrid = Make<CTransformGrid>(pInner);
        pGrid->SetTransform(STransform(DMatrix4x4::Translation({1, 2, 3}) * DMatrix4x4::Rotation(2, 0.7)));
        return pGrid;
    }
    CGridMask* Mask(bool bKnown, const SBlockShape& shape = {{5, 4, 3}})
    {
        auto* const pMask = Make<CGridMask>([=](const CGridMask&) -> std::unique_ptr<CGrid> {
            if (!bKnown)
                return nullptr;
            return std::make_unique<CTestGridOf<float>>(shape, Shaken(Box(), 0.1));
        });
        pMask->Init("block.x", 3, shape.dimensions, shape.start, true);
        pMask->Prepare();
        return pMask;
    }
    CInterpGrid* Blend(IGrid* pFirst, IGrid* pSecond) { return new CInterpGrid(pFirst, pSecond, 0.3); }
    template <class... Grids> CGridPack* Pack(Grids*... members)
    {
        return new CGridPack(QVector<IGrid*>{members...});
    }

private:
    std::vector<std::unique_ptr<IGrid>> m_grids;
};

struct SWrapperCase
{
    const char* sName;
    IGrid* (*Make)(CWorld& world);
};

void PrintTo(const SWrapperCase& wrapper, std::ostream* pOut) { *pOut << wrapper.sName; }

const SBlockShape AFAR{{3, 4, 2}, {7, 1, 1}}; // a gap away from a block of 5 x 4 x 3
const SBlockShape ACROSS{{6, 2, 3}, {3, 2, 2}}, ELSEWHERE{{4, 3, 5}, {-2, 0, 9}}, SMALLER{{3, 9, 2}};

const SWrapperCase s_wrappers[] = {
    {"single", [](CWorld& w) -> IGrid* { return w.Single(); }},
    {"double_elsewhere", [](CWorld& w) -> IGrid* { return w.Double(ELSEWHERE); }},
    {"mask", [](CWorld& w) -> IGrid* { return w.Mask(true); }},
    {"mask_of_nothing", [](CWorld& w) -> IGrid* { return w.Mask(false); }},
    {"not_flipped", [](CWorld& w) -> IGrid* { return w.Flipped(w.Double()); }},
    {"flipped_i", [](CWorld& w) -> IGrid* { return w.Flipped(w.Single(), 0); }},
    {"flipped_j_k", [](CWorld& w) -> IGrid* { return w.Flipped(w.Double(AFAR), 1, 2); }},
    {"moved", [](CWorld& w) -> IGrid* { return w.Moved(w.Single()); }},
    {"not_moved", [](CWorld& w) -> IGrid* { return w.Make<CTransformGrid>(w.Single()); }},
    {"blend", [](CWorld& w) -> IGrid* { return w.Blend(w.Double(), w.Single()); }},
    {"blend_with_a_smaller_one", [](CWorld& w) -> IGrid* { return w.Blend(w.Double(), w.Single(SMALLER)); }},
    {"pack_of_none", [](CWorld& w) -> IGrid* { return w.Pack(); }},
    {"pack_of_one", [](CWorld& w) -> IGrid* { return w.Pack(w.Double(AFAR)); }},
    {"pack_with_a_gap", [](CWorld& w) -> IGrid* { return w.Pack(w.Double(), w.Single(AFAR)); }},
    {"pack_with_an_overlap", [](CWorld& w) -> IGrid* { return w.Pack(w.Double(), w.Single(ACROSS)); }},
    {"pack_within_a_pack",
     [](CWorld& w) -> IGrid* { return w.Pack(w.Pack(w.Double(), w.Single(AFAR)), w.Single(ACROSS)); }},
    {"mask_flipped_and_moved", [](CWorld& w) -> IGrid* { return w.Moved(w.Flipped(w.Mask(true), 0, 2)); }},
    {"moved_and_flipped", [](CWorld& w) -> IGrid* { return w.Flipped(w.Moved(w.Single()), 0, 1, 2); }},
    {"flipped_twice", [](CWorld& w) -> IGrid* { return w.Flipped(w.Flipped(w.Double(), 0, 1), 1); }},
    {"pack_flipped", [](CWorld& w) -> IGrid* { return w.Flipped(w.Pack(w.Double(), w.Single(AFAR)), 0); }},
    {"pack_of_wrappers",
     [](CWorld& w) -> IGrid* {
         return w.Pack(w.Moved(w.Single(AFAR)), w.Blend(w.Mask(true), w.Flipped(w.Double(), 1)));
     }},
    {"blend_of_packs",
     [](CWorld& w) -> IGrid* {
         return w.Blend(w.Moved(w.Pack(w.Double(), w.Single(AFAR))), w.Pack(w.Single(ACROSS), w.Double()));
     }},
};

class WrappedGrids : public testing::TestWithParam<SWrapperCase>
{
protected:
    ~WrappedGrids() override { m_grid.Dispose(); }

    CWorld m_world;
    IGrid& m_grid = *GetParam().Make(m_world);
};

bool AreSameBits(const DVector3D& a, const DVector3D& b)
{
    using Bits = std::array<quint64, 3>;
    return std::bit_cast<Bits>(a) == std::bit_cast<Bits>(b);
}

SIJKRange RandomPart(const SIJKRange& whole, std::mt19937& random)
{
    SIJKRange part;
    for (int nAxis = 0; nAxis < 3; ++nAxis) {
        std::uniform_int_distribution<qint64> index(whole.min[nAxis], whole.max[nAxis]);
        const qint64 a = index(random), b = index(random);
        part.min[nAxis] = std::min(a, b);
        part.max[nAxis] = std::max(a, b);
    }
    return part;
}

} // namespace

TEST_P(WrappedGrids, BothRoadsLeadToTheSamePointsBitForBit)
{
    const SBlockShape shape = m_grid.GetShape();
    std::mt19937 random(11);
    for (int nTry = 0; nTry < 60 && m_grid.GetPointCount() > 0; ++nTry) {
        const SIJKRange part = nTry == 0 ? shape.Range() : RandomPart(shape.Range(), random);
        std::vector<double> x(part.Count(), -7.0), y = x, z = x;
        const LoadStatus_e eStatus = m_grid.FillPoints(part, {x, y, z});
        ASSERT_EQ(eStatus, m_grid.GetLeafGrids().isEmpty() ? LoadFailed : LoadOk);
        if (eStatus != LoadOk)
            continue;
        std::vector<qint64> points(part.Count());
        for (qint64 n = 0; n < part.Count(); ++n) // backwards
            points[part.Count() - 1 - n] = shape.PointIndex(SBlockShape{part.Extent(), part.min}.Address(n));
        std::vector<double> gx(part.Count()), gy = gx, gz = gx;
        ASSERT_EQ(m_grid.GatherPoints(points, {gx, gy, gz}), LoadOk);
        ASSERT_TRUE(std::equal(gx.rbegin(), gx.rend(), x.begin()) &&
                    std::equal(gy.rbegin(), gy.rend(), y.begin()) &&
                    std::equal(gz.rbegin(), gz.rend(), z.begin()));
        const SBlockShape partShape{part.Extent(), part.min};
        for (qint64 n = 0; n < part.Count(); ++n) {
            const IVector3D ijk = partShape.Address(n);
            const DVector3D point = m_grid.GetPoint(ijk);
            ASSERT_TRUE(AreSameBits(point, {x[n], y[n], z[n]})) << ijk.i << ' ' << ijk.j << ' ' << ijk.k;
            ASSERT_TRUE(AreSameBits(point, m_grid.GetPoint(shape.PointIndex(ijk))));
            ASSERT_TRUE(m_grid.HasPoint(ijk) || m_grid.HasGaps());
        }
    }
}

TEST_P(WrappedGrids, ArraysAndRangesAreThoseOfThePoints)
{
    if (m_grid.GetPointCount() == 0 || !m_grid.GetCoordinatesDouble(0))
        return;
    const IGrid* const pSource = dynamic_cast<CGridPack*>(&m_grid) ? m_grid.GetLeafGrids().first() : &m_grid;
    if (dynamic_cast<CGridPack*>(&m_grid) && pSource->GetShape() != m_grid.GetShape())
        return; // the arrays of a pack are those of its first member, and no grid's points
    for (int nAxis = 0; nAxis < 3; ++nAxis) {
        const double* const pDouble = m_grid.GetCoordinatesDouble(nAxis);
        const float* const pSingle = m_grid.GetCoordinatesSingle(nAxis);
        SValueRange range;
        for (qint64 n = 0; n < m_grid.GetPointCount(); ++n) {
            const double dValue = m_grid.GetPoint(n)[nAxis];
            ASSERT_EQ(pDouble[n], dValue);
            ASSERT_EQ(pSingle[n], float(dValue));
            if (m_grid.HasPoint(m_grid.GetIJK(n)))
                range.Add(dValue);
        }
        EXPECT_EQ(m_grid.GetRange(nAxis, true), range);
        EXPECT_EQ(m_grid.GetPoint(m_grid.GetMaximumLocation(nAxis))[nAxis], range.dMax);
    }
}

INSTANTIATE_TEST_SUITE_P(All, WrappedGrids, testing::ValuesIn(s_wrappers),
                         [](const auto& info) { return std::string(info.param.sName); });

TEST(FlippedGrid, AFlipTurnsTheIndexRoundAndTheHandednessWithIt)
{
    CTestGrid inner({{5, 4, 3}}, Box());
    CFlippedGrid grid(&inner);
    EXPECT_EQ(grid.GetCoordinatesDouble(0), inner.GetCoordinatesDouble(0))
        << "the inner array while unflipped";
    EXPECT_TRUE(grid.IsRightHanded());
    grid.ToggleFlip(0);
    EXPECT_EQ(grid.GetPoint(1, 2, 3), (DVector3D{5, 2, 3}));
    EXPECT_EQ(grid.GetCoordinatesDouble(0)[0], 5.0);
    EXPECT_FALSE(grid.IsRightHanded());
    EXPECT_EQ(grid.GetMinimumLocation(0), (IVector3D{5, 1, 1}));
    grid.ToggleFlip(0);
    EXPECT_EQ(grid.GetMinimumLocation(0), (IVector3D{1, 1, 1}))
        << "not what was computed while it was flipped";
}

TEST(TransformGrid, TheIdentityGivesTheInnerArrays)
{
    CTestGrid inner({{5, 4, 3}}, Box());
    CTransformGrid grid(&inner);
    EXPECT_EQ(grid.GetCoordinatesDouble(1), inner.GetCoordinatesDouble(1));
    EXPECT_EQ(grid.GetCoordinatesSingle(1), inner.GetCoordinatesSingle(1));
    DMatrix4x4 matrix = DMatrix4x4::Translation({0, 10, 0});
    matrix(3, 0) = 5.0; // the fourth row isn't used
    grid.SetTransform(STransform(matrix));
    EXPECT_EQ(grid.GetPoint(1, 2, 3), (DVector3D{1, 12, 3}));
    EXPECT_EQ(grid.GetCoordinatesSingle(1)[0], 11.0f);
}

TEST(GridPack, TheGapIsInRangeAndHasNoPoint)
{
    CTestGrid low({{2, 3, 3}}, Box()), high({{2, 3, 3}, {4, 1, 1}}, Box(2.0));
    CGridPack pack({&low, &high});
    EXPECT_EQ(pack.GetDimensions(), (IVector3D{5, 3, 3}));
    EXPECT_TRUE(pack.IsInRange(3, 1, 1));
    EXPECT_FALSE(pack.HasPoint({3, 1, 1}));
    EXPECT_EQ(pack.GetPoint(3, 1, 1), DVector3D());
    EXPECT_EQ(pack.GetPoint(4, 1, 2), (DVector3D{8, 2, 4}));
    EXPECT_EQ(pack.GetRange(0, true), (SValueRange{1, 10})) << "without the zeros of the gap";
    EXPECT_EQ(pack.GetCellCentre({2, 1, 1}, 0.0), (DVector3D{2, 1.5, 1.5}))
        << "of the corners that are there";
}

TEST(GridPack, ItIsDoubleIfAMemberIsAndEmptyWithoutMembers)
{
    CTestGridOf<float> single({{2, 2, 2}}, Box());
    CTestGrid precise({{2, 2, 2}}, Box());
    EXPECT_FALSE(CGridPack({&single}).IsDoublePrecision());
    EXPECT_TRUE(CGridPack({&single, &precise}).IsDoublePrecision());
    CGridPack none({});
    EXPECT_EQ(none.GetPointCount(), 0);
    EXPECT_EQ(none.GetBaseGrid(), &none);
    EXPECT_EQ(none.GetGridKind(), GridKindUnknown);
}

TEST(WrappedGridOwnership, EachMemberIsGivenBackOnce)
{
    CTestGrid a({{2, 2, 2}}, Box()), b({{2, 2, 2}}, Box());
    CFlippedGrid flipped(&b);
    (new CGridPack({&a, &flipped}))->Dispose();
    EXPECT_EQ(a.m_nDisposed, 1);
    EXPECT_EQ(b.m_nDisposed, 1) << "a flipped grid passes it on";
    (new CInterpGrid(&a, new CGridPack({&b}), 0.5))->Dispose();
    EXPECT_EQ(a.m_nDisposed, 2);
    EXPECT_EQ(b.m_nDisposed, 2);
    CTransformGrid(&a).Dispose();
    EXPECT_EQ(a.m_nDisposed, 3);
}

TEST(WrappedGridOwnership, LeavesAreNamedOnce)
{
    CTestGrid a({{2, 2, 2}}, Box()), b({{2, 2, 2}}, Box());
    CFlippedGrid flipped(&b);
    CGridPack pack({&a, &flipped, &b});
    EXPECT_EQ(pack.GetLeafGrids(), (QVector<IGrid*>{&a, &b}));
    EXPECT_EQ(pack.GetBaseGrid(), &a);
    CInterpGrid blend(&flipped, &b, 0.5);
    EXPECT_EQ(blend.GetLeafGrids(), (QVector<IGrid*>{&b}));
    EXPECT_EQ(blend.GetBaseGrid(), &b);
}

TEST(GridMask, ItAsksForItsGridOnceAndAnswersFromInitWithoutOne)
{
    int nAsked = 0;
    CGridMask mask([&](const CGridMask&) -> std::unique_ptr<CGrid> { return ++nAsked, nullptr; });
    mask.Init("block.x", 3, {5, 4, 3}, {1, 1, 1}, true);
    EXPECT_FALSE(mask.IsPrepared());
    EXPECT_FALSE(mask.Prepare());
    EXPECT_FALSE(mask.Prepare());
    EXPECT_TRUE(mask.IsPrepared()) << "it stays without";
    EXPECT_EQ(nAsked, 1);
    EXPECT_EQ(mask.GetPointCount(), 60);
    EXPECT_EQ(mask.GetFileIndex(), 3);
    EXPECT_EQ(mask.GetGridKind(), GridKindUnknown);
    EXPECT_EQ(mask.GetPoint(1, 1, 1), DVector3D());
    EXPECT_FALSE(mask.HasPoint({1, 1, 1}));
    EXPECT_EQ(mask.GetCoordinatesSingle(0), nullptr);
    EXPECT_TRUE(mask.GetLeafGrids().isEmpty());
    EXPECT_EQ(mask.GetBaseGrid(), &mask);
    EXPECT_EQ(mask.FindCell({0, 0, 0}), (IVector3D{-1, -1, -1}));
}

TEST(GridMask, TheGridLearnsWhatTheMaskWasTold)
{
    CTestGrid* pMade = nullptr;
    CGridMask mask([&](const CGridMask& asking) -> std::unique_ptr<CGrid> {
        auto pGrid = std::make_unique<CTestGrid>(SBlockShape{asking.GetDimensions()}, Box());
        pMade = pGrid.get();
        return pGrid;
    });
    mask.Init("block.x", 3, {5, 4, 3}, {1, 1, 1}, true);
    mask.SetGridId(17);
    ASSERT_TRUE(mask.Prepare());
    EXPECT_EQ(pMade->GetFileName(), "block.x");
    EXPECT_EQ(pMade->GetFileIndex(), 3);
    EXPECT_EQ(pMade->GetGridId(), 17);
    CFlippedGrid flipped(&mask);
    EXPECT_EQ(flipped.GetGridId(), 17);
    mask.Dispose();
    EXPECT_EQ(pMade->m_nDisposed, 1);
}
