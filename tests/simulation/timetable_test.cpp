#include "simulation/timetable.h"

namespace {

CTimeTable Table(std::initializer_list<std::pair<double, qint64>> levels)
{
    CTimeTable table;
    for (const auto& [dTime, nStep] : levels)
        table.Insert(dTime, nStep, 0, table.Count() - 1);
    return table;
}

} // namespace

TEST(TimeTable, LevelsAreKeptAscendingAndAKnownTimeOnlyTakesTheStep)
{
    const CTimeTable table =
        Table({{3.0, 30}, {1.0, 10}, {2.0, 20}, {0.5, 5}, {2.0, 22}, {1.0, 11}, {3.0, 33}});
    ASSERT_EQ(table.Count(), 4);
    const QVector<QPair<double, double>> expected = {{0.5, 5}, {1.0, 11}, {2.0, 22}, {3.0, 33}};
    for (int n = 0; n < 4; ++n) {
        EXPECT_EQ(table.IndexToTime(n + 1), expected[n].first);
        EXPECT_EQ(table.IndexToStep(n + 1), expected[n].second);
    }
    EXPECT_EQ(table.Range(), QPointF(0.5, 3.0));
}

TEST(TimeTable, AnEmptyRangeAppendsWhateverTheTime)
{
    CTimeTable table = Table({{5.0, 1}});
    table.Insert(1.0, 2, 1, 0);
    EXPECT_EQ(table.IndexToTime(2.0), 1.0);
}

TEST(TimeTable, AnIndexBetweenLevelsIsLinearAndOneOutsideIsClamped)
{
    const CTimeTable table = Table({{1.0, 100}, {2.0, 300}, {4.0, 400}});
    const double cases[][3] = {{1.0, 1.0, 100}, {1.5, 1.5, 200},  {2.25, 2.5, 325}, {3.0, 4.0, 400},
                               {0.0, 1.0, 100}, {-7.0, 1.0, 100}, {3.5, 4.0, 400},  {99.0, 4.0, 400}};
    for (const auto& [dIndex, dTime, dStep] : cases) {
        EXPECT_DOUBLE_EQ(table.IndexToTime(dIndex), dTime) << dIndex;
        EXPECT_DOUBLE_EQ(table.IndexToStep(dIndex), dStep) << dIndex;
    }
}

TEST(TimeTable, TimesAndStepsFindTheirIndex)
{
    const CTimeTable table = Table({{1.0, 100}, {2.0, 300}, {4.0, 400}});
    const double times[][2] = {{-1.0, 1.0}, {0.5, 1.0},  {1.0, 1.0}, {1.5, 1.5},
                               {2.0, 2.0},  {2.5, 2.25}, {4.0, 3.0}, {4.1, 3.0}};
    for (const auto& [dTime, dIndex] : times)
        EXPECT_DOUBLE_EQ(table.TimeToIndex(dTime), dIndex) << dTime;
    EXPECT_DOUBLE_EQ(table.StepToIndex(350.0), 2.5);
    EXPECT_DOUBLE_EQ(table.TimeToStep(1.5), 200.0);
    EXPECT_DOUBLE_EQ(table.StepToTime(200.0), 1.5);
}

TEST(TimeTable, AnEmptyTableGivesMinusOneEverywhere)
{
    const CTimeTable table;
    for (const double dValue : {table.IndexToTime(1.0), table.IndexToStep(1.0), table.TimeToIndex(3.0),
                                table.StepToIndex(3.0), table.Range().x(), table.Range().y()})
        EXPECT_EQ(dValue, -1.0);
}
