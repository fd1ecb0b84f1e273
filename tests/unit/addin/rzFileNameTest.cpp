#include "addin/rzFileName.h"

#include <gtest/gtest.h>

namespace velk {
namespace {

constexpr std::wstring_view installed = L"C:\\Program Files\\Velk";

TEST(defaultRZFileName, solutionWithExtension_standsInItsRzFolder)
{
    EXPECT_EQ(defaultRZFileName(L"C:\\work\\orders.sln", installed), L"C:\\work\\rz\\orders.rzv");
}

TEST(defaultRZFileName, noSolutionOpen_isProject1UnderTheAddinsFolder)
{
    EXPECT_EQ(defaultRZFileName(L"", installed), L"C:\\Program Files\\Velk\\rz\\project1.rzv");
}

TEST(defaultRZFileName, installationFolderWithBackslash_losesIt)
{
    EXPECT_EQ(defaultRZFileName(L"", L"C:\\"), L"C:\\rz\\project1.rzv");
}

TEST(defaultRZFileName, solutionWithoutDot_baseNameIsTheWholeFileName)
{
    EXPECT_EQ(defaultRZFileName(L"C:\\work\\orders", installed), L"C:\\work\\rz\\orders.rzv");
}

TEST(defaultRZFileName, solutionWithoutBackslash_leavesDirectoryAndBaseNameEmpty)
{
    EXPECT_EQ(defaultRZFileName(L"orders.sln", installed), L"\\rz\\.rzv");
}

TEST(defaultRZFileName, nameOfOneCharacter_leavesTheBaseNameEmpty)
{
    EXPECT_EQ(defaultRZFileName(L"C:\\work\\x", installed), L"C:\\work\\rz\\.rzv");
}

TEST(defaultRZFileName, severalDots_cutsBeforeTheLast)
{
    EXPECT_EQ(defaultRZFileName(L"C:\\work\\orders.v2.sln", installed), L"C:\\work\\rz\\orders.v2.rzv");
}

} // namespace
} // namespace velk
