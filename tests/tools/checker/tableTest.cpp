#include "checker/checks.h"
#include "checker/textNumbers.h"

#include <gmock/gmock.h>
#include <string>
#include <vector>

namespace velk::check {
namespace {

std::vector<Rule> checkedRules()
{
    std::vector<Rule> rules;
    for (const CheckRow& row : checkRows())
        rules.push_back(row.rule);
    return rules;
}

std::vector<Rule> rulesOfLibraries()
{
    std::vector<Rule> rules;
    for (size_t row = 0; row < ruleCount; ++row)
        if (rowOf(static_cast<Rule>(row)).bindsLibrary)
            rules.push_back(static_cast<Rule>(row));
    return rules;
}

TEST(CheckTable, rulesThatBindTheLibrary_areCheckedOnceEach)
{
    EXPECT_THAT(checkedRules(), testing::UnorderedElementsAreArray(rulesOfLibraries()));
}

TEST(CheckTable, rows_standInTheOrderOfTheirLevels)
{
    std::vector<int> levels;
    for (const CheckRow& row : checkRows())
        levels.push_back(rowOf(row.rule).level);
    EXPECT_THAT(levels, testing::WhenSorted(testing::ElementsAreArray(levels)));
    EXPECT_EQ(levels.back(), lastLevel);
}

TEST(CheckTable, rulesOfMisuse_areBlamedForTheirFaultsThemselves)
{
    std::vector<std::string> others;
    for (const CheckRow& row : checkRows())
        if (rowOf(row.rule).number[0] == 'M' && row.blamed != row.rule)
            others.push_back(rowOf(row.rule).number);
    EXPECT_THAT(others, testing::IsEmpty());
}

TEST(RuleTable, number_isFoundByItsText)
{
    EXPECT_EQ(ruleOf("N7"), Rule::N7);
    EXPECT_EQ(ruleOf("N99"), std::nullopt);
}

TEST(TextNumbers, table_hasTheTextsWithParameters)
{
    int parameters = 0;
    for (const TextNumber& row : textNumbers())
        parameters += row.parameters;
    EXPECT_EQ(parameters, 3); // of 675 and 683
}

} // namespace
} // namespace velk::check
