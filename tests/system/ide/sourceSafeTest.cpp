// Source control from the menu items down to the files: the add-in in the IDE, with the stand-in SourceSafe.
#include "base/registry.h"
#include "ideRun.h"
#include "support/folders.h"

namespace velk {
namespace {

using testing::Contains;
using testing::HasSubstr;
using testing::Not;

constexpr wchar_t databasesKey[] = L"Software\\Microsoft\\SourceSafe\\Databases";
constexpr const char* solutionOpened =
    "open-solution $SAMPLE\\orders.sln\nclick Add-Ins/#1\nexpect-node Orders/ORDERS/Views\n";
constexpr const char* toLogin = "right-click-node Orders\nchoose-menu Add Project to Visual SourceSafe\n";
constexpr const char* bothGone = "expect-module velkviadd.dll unloaded\nexpect-module ssapi.dll unloaded\n";

class SourceSafeTest : public test::IdeRun {
protected:
    SourceSafeTest()
    {
        CopyFileW(VELK_BIN L"\\ssapi.dll", path(L"ssapi.dll").c_str(), FALSE);
        test::copyTree(L"vss", path(L"vss"));
        registerDll(L"ssapi.dll", "DllRegisterServer");
    }
    ~SourceSafeTest() override
    {
        registry::removeTree(HKEY_LOCAL_MACHINE, databasesKey);
        registerDll(L"ssapi.dll", "DllUnregisterServer");
    }
    void registerDatabase() const
    {
        registry::setText(registry::createKey(HKEY_LOCAL_MACHINE, databasesKey).get(), L"Sample", path(L"vss"));
    }
    bool hasAddedFile() const
    {
        return GetFileAttributesW(path(L"vss\\data\\p,Orders\\f,orders.rzv").c_str()) != INVALID_FILE_ATTRIBUTES;
    }
    void expectNoBreach() { EXPECT_THAT(backendJournal(), Not(Contains(HasSubstr("BREACH")))); }
};

TEST_F(SourceSafeTest, guidedTour_holdsAtEveryStep)
{
    registerDatabase();
    EXPECT_EQ(runFile(L"sourcesafe.script", L"--define \"VSS=" + path(L"vss") + L"\""), 0u);
    expectNoBreach();
}

TEST_F(SourceSafeTest, noDatabaseRegistered_saysSoBeforeTheLogin)
{
    EXPECT_EQ(runShown(std::string(solutionOpened) + toLogin +
                       "expect-message No Visual SourceSafe database is registered.\nanswer ok\n"
                       "expect-message Visual SourceSafe Login\nanswer escape\nexpect-no-message\n"
                       "unload velkviadd.Connect\n" +
                       bothGone),
              0u);
    expectNoBreach();
}

TEST_F(SourceSafeTest, cancelledLogin_addsNothing)
{
    registerDatabase();
    EXPECT_EQ(runShown(std::string(solutionOpened) + toLogin +
                       "expect-message Visual SourceSafe Login\nfill 1 ann\nfill 2 secret\nanswer-quickly Login\n"
                       "fill 4 Orders\nanswer Cancel\nexpect-no-message\nunload velkviadd.Connect\n" +
                       bothGone),
              0u);
    EXPECT_FALSE(hasAddedFile());
    expectNoBreach();
}

TEST_F(SourceSafeTest, unloadingUnderTheBoxBeforeTheLogin_opensNoLogin)
{
    EXPECT_EQ(runShown(std::string(solutionOpened) + toLogin +
                       "expect-message No Visual SourceSafe database is registered.\nunload velkviadd.Connect\n"
                       "answer ok\nwait 300\nexpect-no-message\n" +
                       bothGone),
              0u);
    expectNoBreach();
}

TEST_F(SourceSafeTest, unloadingUnderTheLogin_closesItAndAddsNothing)
{
    registerDatabase();
    EXPECT_EQ(runShown(std::string(solutionOpened) + toLogin +
                       "expect-message Visual SourceSafe Login\nfill 1 ann\nfill 2 secret\nanswer-quickly Login\n"
                       "unload velkviadd.Connect\nexpect-no-message\n" +
                       bothGone),
              0u);
    EXPECT_FALSE(hasAddedFile());
    expectNoBreach();
}

TEST_F(SourceSafeTest, unloadingUnderTheBoxOfAFailedLogin_isClean)
{
    registerDatabase();
    EXPECT_EQ(runShown(std::string(solutionOpened) + toLogin +
                       "expect-message Visual SourceSafe Login\nfill 1 ann\nfill 2 wrong\nanswer Login\n"
                       "expect-message password\nunload velkviadd.Connect\nanswer ok\nexpect-no-message\n" +
                       bothGone),
              0u);
    expectNoBreach();
}

} // namespace
} // namespace velk
