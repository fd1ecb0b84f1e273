#include "serverview/objectKeys.h"

#include "base/error.h"
#include "base/text.h"
#include "serverview/folderKinds.h"
#include "serverview/viewAPIs.h"

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

TEST(kindTag, kindOfItsText_isTheKind)
{
    EXPECT_EQ(kindTag(kindConnection), L"6");
    EXPECT_EQ(kindOfTag(kindTag(kindProject)), kindProject);
}

TEST(kindOfTag, textBehindTheNumber_isIgnored)
{
    EXPECT_EQ(kindOfTag(L"13 tables"), 13);
    EXPECT_EQ(kindOfTag(L"tables"), 0);
}

TEST(kindOfTag, anyNumber_isReadAsValDoes)
{
    for (const wchar_t* tag : {L"7", L"007", L"10", L"123456789", L"999999999", L"1000000000", L"2147483647", L"",
                               L"-5", L" 5", L"1 2", L"2.5", L"1e2", L"12x", L"x12", L"&H10", L"/", L":"})
        EXPECT_EQ(kindOfTag(tag), roundToLong(leadingNumber(tag))) << std::wstring(tag).size();
    EXPECT_EQ(kindOfTag(L"123456789"), 123456789);
}

TEST(kindOfTag, numberBeyondAll_isAnOverflow)
{
    EXPECT_THROW(kindOfTag(L"2147483648"), Error);
}

TEST(fileOfTag, textBehindTheFirstMark_isTheFile)
{
    EXPECT_EQ(fileOfTag(L"True#routines\\a#b.sql"), L"routines\\a#b.sql");
    EXPECT_EQ(fileOfTag(L"False#"), L"");
    EXPECT_EQ(fileOfTag(L"False"), L"");
}

TEST(kindOf, noNode_isOfNoKind)
{
    EXPECT_EQ(kindOf(nullptr), kindNone);
    const TreeNode node{L"K1", L"15", L"Views"};
    EXPECT_EQ(kindOf(&node), 15);
}

} // namespace
} // namespace velk
