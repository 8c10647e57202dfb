#include "data/managers/timelevels.h"

namespace {

CTimeLevels Levels(std::initializer_list<double> times)
{
    CTimeLevels levels;
    qint64 nId = 0;
    for (const double dTime : times)
        levels.Insert({nId++, 7, dTime});
    return levels;
}

} // namespace

TEST(TimeLevels, ARequestIsALevelABlendOrAnEnd)
{
    const CTimeLevels levels = Levels({2.0, 1.0, 4.0}); // ids 0, 1, 2
    struct
    {
        double dTime;
        STimeMatch expected;
    } cases[] = {{-1.0, {1, 1, 1.0}},  {0.5, {1, 1, 1.0}},  {1.0, {1, 1, 1.0}}, {2.0, {0, 0, 1.0}},
                 {1.25, {1, 0, 0.75}}, {3.5, {0, 2, 0.25}}, {9.0, {2, 2, 1.0}}};
    for (const auto& test : cases)
        EXPECT_EQ(levels.Find(-1, test.dTime, false), test.expected) << test.dTime;
    EXPECT_EQ(levels.Find(7, 2.0, true), (STimeMatch{0, 0, 1.0}));
    EXPECT_FALSE(levels.Find(-1, 1.5, true).IsFound());
    EXPECT_FALSE(levels.Find(8, 2.0, true).IsFound()) << "another sub-id";
    EXPECT_FALSE(CTimeLevels().Find(-1, 1.0, false).IsFound());
}

TEST(TimeLevels, ASteadyLevelTakesNoPartInASearchBetweenOthers)
{
    const CTimeLevels levels = Levels({-1.0, 1.0, 2.0});
    EXPECT_EQ(levels.Find(-1, 0.0, false), (STimeMatch{1, 1, 1.0}));
    EXPECT_EQ(levels.Find(-1, -1.0, false), (STimeMatch{0, 0, 1.0}));
    EXPECT_EQ(Levels({3.0}).Find(-1, 99.0, false), (STimeMatch{0, 0, 1.0})) << "one level serves all times";
}

TEST(TimeLevels, ALevelOfTheSameTimeMakesWay)
{
    CTimeLevels levels = Levels({1.0, 2.0});
    EXPECT_EQ(levels.Insert({9, 7, 2.0}), 1);
    EXPECT_EQ(levels.Insert({10, 7, 3.0}), -1);
    EXPECT_EQ(levels.Find(-1, 2.0, false), (STimeMatch{9, 9, 1.0}));
}
