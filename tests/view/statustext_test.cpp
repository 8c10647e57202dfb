#include "view/statustext.h"

#include <QStringList>

namespace {

SPickedPoint Point()
{
    SPickedPoint point;
    point.bHasPoint = true;
    point.xyz = {1.0 / 3.0, -2e-9, 40.0};
    return point;
}

} // namespace

TEST(StatusText, AnItemIsNamedWithItsKindOnce)
{
    EXPECT_EQ(StatusText::OfItem("Block", "wing"), "Block: wing");
    EXPECT_EQ(StatusText::OfItem("Block", "Block 3"), "Block 3");
    EXPECT_EQ(StatusText::OfItem("", "wing"), "wing");
}

TEST(StatusText, TellsWhatIsKnownOfAPoint)
{
    SPickedPoint point = Point();
    EXPECT_EQ(StatusText::OfPoint("", point), "XYZ: (0.333333333333333, -2e-09, 40)");
    point.bHasIjk = true;
    point.ijk = {4, 5, 6};
    point.sVariableName = "p %1"; // a name may look like a place for an argument
    EXPECT_EQ(StatusText::OfPoint("Wing %2", point),
              "Wing %2: IJK: (4, 5, 6), XYZ: (0.333333333333333, -2e-09, 40)     p %1");
    point.dValue = 101325.123456789;
    EXPECT_EQ(StatusText::OfPoint("", point),
              "IJK: (4, 5, 6), XYZ: (0.333333333333333, -2e-09, 40)     p %1: 101325.1235");
    EXPECT_EQ(StatusText::OfPoint("Wing", {}), "Wing");
}

TEST(StatusText, MeasuresFromThePreviousPoint)
{
    EXPECT_EQ(StatusText::DistanceFromPrevious({0, 0, 0}, {0, 0, -1.0 / 3.0}),
              QString::fromUtf8("Distance from prev. point: 0.333333 [ΔX 0 , ΔY 0 , ΔZ -0.333333]"));
}

TEST(StatusText, CopiedNumbersReadBackExactly)
{
    SPickedPoint point = Point();
    point.bHasIjk = true;
    point.ijk = {1, 2, 3};
    point.sItemName = "Wing";
    point.sVariableName = "Mach";
    point.dValue = 0.1 + 0.2;
    point.bIsHole = true;
    const QStringList lines = StatusText::ToCopy(point).split('\n');
    EXPECT_EQ(lines, (QStringList{"Item: Wing", "IJK: (1, 2, 3)", "XYZ: (0.3333333333333333, -2e-09, 40)",
                                  "Mach: 0.30000000000000004", "Hole: yes"}));
    EXPECT_EQ(lines[3].mid(6).toDouble(), point.dValue);
    EXPECT_EQ(StatusText::ToCopy({}), "");
}
