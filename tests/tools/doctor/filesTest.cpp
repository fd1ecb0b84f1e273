#include "doctor/files.h"

#include <gtest/gtest.h>

namespace velk::doctor {
namespace {

const std::string hash = "ba7816bf8f01cfea414140de5dae2223b00361a396177a9cb410ff61f20015ad";
const std::wstring wideHash(hash.begin(), hash.end());

TEST(FilesTest, hashOfKnownBytes_isTheKnownOne)
{
    EXPECT_EQ(hashOf({'a', 'b', 'c'}), wideHash);
}

TEST(FilesTest, listedHash_isThatOfTheNameWhateverStandsAround)
{
    EXPECT_EQ(listedHash(hash + " *velkviadd.dll\n", L"velkviadd.dll"), wideHash);
    EXPECT_EQ(listedHash("# a word\r\n" + std::string(64, '0') + "  other.dll\r\n" + hash + "  VELKVIADD.DLL\r\n",
                         L"velkviadd.dll"),
              wideHash);
    EXPECT_EQ(listedHash("BA7816BF" + hash.substr(8) + " *velkviadd.dll", L"velkviadd.dll"), wideHash);
}

TEST(FilesTest, damagedList_hasNoHash)
{
    EXPECT_EQ(listedHash("", L"velkviadd.dll"), L"");
    EXPECT_EQ(listedHash(hash, L"velkviadd.dll"), L"");
    EXPECT_EQ(listedHash(hash.substr(1) + "x *velkviadd.dll", L"velkviadd.dll"), L"");
    EXPECT_EQ(listedHash(hash + " *other.dll", L"velkviadd.dll"), L"");
}

TEST(FilesTest, plainPath_isWithoutQuotesAndDots)
{
    EXPECT_EQ(plainPath(L"\"C:\\windows\\.\\system32\\..\\a.dll\""), L"C:\\windows\\a.dll");
    EXPECT_EQ(plainPath(L"a.dll"), L"a.dll");
    EXPECT_EQ(plainPath(L""), L"");
    EXPECT_EQ(plainPath(L"\""), L"\"");
}

TEST(FilesTest, fileThatIsNotThere_saysWhy)
{
    std::vector<unsigned char> bytes;
    EXPECT_EQ(readBytes(L"C:\\no such folder\\file", 10, Part::beginning, bytes), DWORD{ERROR_PATH_NOT_FOUND});
    EXPECT_FALSE(readProgram(L"C:\\no such file").isThere);
}

TEST(FilesTest, folder_isNoFile)
{
    EXPECT_FALSE(isFile(L"C:\\windows"));
    EXPECT_TRUE(isFolder(L"C:\\windows"));
    EXPECT_FALSE(readProgram(L"C:\\windows").isThere);
}

} // namespace
} // namespace velk::doctor
