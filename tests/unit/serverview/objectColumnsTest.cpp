#include "serverview/objectColumns.h"

#include <gtest/gtest.h>

namespace velk {
namespace {

TEST(cell, field_isShownAsWhatItIs)
{
    EXPECT_EQ(cell<&trzTable::strName>({.strName = L"SALES"}), L"SALES");
    EXPECT_EQ(cell<&trzTable::lType>({.lType = 4}), L"4");
    EXPECT_EQ(cell<&trzProcedure::bIsFenced>({.bIsFenced = true}), L"True");
    EXPECT_EQ(cell<&trzFunction::bIsFenced>({.bIsFenced = 1}), L"1");
}

TEST(headersOf, headers_standInTheOrderOfTheColumns)
{
    EXPECT_EQ(headersOf<viewColumns>, (std::array<int32_t, 3>{500, 501, 502}));
}

} // namespace
} // namespace velk
