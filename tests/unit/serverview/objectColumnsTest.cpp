#include "serverview/objectColumns.h"

#include "base/text.h"

#include <gtest/gtest.h>

namespace velk {
namespace {

template <auto field, class Record>
std::wstring shown(const Record& record)
{
    NumberRoom room;
    return std::wstring(cell<field>(record, room));
}

TEST(cell, field_isShownAsWhatItIs)
{
    EXPECT_EQ(shown<&trzTable::strName>(trzTable{.strName = L"SALES"}), L"SALES");
    EXPECT_EQ(shown<&trzTable::lType>(trzTable{.lType = 4}), L"4");
    EXPECT_EQ(shown<&trzProcedure::bIsFenced>(trzProcedure{.bIsFenced = true}), booleanText(true));
    EXPECT_EQ(shown<&trzProcedure::bIsFenced>(trzProcedure{.bIsFenced = false}), booleanText(false));
    EXPECT_EQ(shown<&trzFunction::bIsFenced>(trzFunction{.bIsFenced = 1}), L"1");
}

TEST(cell, numbersAtTheEndsOfTheirRange_areShownWhole)
{
    EXPECT_EQ(shown<&trzTable::lType>(trzTable{.lType = -2147483647 - 1}), L"-2147483648");
    EXPECT_EQ(shown<&trzTable::lType>(trzTable{.lType = 2147483647}), L"2147483647");
}

TEST(headersOf, headers_standInTheOrderOfTheColumns)
{
    EXPECT_EQ(headersOf<viewColumns>, (std::array<int32_t, 3>{500, 501, 502}));
}

} // namespace
} // namespace velk
