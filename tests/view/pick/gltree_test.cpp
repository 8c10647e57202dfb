#include "view/pick/gltree.h"

#include <random>

namespace {

DMatrix4x4 Turned(double dX, double dY) { return DMatrix4x4::Rotation(0, dX) * DMatrix4x4::Rotation(1, dY); }

/** Items over positions of its own, kept in the order of entering too. */
class CTreeFixture : public testing::Test
{
protected:
    void Build(const std::vector<DVector3D>& positions, const std::vector<CGLItem>& items)
    {
        m_positions = positions;
        m_items = items;
        DVector3D minimum = positions.front(), maximum = minimum;
        for (const DVector3D& p : positions)
            for (int n = 0; n < 3; ++n) {
                minimum[n] = std::min(minimum[n], p[n]);
                maximum[n] = std::max(maximum[n], p[n]);
            }
        m_tree.Reset(m_positions, minimum, maximum);
        for (const CGLItem& item : items)
            m_tree.Enter(item);
    }

    /** Small items of all kinds at random places, among them collapsed ones and holes; half on a lattice. */
    void BuildRandom(int nSeed, int nCount)
    {
        std::mt19937 random(nSeed);
        std::uniform_real_distribution<double> place(-1.0, 1.0);
        std::vector<DVector3D> positions;
        std::vector<CGLItem> items;
        for (int n = 0; n < nCount; ++n) {
            DVector3D p{place(random), place(random), nSeed % 3 ? place(random) : 0.0};
            if (n % 2)
                p = {std::round(8 * p.x) / 8, std::round(8 * p.y) / 8, std::round(8 * p.z) / 8};
            const quint32 a = quint32(positions.size());
            const double dSize = n % 7 ? 0.1 : 0.0;
            for (int nCorner = 0; nCorner < 3; ++nCorner)
                positions.push_back(p + dSize * DVector3D{place(random), place(random), place(random)});
            const bool bHole = random() % 3 == 0;
            items.push_back(n % 3 == 0   ? CGLItem(CGLPoint(a, bHole))
                            : n % 3 == 1 ? CGLItem(CGLLine(a, a + 1, bHole))
                                         : CGLItem(CGLTriangle(a, a + 1, a + 2, bHole)));
        }
        Build(positions, items);
    }

    /** What pickFirst has to find: all items in the order of the walk are tested. */
    const CGLItem* BruteForce(const DMatrix4x4& view, const SPickRect& rect, int nMask, bool bHoles)
    {
        for (const CGLItem& item : m_tree.Items())
            if ((item.nKind & nMask) && (bHoles || !item.bIsHole) &&
                item.intersectsRect(m_positions, view, rect))
                return &item;
        return nullptr;
    }

    DVector3D Seen(const DMatrix4x4& view, const CGLItem& item, int nCorner) const
    {
        return view.MapPoint(m_positions[item.nCorners[nCorner]]);
    }
    /** The greatest z that depth(item) gives of all that aren't holes. */
    template <class Depth> double FrontOf(int nKind, const Depth& depth)
    {
        double dFront = CGLTree::NOT_MET;
        for (const CGLItem& item : m_tree.Items())
            if (item.nKind == nKind && !item.bIsHole)
                dFront = std::max(dFront, depth(item).value_or(CGLTree::NOT_MET));
        return dFront;
    }
    double FrontTriangle(const DMatrix4x4& view, const SPickPoint& p)
    {
        return FrontOf(PickTriangle, [&](const CGLItem& item) {
            return PickGeometry::DepthAt({Seen(view, item, 0), Seen(view, item, 1), Seen(view, item, 2)}, p);
        });
    }

    bool Hits(const SPickRect& rect, int nMask = ANY_PICK_KIND, bool bHoles = false)
    {
        return m_tree.anyHit({}, rect, nMask, bHoles);
    }

    std::vector<DVector3D> m_positions;
    std::vector<CGLItem> m_items;
    CGLTree m_tree;
};

/** A tree built node by node as its rules are told, to compare the order with. */
struct SPlainNode
{
    DVector3D minimum, maximum;
    int nDepth = 0;
    std::array<bool, 3> bAxes = {true, true, true};
    std::vector<CGLItem> items;
    std::unique_ptr<SPlainNode> pChildren[3]; // lower, straddling, upper

