#include "serverview/rowTexts.h"

#include <gtest/gtest.h>
#include <vector>

namespace velk {
namespace {

std::wstring textOf(const std::vector<std::vector<std::wstring>>& lines)
{
    RowTexts texts;
    for (const std::vector<std::wstring>& line : lines)
        texts.addLine(line);
    return texts.text();
}

TEST(RowTextsTest, oneCell_isItsText)
{
    EXPECT_EQ(textOf({{L"raise"}}), L"raise");
}

TEST(RowTextsTest, lines_areSeparatedByLineBreaksAndCellsByTabs)
{
    EXPECT_EQ(textOf({{L"a", L"b"}, {L"c", L"d"}}), L"a\tb\r\nc\td");
}

TEST(RowTextsTest, emptyCellsAndLines_keepTheirPlaces)
{
    EXPECT_EQ(textOf({{L""}, {L"", L"x", L""}, {L""}}), L"\r\n\tx\t\r\n");
}

TEST(RowTextsTest, tabsAndLineBreaksInACell_becomeBlanks)
{
    EXPECT_EQ(textOf({{L"a\tb\r\nc\nd\re", L"f\r"}}), L"a b c d e\tf ");
}

TEST(RowTextsTest, noLines_areNoText)
{
    EXPECT_EQ(textOf({}), L"");
}

} // namespace
} // namespace velk
