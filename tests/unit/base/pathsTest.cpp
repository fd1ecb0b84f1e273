#include "base/paths.h"

#include <gtest/gtest.h>

namespace velk {
namespace {

std::wstring trimmed(std::wstring text)
{
    trimAtNull(text);
    return text;
}

std::wstring joined(const PathParts& parts)
{
    return parts.drive + L"|" + parts.directory + L"|" + parts.file;
}

TEST(trimAtNull, nulInside_keepsWhatStandsBefore)
{
    EXPECT_EQ(trimmed(std::wstring(L"ab\0cd\0", 6)), L"ab");
}

TEST(trimAtNull, nulFirst_isEmpty)
{
    EXPECT_EQ(trimmed(std::wstring(L"\0ab", 3)), L"");
}

TEST(trimAtNull, noNul_isEmptyNotTheWholeText)
{
    EXPECT_EQ(trimmed(L"abcd"), L"");
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

} // namespace
} // namespace velk
