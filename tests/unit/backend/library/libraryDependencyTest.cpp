// Where the libraries come from that the Backend library needs itself.
#include "backend/calls.h"
#include "backend/library_search.h"
#include "base/boundary.h"
#include "libraryRoom.h"

namespace velk {
namespace {

constexpr int32_t right = 815;

class backendDependency : public test::LibraryRoom {
protected:
    // Another library of that name where the user opened a file last.
    void plant()
    {
        put(VELK_PLANTED_DEPENDENCY, elsewhere);
        ASSERT_TRUE(SetCurrentDirectoryW(elsewhere.c_str()));
    }
    void SetUp() override
    {
        LibraryRoom::SetUp();
        put(VELK_DEPENDENT_BACKEND);
    }
};

TEST_F(backendDependency, besideTheLibrary_isFound)
{
    put(VELK_DEPENDENCY);
    EXPECT_EQ(RZTerminate(), right);
}

TEST_F(backendDependency, besideAndInTheCurrentDirectory_isTheOneBeside)
{
    put(VELK_DEPENDENCY);
    plant();
    EXPECT_EQ(RZTerminate(), right);
}

TEST_F(backendDependency, onlyInTheCurrentDirectory_isNotFound)
{
    plant();
    const auto failure = attempt([] { RZTerminate(); });
    ASSERT_TRUE(failure);
    EXPECT_EQ(failure->number(), 48);
    EXPECT_TRUE(isBackendLibraryFailure(*failure));
}

TEST_F(backendDependency, onlyInTheCurrentDirectoryNamedByTheSearchPath_isNotFound)
{
    plant();
    SetEnvironmentVariableW(L"PATH", L".;");
    EXPECT_TRUE(attempt([] { RZTerminate(); }));
}

TEST_F(backendDependency, onTheSearchPath_isFound)
{
    put(VELK_DEPENDENCY, elsewhere);
    SetEnvironmentVariableW(L"PATH", elsewhere.c_str());
    EXPECT_EQ(RZTerminate(), right);
}

TEST_F(backendDependency, loaded_leavesTheCurrentDirectoryAsItWas)
{
    put(VELK_DEPENDENCY);
    SetCurrentDirectoryW(elsewhere.c_str());
    const std::wstring before = currentDirectory();
    RZTerminate();
    EXPECT_EQ(currentDirectory(), before);
}

TEST_F(backendDependency, missing_leavesTheCurrentDirectoryAsItWas)
{
    SetCurrentDirectoryW(elsewhere.c_str());
    const std::wstring before = currentDirectory();
    EXPECT_TRUE(attempt([] { RZTerminate(); }));
    EXPECT_EQ(currentDirectory(), before);
}

} // namespace
} // namespace velk
