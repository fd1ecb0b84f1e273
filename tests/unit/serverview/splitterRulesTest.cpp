#include "serverview/splitterRules.h"

#include <gtest/gtest.h>

namespace velk {
namespace {

TEST(SplitterRules, positionLessThan300FromTheBarAtTheLeft_isRefused)
{
    const SplitterRules rules{60, 6000};
    EXPECT_FALSE(rules.accepts(360));
    EXPECT_TRUE(rules.accepts(361));
}

TEST(SplitterRules, positionLessThan400FromTheBarAtTheRight_isRefused)
{
    const SplitterRules rules{60, 6000};
    EXPECT_FALSE(rules.accepts(5540));
    EXPECT_TRUE(rules.accepts(5539));
}

TEST(SplitterRules, mouseOverTheBar_reachesFiveBeyondItsWidth)
{
    const SplitterRules rules{60, 6000};
    EXPECT_TRUE(rules.isOver(1000, 1000, 1));
    EXPECT_TRUE(rules.isOver(1000, 1065, 1));
    EXPECT_FALSE(rules.isOver(1000, 1066, 1));
    EXPECT_FALSE(rules.isOver(1000, 999, 1));
    EXPECT_FALSE(rules.isOver(1000, 1030, 0));
}

TEST(SplitterRules, bar_standsAtTheTreesWidthAsFarAsTheListsRoomLetsIt)
{
    const SplitterRules rules{60, 6000};
    EXPECT_EQ(rules.barAt(3600), 3600);
    EXPECT_EQ(rules.barAt(5540), 5540);
    EXPECT_EQ(rules.barAt(5541), 5540);
    EXPECT_EQ((SplitterRules{60, 460}.barAt(3600)), 0);
    EXPECT_EQ((SplitterRules{60, 0}.barAt(3600)), 0);
}

} // namespace
} // namespace velk
