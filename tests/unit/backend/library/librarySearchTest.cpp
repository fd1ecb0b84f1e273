#include "backend/library_search.h"

#include "libraryRoom.h"

#include <algorithm>

namespace velk {
namespace {

class librarySearch : public test::LibraryRoom {
protected:
    void SetUp() override
    {
        LibraryRoom::SetUp();
        put(VELK_INCOMPLETE_BACKEND, elsewhere);
        SetCurrentDirectoryW(elsewhere.c_str());
    }
    // The program's drive and the path behind it: "Z:" and "folder\".
    std::wstring drive() const { return elsewhere.substr(0, 2); }
    static std::optional<std::wstring> found(const std::wstring& searchPath)
    {
        SetEnvironmentVariableW(L"PATH", searchPath.c_str());
        return findLibrary(L"velkvsadd.dll");
    }
};

TEST_F(librarySearch, drivesCurrentDirectoryOnTheSearchPath_isNotLookedInto)
{
    EXPECT_EQ(found(drive()), std::nullopt);
    EXPECT_EQ(found(drive() + L"."), std::nullopt);
}

TEST_F(librarySearch, folderOfTheCurrentDirectoryOnTheSearchPath_isNotLookedInto)
{
    SetCurrentDirectoryW(beside.c_str());
    EXPECT_EQ(found(L"elsewhere"), std::nullopt);
    EXPECT_EQ(found(drive() + L"elsewhere"), std::nullopt);
}

TEST_F(librarySearch, folderFromTheRootOfTheCurrentDrive_isNotLookedInto)
{
    EXPECT_EQ(found(elsewhere.substr(2)), std::nullopt);
}

TEST_F(librarySearch, severalEntries_giveTheFirstFileThere)
{
    EXPECT_EQ(found(L".;C:nowhere;" + elsewhere + L";C:\\"), elsewhere + L"velkvsadd.dll");
}

TEST_F(librarySearch, entryWithSlashes_isLookedInto)
{
    std::wstring folder = elsewhere;
    std::replace(folder.begin(), folder.end(), L'\\', L'/');
    EXPECT_EQ(found(folder), folder + L"velkvsadd.dll");
}

TEST_F(librarySearch, folderOfThatName_isNoLibrary)
{
    const std::wstring folder = beside + L"velkvsadd.dll";
    CreateDirectoryW(folder.c_str(), nullptr);
    EXPECT_EQ(found(L""), std::nullopt);
    RemoveDirectoryW(folder.c_str());
}

} // namespace
} // namespace velk
