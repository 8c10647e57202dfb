#include "view/adjacency.h"

#include "tests/support/testsimulation.h"
#include "tests/support/testsurface.h"

namespace {

/** A square of 4 by 4 elements in the plane through the corner that the two directions span. */
class CSquareSelectable : public CTestSelectable
{
public:
    CSquareSelectable(qint64 nId, const DVector3D& corner, const DVector3D& u, const DVector3D& v)
        : CTestSelectable(1, 1, nId), m_square(1, 1, {4, 4}, [&](qint64 r, qint64 c) {
              return corner + double(r) / 3.0 * u + double(c) / 3.0 * v;
          })
    {
        m_drawables.append(&m_square);
    }

private:
    CTestSurface m_square;
};

constexpr double DEGREE = 3.14159265358979323846 / 180.0;

} // namespace

TEST(Adjacency, SurfacesGoOnOverAnEdgeUpToTheAngle)
{
    CSquareSelectable base(1, {0, 0, 0}, {1, 0, 0}, {0, 1, 0});
    CSquareSelectable level(2, {1, 0, 0}, {1, 0, 0}, {0, 1, 0});
    CSquareSelectable steep(3, {0, 1, 0}, {1, 0, 0}, {0, 0, 1});     // at a right angle
    CSquareSelectable turned(4, {0, 0, 0}, {0, 1, 0}, {-1, 0, 0.1}); // looks the other way, nearly level
    CSquareSelectable corner(5, {1, 1, 0}, {1, 0, 0}, {0, 1, 0});    // shares one point
    CSquareSelectable far(6, {5, 5, 0}, {1, 0, 0}, {0, 1, 0});
    const QVector<ISelectable*> all = {&base, &level, &steep, &turned, &corner, &far};
    EXPECT_EQ(FindAdjacent({&base}, all, 30 * DEGREE), QVector<ISelectable*>({&level, &turned}));
    EXPECT_EQ(FindAdjacent({&base}, all, 90 * DEGREE), QVector<ISelectable*>({&level, &steep, &turned}));
    EXPECT_EQ(FindAdjacent({&base}, all, 1 * DEGREE), QVector<ISelectable*>({&level}));
    EXPECT_TRUE(FindAdjacent({}, all, 90 * DEGREE).isEmpty());
}
