#include "figures.h"

#include <gmock/gmock.h>

namespace velk::bench {
namespace {

using testing::HasSubstr;

Figure someFigure()
{
    Figure figure{.name = "open", .what = "a folder", .against = "a list", .unit = "ms"};
    figure.summary = {12.5, 50, 0.25, 0.125, 0.5};
    figure.target = 0.25;
    return figure;
}

TEST(median, oddCount_isTheMiddleOneInOrder)
{
    EXPECT_EQ(median({9, 1, 5}), 5);
}

TEST(median, evenCount_isBetweenTheTwoInTheMiddle)
{
    EXPECT_EQ(median({8, 1, 2, 4}), 3);
}

TEST(median, nothing_isZero)
{
    EXPECT_EQ(median({}), 0);
}

TEST(summarize, pairs_giveTheMedianOfTheRatiosNotTheRatioOfTheMedians)
{
    const Summary summary = summarize({{1, 1}, {2, 10}, {30, 10}});
    EXPECT_EQ(summary.ours, 2);
    EXPECT_EQ(summary.baseline, 10);
    EXPECT_EQ(summary.ratio, 1);
}

TEST(summarize, spread_isTheLeastAndTheGreatestRatio)
{
    const Summary summary = summarize({{1, 1}, {2, 10}, {30, 10}});
    EXPECT_DOUBLE_EQ(summary.lowest, 0.2);
    EXPECT_DOUBLE_EQ(summary.highest, 3);
}

TEST(summarize, spreadOfManyPairs_leavesOutATenthAtEitherEnd)
{
    std::vector<Pair> pairs;
    for (int ratio = 21; ratio > 0; --ratio)
        pairs.push_back({static_cast<double>(ratio), 1});
    const Summary summary = summarize(pairs);
    EXPECT_EQ(summary.lowest, 3);
    EXPECT_EQ(summary.highest, 19);
}

TEST(summarize, spreadOfTenPairs_leavesOutNone)
{
    std::vector<Pair> pairs;
    for (int ratio = 1; ratio <= 10; ++ratio)
        pairs.push_back({static_cast<double>(ratio), 1});
    EXPECT_EQ(summarize(pairs).lowest, 1);
    EXPECT_EQ(summarize(pairs).highest, 10);
}

TEST(figure, ratioAtItsTarget_isMet)
{
    EXPECT_TRUE(someFigure().isMet());
}

TEST(figure, ratioAboveItsTarget_isNotMet)
{
    Figure figure = someFigure();
    figure.summary.ratio = 0.2501;
    EXPECT_FALSE(figure.isMet());
}

TEST(jsonOf, figure_hasEveryField)
{
    EXPECT_EQ(jsonOf({someFigure()}),
              "[\n {\"name\": \"open\", \"what\": \"a folder\", \"against\": \"a list\", \"unit\": \"ms\", "
              "\"ours\": 12.5, \"baseline\": 50, \"ratio\": 0.25, \"spread\": [0.125, 0.5], \"growth\": null, "
              "\"target\": 0.25, \"met\": true, \"note\": \"\"}\n]\n");
}

TEST(jsonOf, severalFigures_areSeparated)
{
    EXPECT_THAT(jsonOf({someFigure(), someFigure()}), HasSubstr("},\n {\"name\""));
}

TEST(jsonOf, quotesAndBackslashes_areEscaped)
{
    Figure figure = someFigure();
    figure.note = "a\"b\\c";
    EXPECT_THAT(jsonOf({figure}), HasSubstr(R"("note": "a\"b\\c")"));
}

TEST(jsonOf, growth_isANumber)
{
    Figure figure = someFigure();
    figure.growth = 10.25;
    EXPECT_THAT(jsonOf({figure}), HasSubstr("\"growth\": 10.25"));
}

TEST(tableOf, figure_isOneLineUnderItsHeader)
{
    EXPECT_EQ(tableOf({someFigure()}),
              "name     ours  baseline  ratio          spread  growth  target  met  what\n"
              "open  12.5 ms   50.0 ms  0.250  0.125 to 0.500           0.250  yes  a folder, against a list\n");
}

TEST(tableOf, missedTarget_standsOut)
{
    Figure figure = someFigure();
    figure.target = 0.1;
    EXPECT_THAT(tableOf({figure}), HasSubstr("  NO  a folder"));
}

TEST(tableOf, note_standsBehindTheRow)
{
    Figure figure = someFigure();
    figure.note = "50 of 100";
    EXPECT_THAT(tableOf({figure}), HasSubstr("against a list (50 of 100)\n"));
}

} // namespace
} // namespace velk::bench