    void Enter(const std::vector<DVector3D>& positions, const CGLItem& item)
    {
        if (nDepth == 10 || !(bAxes[0] || bAxes[1] || bAxes[2])) {
            items.push_back(item);
            return;
        }
        const DVector3D extent = maximum - minimum;
        int nAxis = 0;
        if (bAxes[1] && (extent.y > extent.x || !bAxes[0]))
            nAxis = 1;
        if (bAxes[2] && (extent.z > extent[nAxis] || !bAxes[nAxis]))
            nAxis = 2;
        const double dSplit = 0.5 * (minimum[nAxis] + maximum[nAxis]);
        const auto corners = std::span(item.nCorners).first(item.CornerCount());
        const auto all = [&](auto is) {
            return std::all_of(corners.begin(), corners.end(),
                               [&](quint32 n) { return is(positions[n][nAxis], dSplit); });
        };
        const int nSide = all(std::less<double>()) ? -1 : all(std::greater<double>()) ? 1 : 0;
        std::unique_ptr<SPlainNode>& pChild = pChildren[nSide + 1];
        if (!pChild) {
            pChild = std::make_unique<SPlainNode>(minimum, maximum, nDepth + (nSide != 0), bAxes);
            pChild->bAxes[nAxis] &= nSide != 0;
            if (nSide != 0)
                (nSide < 0 ? pChild->maximum : pChild->minimum)[nAxis] = dSplit;
        }
        pChild->Enter(positions, item);
    }

    void Append(std::vector<CGLItem>& order) const
    {
        order.insert(order.end(), items.begin(), items.end());
        for (const auto& pChild : pChildren)
            if (pChild)
                pChild->Append(order);
    }
};

} // namespace

using GLTree = CTreeFixture;

TEST_F(GLTree, ItemsStandInTheOrderOfATreeThatIsBuiltNodeByNode)
{
    for (int nSeed = 1; nSeed <= 6; ++nSeed) {
        BuildRandom(nSeed, 3000);
        SPlainNode root;
        root.minimum = root.maximum = m_positions.front();
        for (const DVector3D& p : m_positions)
            for (int n = 0; n < 3; ++n) {
                root.minimum[n] = std::min(root.minimum[n], p[n]);
                root.maximum[n] = std::max(root.maximum[n], p[n]);
            }
        for (std::size_t n = 0; n < m_items.size(); ++n) {
            root.Enter(m_positions, m_items[n]);
            if (n == m_items.size() / 2)
                m_tree.Items(); // a search between two items changes nothing
        }
        std::vector<CGLItem> expected;
        root.Append(expected);
        const std::span<const CGLItem> got = m_tree.Items();
        ASSERT_TRUE(std::equal(got.begin(), got.end(), expected.begin(), expected.end())) << nSeed;
    }
}

TEST_F(GLTree, FindsInFrontWhatATestOfAllItemsFinds)
{
    std::mt19937 random(5);
    std::uniform_real_distribution<double> place(-1.0, 1.0), angle(-3.0, 3.0);
    int nMet = 0, nNear = 0;
    for (int nSeed = 1; nSeed <= 6; ++nSeed) {
        BuildRandom(nSeed, 1000);
        for (int nTry = 0; nTry < 300; ++nTry) {
            const DMatrix4x4 view = nTry % 2 ? DMatrix4x4() : Turned(angle(random), angle(random));
            const SPickPoint p{place(random), place(random)};
            const double dReach = nTry % 3 ? 0.05 : 0.3;
            const SPickRect rect{p.x - dReach, p.y - dReach, p.x + dReach, p.y + dReach};
            const double dFront = FrontTriangle(view, p);
            ASSERT_EQ(m_tree.frontTriangle(view, p, false), dFront) << nSeed << ' ' << nTry;
            ASSERT_EQ(m_tree.frontLine(view, rect, PickLine, false),
                      FrontOf(PickLine, [&](const CGLItem& item) -> std::optional<double> {
                          if (!item.intersectsRect(m_positions, view, rect))
                              return {};
                          return PickGeometry::NearestOfLine(Seen(view, item, 0), Seen(view, item, 1), p).z;
                      }));
            const CGLItem* const pNearest = m_tree.nearestPoint(view, p, dReach, false, true);
            const double dNearest = -FrontOf(PickPoint, [&](const CGLItem& item) -> std::optional<double> {
                const DVector3D seen = Seen(view, item, 0);
                const double d = std::sqrt(PickGeometry::Distance2({seen.x, seen.y}, p));
                if (d > dReach || FrontTriangle(view, {seen.x, seen.y}) > seen.z + 1e-5)
                    return {};
                return -d;
            });
            ASSERT_EQ(pNearest != nullptr, dNearest <= dReach);
            if (pNearest) {
                const DVector3D seen = Seen(view, *pNearest, 0);
                ASSERT_EQ(std::sqrt(PickGeometry::Distance2({seen.x, seen.y}, p)), dNearest);
            }
            nMet += dFront != CGLTree::NOT_MET;
            nNear += pNearest != nullptr;
        }
    }
    EXPECT_GT(nMet, 100);
    EXPECT_GT(nNear, 500);
}

