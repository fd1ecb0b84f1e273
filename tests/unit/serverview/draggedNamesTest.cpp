#include "serverview/draggedNames.h"

#include <gtest/gtest.h>

namespace velk {
namespace {

struct Name {
    const wchar_t* name;
    const wchar_t* text;
};
class SqlNameTest : public testing::TestWithParam<Name> {};

TEST_P(SqlNameTest, name_isInQuotesWhereItNeedsThem)
{
    EXPECT_EQ(sqlName(GetParam().name), GetParam().text);
}

// clang-format off
INSTANTIATE_TEST_SUITE_P(Ordinary, SqlNameTest, testing::Values(
    Name{L"", L""},
    Name{L"a", L"a"},
    Name{L"orders", L"orders"},
    Name{L"ORDERS", L"ORDERS"},
    Name{L"order_lines", L"order_lines"},
    Name{L"_hidden", L"_hidden"},
    Name{L"t2000", L"t2000"},
    Name{L"ordered", L"ordered"},
    Name{L"\u00fcbersicht", L"\u00fcbersicht"},
    Name{L"\u6ce8\u6587", L"\u6ce8\u6587"},
    Name{L"\u0437\u0430\u043a\u0430\u0437", L"\u0437\u0430\u043a\u0430\u0437"}));

INSTANTIATE_TEST_SUITE_P(Odd, SqlNameTest, testing::Values(
    Name{L"2000", L"\"2000\""},
    Name{L"2nd", L"\"2nd\""},
    Name{L"SYS$JOBS", L"\"SYS$JOBS\""}, // ordinary in some databases, an operator's or not allowed in others
    Name{L"$top", L"\"$top\""},
    Name{L"a#b", L"\"a#b\""},
    Name{L"odd name", L"\"odd name\""},
    Name{L" a", L"\" a\""},
    Name{L"a.b", L"\"a.b\""},
    Name{L"a,b", L"\"a,b\""},
    Name{L"a-b", L"\"a-b\""},
    Name{L"a@b", L"\"a@b\""},
    Name{L"it's", L"\"it's\""},
    Name{L"a\"b", L"\"a\"\"b\""},
    Name{L"\"", L"\"\"\"\""},
    Name{L"\"a\"", L"\"\"\"a\"\"\""},
    Name{L"a\tb", L"\"a\tb\""},
    Name{L"\u20acuro", L"\"\u20acuro\""},
    Name{L"a\u0663", L"\"a\u0663\""},               // a digit of another alphabet
    Name{L"\xd840\xdc0b", L"\"\xd840\xdc0b\""}));  // a letter of two units: no harm in quotes

INSTANTIATE_TEST_SUITE_P(Case, SqlNameTest, testing::Values(
    Name{L"Orders", L"\"Orders\""},
    Name{L"ordeR", L"\"ordeR\""},
    Name{L"\u00dcbersicht", L"\"\u00dcbersicht\""},
    Name{L"\u00dcBERSICHT", L"\u00dcBERSICHT"}));

INSTANTIATE_TEST_SUITE_P(Words, SqlNameTest, testing::Values(
    Name{L"ORDER", L"\"ORDER\""},
    Name{L"order", L"\"order\""},
    Name{L"all", L"\"all\""},
    Name{L"limit", L"\"limit\""},
    Name{L"offset", L"\"offset\""},
    Name{L"with", L"\"with\""},
    Name{L"current_date", L"\"current_date\""}));
// clang-format on

TEST(QualifiedNameTest, schemaAndName_areJoinedByADot)
{
    EXPECT_EQ(qualifiedName(L"sales", L"place_order"), L"sales.place_order");
}

TEST(QualifiedNameTest, eachPart_isQuotedForItself)
{
    EXPECT_EQ(qualifiedName(L"My Sales", L"orders"), L"\"My Sales\".orders");
    EXPECT_EQ(qualifiedName(L"sales", L"My Orders"), L"sales.\"My Orders\"");
    EXPECT_EQ(qualifiedName(L"a.b", L"c.d"), L"\"a.b\".\"c.d\"");
}

TEST(QualifiedNameTest, objectWithoutASchema_isItsNameAlone)
{
    EXPECT_EQ(qualifiedName(L"", L"orders"), L"orders");
}

TEST(QualifiedNameTest, objectWithoutAName_isNothing)
{
    EXPECT_EQ(qualifiedName(L"sales", L""), L"");
}

TEST(DraggedNamesTest, noObject_isNoText)
{
    EXPECT_EQ(DraggedNames().text(), L"");
}

TEST(DraggedNamesTest, several_areSeparatedByCommaAndBlankInTheirOrder)
{
    DraggedNames names;
    names.add(L"sales", L"b");
    names.add(L"", L"a");
    names.add(L"sales", L"odd, name");
    EXPECT_EQ(names.text(), L"sales.b, a, sales.\"odd, name\"");
}

TEST(DraggedNamesTest, objectWithoutAName_isPassedOver)
{
    DraggedNames names;
    names.add(L"sales", L"");
    names.add(L"sales", L"a");
    names.add(L"sales", L"");
    EXPECT_EQ(names.text(), L"sales.a");
}

} // namespace
} // namespace velk
