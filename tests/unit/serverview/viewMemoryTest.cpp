#include "serverview/viewMemory.h"

#include <gmock/gmock.h>

namespace velk {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

ProjectView fullView()
{
    ProjectView view;
    view.lastUsed = 133'000'000'000'000'000;
    view.select({13, L"ORDERS;1:+"});
    view.expand(L"", true);
    view.expand(L"ORDERS;1:+", true);
    view.expand(L"STOCK", false);
    return view;
}

TEST(ViewMemory, treeWidth_isKeptAndFoundAgain)
{
    EXPECT_EQ(keptTreeWidth(3600), L"1;3600");
    EXPECT_EQ(treeWidthOf(L"1;3600"), 3600);
}

TEST(ViewMemory, treeWidthOutOfReach_isAbsent)
{
    EXPECT_EQ(treeWidthOf(L"1;300"), 300);
    EXPECT_EQ(treeWidthOf(L"1;299"), std::nullopt);
    EXPECT_EQ(treeWidthOf(L"1;120000"), 120000);
    EXPECT_EQ(treeWidthOf(L"1;120001"), std::nullopt);
    EXPECT_EQ(treeWidthOf(L"1;-3600"), std::nullopt);
    EXPECT_EQ(treeWidthOf(L"1;3600 "), std::nullopt);
    EXPECT_EQ(treeWidthOf(L"2;3600"), std::nullopt);
    EXPECT_EQ(treeWidthOf(L""), std::nullopt);
}

TEST(ViewMemory, flag_isKeptAndFoundAgain)
{
    EXPECT_EQ(flagOf(keptFlag(true)), true);
    EXPECT_EQ(flagOf(keptFlag(false)), false);
    EXPECT_EQ(flagOf(L"1;2"), std::nullopt);
    EXPECT_EQ(flagOf(L"1;1;"), std::nullopt);
    EXPECT_EQ(flagOf(L"0;1"), std::nullopt);
    EXPECT_EQ(flagOf(L""), std::nullopt);
}

TEST(ViewMemory, projectsView_isKeptAndFoundAgain)
{
    EXPECT_EQ(keptTextOf(fullView()), L"1;133000000000000000;13:10:ORDERS;1:+;+0:+10:ORDERS;1:+-5:STOCK");
    EXPECT_EQ(projectViewOf(keptTextOf(fullView())), fullView());
}

TEST(ViewMemory, projectThatNobodyTouched_isKeptAndFoundAgain)
{
    ProjectView view;
    view.lastUsed = 1;
    EXPECT_EQ(keptTextOf(view), L"1;1;;");
    EXPECT_EQ(projectViewOf(L"1;1;;"), view);
}

class BrokenViews : public testing::TestWithParam<const wchar_t*> {};
TEST_P(BrokenViews, read_areAbsent)
{
    EXPECT_EQ(projectViewOf(GetParam()), std::nullopt);
}
INSTANTIATE_TEST_SUITE_P(ViewMemory, BrokenViews,
                         testing::Values(L"", L"1", L"1;", L"1;1", L"1;1;", L"2;1;;", L"1;0;;", L"1;-1;;",
                                         L"1;4611686018427387905;;", L"1;18446744073709551617;;", L"1;1;13;",
                                         L"1;1;13:;", L"1;1;13:7:ORDERS;", L"1;1;0:6:ORDERS;", L"1;1;100:6:ORDERS;",
                                         L"1;1;13:6:ORDERS", L"1;1;;6:ORDERS", L"1;1;;+7:ORDERS", L"1;1;;+", L"1;1;;-0",
                                         L"1;1;;+-1:", L"1;1;;+99999999999:x", L"1;1;;+0: "));

TEST(ViewMemory, namesThatAreTooLong_areNotKept)
{
    ProjectView view;
    view.select({13, std::wstring(256, L'x')});
    view.expand(std::wstring(256, L'x'), true);
    EXPECT_EQ(view, ProjectView());
    view.select({13, std::wstring(255, L'x')});
    view.lastUsed = 1;
    EXPECT_EQ(projectViewOf(keptTextOf(view)), view);
    EXPECT_EQ(projectViewOf(L"1;1;;+256:" + std::wstring(256, L'x')), std::nullopt);
}

TEST(ViewMemory, nameThatIsTooLong_takesTheFormerSelectionAway)
{
    ProjectView view;
    view.select({13, L"ORDERS"});
    view.select({13, std::wstring(256, L'x')});
    EXPECT_EQ(view.selected, std::nullopt);
}

std::wstring manyNodes(int nodes)
{
    std::wstring text;
    for (int node = 0; node < nodes; ++node)
        text += L"+3:" + std::to_wstring(100 + node);
    return text;
}

TEST(ViewMemory, nodesBeyondAHundred_areNotKept)
{
    EXPECT_EQ(projectViewOf(L"1;1;;" + manyNodes(100))->expanded.size(), 100u);
    EXPECT_EQ(projectViewOf(L"1;1;;" + manyNodes(101)), std::nullopt);
    ProjectView view = *projectViewOf(L"1;1;;" + manyNodes(100));
    view.expand(L"one more", true);
    view.expand(L"100", false);
    EXPECT_EQ(view.expanded.size(), 100u);
    EXPECT_FALSE(view.expanded.at(L"100"));
}

TEST(ViewMemory, fullestView_isNotTooLongToBeKept)
{
    ProjectView view;
    view.lastUsed = 1;
    view.select({13, std::wstring(255, L'x')});
    for (int node = 0; node < 100; ++node)
        view.expand(std::wstring(252, L'x') + std::to_wstring(100 + node), true);
    EXPECT_LT(keptTextOf(view).size(), longestKeptText);
    EXPECT_EQ(projectViewOf(keptTextOf(view)), view);
}

std::vector<KnownProject> projects(uint64_t count)
{
    std::vector<KnownProject> known;
    for (uint64_t number = 0; number < count; ++number)
        known.push_back({L"p" + std::to_wstring(number), 1000 + number});
    return known;
}

TEST(ViewMemory, fiftyProjects_allStay)
{
    EXPECT_THAT(surplusProjects(projects(50), L"p0"), IsEmpty());
    EXPECT_THAT(surplusProjects(projects(49), L"new"), IsEmpty());
}

TEST(ViewMemory, projectBeyondFifty_takesTheLeastRecentlyUsedAway)
{
    EXPECT_THAT(surplusProjects(projects(50), L"new"), ElementsAre(L"p0"));
    EXPECT_THAT(surplusProjects(projects(51), L"p0"), ElementsAre(L"p1"));
    EXPECT_THAT(surplusProjects(projects(52), L"new"), ElementsAre(L"p2", L"p1", L"p0"));
}

TEST(ViewMemory, projectsThatCannotBeRead_goFirst)
{
    std::vector<KnownProject> known = projects(50);
    known[30].lastUsed = 0;
    EXPECT_THAT(surplusProjects(known, L"new"), ElementsAre(L"p30"));
}

} // namespace
} // namespace velk