TEST_F(GLTree, FindsWhatATestOfAllItemsFinds)
{
    std::mt19937 random(7);
    std::uniform_real_distribution<double> place(-1.2, 1.2), angle(-3.0, 3.0);
    int nHits = 0;
    for (int nSeed = 1; nSeed <= 6; ++nSeed) {
        BuildRandom(nSeed, 400);
        for (int nTry = 0; nTry < 3000; ++nTry) {
            // Views along the axes and rectangles on the lattice touch boxes and items exactly.
            const DMatrix4x4 view = nTry % 2 ? DMatrix4x4() : Turned(angle(random), angle(random));
            const double dSize = std::pow(10.0, -0.1 - double(random() % 4));
            SPickRect rect{place(random), place(random), 0.0, 0.0};
            if (nTry % 4 == 1)
                rect = {std::round(8 * rect.dLeft) / 8, std::round(8 * rect.dBottom) / 8, 0.0, 0.0};
            rect.dRight = rect.dLeft + (nTry % 8 == 1 ? 0.125 : dSize);
            rect.dTop = rect.dBottom + (nTry % 8 == 1 ? 0.25 : dSize);
            const int nMask = nTry % 5 ? int(1 + random() % 7) : -3; // negative: all
            const bool bHoles = nTry % 3 == 0;
            const CGLItem* const pExpected =
                BruteForce(view, rect, nMask < 0 ? ANY_PICK_KIND : nMask, bHoles);
            ASSERT_EQ(m_tree.pickFirst(view, rect, nMask, bHoles), pExpected) << nSeed << ' ' << nTry;
            ASSERT_EQ(m_tree.anyHit(view, rect, nMask, bHoles), pExpected != nullptr);
            nHits += pExpected != nullptr;
        }
    }
    EXPECT_GT(nHits, 3000);
    EXPECT_LT(nHits, 15000);
}

TEST_F(GLTree, LinesAndTrianglesAreHitWhereTheyAreAndNotOnlyAtTheirCorners)
{
    Build({{-5, 0.1, 3}, {5, 0.3, -3}, {0, 90, 1}}, {CGLLine(0, 1, false)});
    EXPECT_TRUE(Hits({-0.5, -0.5, 0.5, 0.5}));
    EXPECT_FALSE(Hits({-0.5, 0.4, 0.5, 0.5}));
    EXPECT_FALSE(Hits({6, -0.5, 7, 0.5}));
    Build({{-5, -5, 0}, {5, -5, 0}, {0, 90, 1}}, {CGLTriangle(0, 1, 2, false)});
    EXPECT_TRUE(Hits({-0.5, -0.5, 0.5, 0.5})); // the triangle holds the rectangle
    EXPECT_FALSE(Hits({4.9, 20, 5, 21}));      // inside its bounds, beside the triangle
    EXPECT_FALSE(Hits({-0.5, -0.5, 0.5, 0.5}, PickPoint | PickLine));
    // One that has collapsed to a point holds nothing.
    Build({{1, 1, 0}, {1, 1, 0}, {1, 1, 0}, {-1, -1, 0}}, {CGLTriangle(0, 1, 2, false)});
    EXPECT_TRUE(Hits({0.5, 0.5, 1.5, 1.5}));
    EXPECT_FALSE(Hits({-0.5, -0.5, 0.5, 0.5}));
}

TEST_F(GLTree, HolesAreHitOnlyWhenAskedForEvenInABoxThatLiesInside)
{
    // The one item that is no hole is of a kind that isn't wanted.
    Build({{0, 0, 0}, {1, 0, 0}, {0, 1, 0}},
          {CGLPoint(0, true), CGLLine(0, 1, true), CGLTriangle(0, 1, 2, false)});
    for (const SPickRect& rect : {SPickRect{-2, -2, 2, 2}, SPickRect{-0.5, -0.5, 0.5, 0.5}}) {
        EXPECT_FALSE(Hits(rect, PickPoint | PickLine, false));
        EXPECT_TRUE(Hits(rect, PickPoint | PickLine, true));
        EXPECT_TRUE(Hits(rect, ANY_PICK_KIND, false));
        EXPECT_EQ(m_tree.pickFirst({}, rect, PickPoint, false), nullptr);
    }
}

TEST_F(GLTree, AnEmptyTreeIsNeverHit)
{
    EXPECT_FALSE(Hits({-1e300, -1e300, 1e300, 1e300}));
    EXPECT_EQ(m_tree.pickFirst({}, {-1, -1, 1, 1}, ANY_PICK_KIND, true), nullptr);
    EXPECT_TRUE(m_tree.itemsAtPoint({}).empty());
}
