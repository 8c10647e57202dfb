#include "view/adjacency.h"

#include "tests/support/testsimulation.h"
#include "view/surface.h"

namespace {

constexpr qint64 EDGE = 4; // elements along a side

/** A square in the plane through the origin that the two directions span. */
class CSquare : public CSurface
{
public:
    CSquare(const DVector3D& corner, const DVector3D& u, const DVector3D& v)
        : CSurface(1, 1, 1), m_corner(corner), m_u(u), m_v(v)
    {
        build();
    }

protected:
    bool ElementsAreCells() const override { return false; }
    SSurfaceSize ReadSize() override { return {EDGE, EDGE}; }
    bool ReadPositions(std::span<DVector3D> positions) override
    {
        for (qint64 r = 0; r < EDGE; ++r)
            for (qint64 c = 0; c < EDGE; ++c)
                positions[r * EDGE + c] =
                    m_corner + double(r) / (EDGE - 1) * m_u + double(c) / (EDGE - 1) * m_v;
        return true;
    }
    bool ReadValues(qint64, std::span<double>) override { return false; }
    bool ReadVectors(qint64, std::span<DVector3D>) override { return false; }
    bool ReadMask(std::span<double>) override { return false; }
    double ReadValue(qint64, qint64) const override { return NO_VALUE; }
    IVector3D AddressOf(qint64) const override { return {1, 1, 1}; }
    double CurrentTime() const override { return STEADY_TIME; }
    QString ItemName() const override { return {}; }

private:
    const DVector3D m_corner, m_u, m_v;
};

class CSquareSelectable : public CTestSelectable
{
public:
    CSquareSelectable(qint64 nId, const DVector3D& corner, const DVector3D& u, const DVector3D& v)
        : CTestSelectable(1, 1, nId), m_square(corner, u, v)
    {
        m_drawables.append(&m_square);
    }

private:
    CSquare m_square;
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
