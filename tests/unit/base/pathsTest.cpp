#include "base/paths.h"

#include <gtest/gtest.h>

namespace velk {
namespace {

std::wstring joined(const PathParts& parts)
{
    return parts.drive + L"|" + parts.directory + L"|" + parts.file;
}

TEST(splitDrive, emptyPath_bothEmpty)
{
    const auto [drive, rest] = splitDrive(L"");
    EXPECT_EQ(drive, L"");
    EXPECT_EQ(rest, L"");
}

TEST(splitDrive, drive_keepsItsColon)
{
    const auto [drive, rest] = splitDrive(L"C:\\Work\\a.rzv");
    EXPECT_EQ(drive, L"C:");
    EXPECT_EQ(rest, L"\\Work\\a.rzv");
}

TEST(splitDrive, noColon_allIsRest)
{
    const auto [drive, rest] = splitDrive(L"Work\\a.rzv");
    EXPECT_EQ(drive, L"");
    EXPECT_EQ(rest, L"Work\\a.rzv");
}

TEST(splitDrive, twoColons_partsAtTheFirst)
{
    const auto [drive, rest] = splitDrive(L"ab:c:d");
    EXPECT_EQ(drive, L"ab:");
    EXPECT_EQ(rest, L"c:d");
}

TEST(splitPath, driveBackslashFile_hasNoFileAndKeepsTheRestAsDirectory)
{
    EXPECT_EQ(joined(splitPath(L"C:\\a.rzv")), L"C:|\\a.rzv|");
}

TEST(splitPath, driveFolderFile_partsAtTheLastBackslash)
{
    EXPECT_EQ(joined(splitPath(L"C:\\Work\\a.rzv")), L"C:|\\Work|a.rzv");
}

TEST(splitPath, trailingBackslash_hasAnEmptyFile)
{
    EXPECT_EQ(joined(splitPath(L"C:\\Work\\")), L"C:|\\Work|");
}

TEST(splitPath, noBackslash_isAllDirectory)
{
    EXPECT_EQ(joined(splitPath(L"C:a.rzv")), L"C:|a.rzv|");
}

TEST(splitPath, emptyPath_isEmpty)
{
    EXPECT_EQ(joined(splitPath(L"")), L"||");
}

TEST(splitPath, onlyDrive_hasNeitherDirectoryNorFile)
{
    EXPECT_EQ(joined(splitPath(L"C:")), L"C:||");
}

TEST(splitPath, relativeFolder_partsThere)
{
    EXPECT_EQ(joined(splitPath(L"w\\a.rzv")), L"|w|a.rzv");
}

TEST(splitPath, colonBehindTheFolder_partsThereFirst)
{
    EXPECT_EQ(joined(splitPath(L"\\a\\b:c\\d")), L"\\a\\b:|c|d");
}

TEST(splitPath, twoLeadingBackslashes_partsAtTheSecond)
{
    EXPECT_EQ(joined(splitPath(L"\\\\server")), L"|\\|server");
}

TEST(parentDir, driveFolderFile_isAllBeforeTheLastBackslash)
{
    EXPECT_EQ(parentDir(L"C:\\Work\\a.rzv"), L"C:\\Work");
}

TEST(parentDir, fileAtTheRootOfADrive_isTheDrive)
{
    EXPECT_EQ(parentDir(L"C:\\a.rzv"), L"C:");
}

TEST(parentDir, trailingBackslash_isAllBeforeIt)
{
    EXPECT_EQ(parentDir(L"C:\\Work\\"), L"C:\\Work");
}

TEST(parentDir, backslashFirst_isEmpty)
{
    EXPECT_EQ(parentDir(L"\\a.rzv"), L"");
}

TEST(parentDir, noBackslash_isEmpty)
{
    EXPECT_EQ(parentDir(L"a.rzv"), L"");
}

TEST(parentDir, emptyPath_isEmpty)
{
    EXPECT_EQ(parentDir(L""), L"");
}

TEST(fileNameOf, path_isWhatFollowsItsLastBackslash)
{
    EXPECT_EQ(fileNameOf(L"a.sql"), L"a.sql");
    EXPECT_EQ(fileNameOf(L"C:\\src\\deep\\a.sql"), L"a.sql");
    EXPECT_EQ(fileNameOf(L"C:\\src\\"), L"");
}

struct Folder {
    const wchar_t* name;
    bool isFullyQualified;
};

class folderName : public testing::TestWithParam<Folder> {};

TEST_P(folderName, countsOnly_whereItMeansOnePlace)
{
    EXPECT_EQ(isFullyQualified(GetParam().name), GetParam().isFullyQualified);
}

// clang-format off
INSTANTIATE_TEST_SUITE_P(each, folderName, testing::Values(
    Folder{L"C:\\",                        true},
    Folder{L"C:\\tools",                   true},
    Folder{L"z:/tools",                    true},
    Folder{L"\\\\server\\share",           true},
    Folder{L"\\\\server\\share\\tools",    true},
    Folder{L"//server/share",              true},
    Folder{L"\\\\?\\C:\\tools",            true},
    Folder{L"\\\\?\\UNC\\server\\share",   true},
    Folder{L"\\\\?\\Volume{5b0}\\tools",   true},
    Folder{L"",                            false},
    Folder{L".",                           false},
    Folder{L"..\\tools",                   false},
    Folder{L"tools",                       false},
    Folder{L"\\",                          false},
    Folder{L"\\tools",                     false},
    Folder{L"C:",                          false},
    Folder{L"C:.",                         false},
    Folder{L"C:tools",                     false},
    Folder{L"1:\\tools",                   false},
    Folder{L"%SystemRoot%\\tools",         false},
    Folder{L"\\\\",                        false},
    Folder{L"\\\\server",                  false},
    Folder{L"\\\\server\\",                false},
    Folder{L"\\\\\\share",                 false},
    Folder{L"\\\\server\\\\tools",         false},
    Folder{L"\\\\.\\pipe",                 false},
    Folder{L"\\\\?\\C:",                   false},
    Folder{L"\\\\?\\C:tools",              false},
    Folder{L"\\\\?\\tools",                false},
    Folder{L"\\\\?\\UNC\\server",          false},
    Folder{L"//?/tools",                   false}));
// clang-format on

} // namespace
} // namespace velk
