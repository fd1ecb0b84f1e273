#include "base/grouped_number.h"

#include "base/win32.h"

#include <gtest/gtest.h>

namespace velk {
namespace {

// Separators of the user's settings, set back afterwards.
class GroupedNumberTest : public testing::Test {
protected:
    GroupedNumberTest()
    {
        GetLocaleInfoW(LOCALE_USER_DEFAULT, LOCALE_STHOUSAND, m_separator, 8);
        GetLocaleInfoW(LOCALE_USER_DEFAULT, LOCALE_SGROUPING, m_groups, 16);
    }
    ~GroupedNumberTest() override { group(m_groups, m_separator); }
    static void group(const wchar_t* groups, const wchar_t* separator)
    {
        SetLocaleInfoW(LOCALE_USER_DEFAULT, LOCALE_SGROUPING, groups);
        SetLocaleInfoW(LOCALE_USER_DEFAULT, LOCALE_STHOUSAND, separator);
    }

private:
    wchar_t m_separator[8]{};
    wchar_t m_groups[16]{};
};

TEST_F(GroupedNumberTest, number_isGroupedAsTheUsersSettingsSay)
{
    group(L"3;0", L",");
    EXPECT_EQ(groupedNumber(0), L"0");
    EXPECT_EQ(groupedNumber(999), L"999");
    EXPECT_EQ(groupedNumber(12300), L"12,300");
    EXPECT_EQ(groupedNumber(1000000), L"1,000,000");
}

TEST_F(GroupedNumberTest, otherSeparatorsAndGroups_areFollowed)
{
    group(L"3;2;0", L",");
    EXPECT_EQ(groupedNumber(12345678), L"1,23,45,678");
    group(L"3", L".");
    EXPECT_EQ(groupedNumber(1234567), L"1234.567");
    group(L"0", L",");
    EXPECT_EQ(groupedNumber(1234567), L"1234567");
}

} // namespace
} // namespace velk
