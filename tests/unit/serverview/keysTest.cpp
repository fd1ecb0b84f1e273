#include "serverview/folderKinds.h"
#include "serverview/splitterRules.h"
#include "serverview/viewAPIs.h"

#include "base/error.h"

#include <gtest/gtest.h>

namespace velk {
namespace {

int32_t errorOf(const std::wstring& key)
{
    try {
        keyToHandle(key);
        return 0;
    } catch (const Error& error) {
        return error.number();
    }
}

TEST(makeKey, handles_becomeKAndTheDecimal)
{
    EXPECT_EQ(makeKey(1234), L"K1234");
    EXPECT_EQ(makeKey(-7), L"K-7");
    EXPECT_EQ(makeKey(0), L"K0");
}

TEST(keyToHandle, negativeHandle_isReadBack)
{
    EXPECT_EQ(keyToHandle(L"K-7"), -7);
}

TEST(keyToHandle, keyOfEveryHandle_givesTheHandle)
{
    EXPECT_EQ(keyToHandle(makeKey(2147483647)), 2147483647);
    EXPECT_EQ(keyToHandle(makeKey(-2147483647 - 1)), -2147483647 - 1);
}

TEST(keyToHandle, keyKAlone_givesZero)
{
    EXPECT_EQ(keyToHandle(L"K"), 0);
}

TEST(keyToHandle, trailingCharacters_areIgnored)
{
    EXPECT_EQ(keyToHandle(L"K12abc"), 12);
    EXPECT_EQ(keyToHandle(L"Kabc"), 0);
}

TEST(keyToHandle, keyWithoutK_isATypeMismatchNotACorruptKey)
{
    EXPECT_EQ(errorOf(L"X12"), errorTypeMismatch);
}

TEST(keyToHandle, kAtALaterPlace_isATypeMismatch)
{
    EXPECT_EQ(errorOf(L"12K"), errorTypeMismatch);
}

TEST(keyToHandle, lowerCaseK_isATypeMismatch)
{
    EXPECT_EQ(errorOf(L"k12"), errorTypeMismatch);
}

TEST(keyToHandle, emptyKey_isATypeMismatch)
{
    EXPECT_EQ(errorOf(L""), errorTypeMismatch);
}

TEST(folderKindRow, otherKinds_haveNone)
{
    EXPECT_EQ(folderKindRow(5), nullptr);
    EXPECT_EQ(folderKindRow(8), nullptr);
    EXPECT_EQ(folderKindRow(13)->objectKind(), 14);
}

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
