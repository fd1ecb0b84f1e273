// The product's operations with the stand-in behind them: the registry, COM, files and all.

#include "sampleDatabase.h"
#include "scc/VSSAPI.h"
#include "support/failureLog.h"
#include "support/fakeBackend.h"
#include "support/shownMessages.h"

namespace velk {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

constexpr wchar_t databasesKey[] = L"Software\\Microsoft\\SourceSafe\\Databases";

class ProductTest : public test::SourceSafeFixture {
protected:
    ProductTest()
    {
        registry::setText(registry::createKey(HKEY_LOCAL_MACHINE, databasesKey).get(), L"Sample", folder + L"\\vss");
        getSourceSafeDatabases(table);
    }
    ~ProductTest() override
    {
        closeSourceSafe();
        registry::removeTree(HKEY_LOCAL_MACHINE, databasesKey);
    }
    bool logIn(const std::wstring& password = L"secret")
    {
        return openSourceSafeDatabase(L"ann", password, L"Sample", table);
    }
    int32_t versionsOf(const std::wstring& spec) const { return number(item(open(), spec), L"VersionNumber"); }

    test::FakeBackend backend;
    test::FailureLog failures;
    DatabaseTable table;
    test::ShownMessages shownMessages;
    std::vector<std::wstring>& messages = shownMessages.lines;
};

TEST_F(ProductTest, registeredStandIn_countsAsInstalled)
{
    EXPECT_TRUE(isSourceSafeInstalled());
}

TEST_F(ProductTest, logIn_listsTheProjects)
{
    EXPECT_TRUE(logIn());
    std::vector<std::wstring> projects;
    EXPECT_TRUE(getSourceSafeProjects(projects));
    EXPECT_THAT(projects, ElementsAre(L"Orders"));
    EXPECT_THAT(messages, IsEmpty());
}

TEST_F(ProductTest, wrongPassword_isShownAndReportedWithoutThePassword)
{
    EXPECT_FALSE(logIn(L"tOp-sEcret"));
    EXPECT_THAT(messages, ElementsAre(L"The password for user \"ann\" is wrong."));
    EXPECT_THAT(failures.descriptions, Not(IsEmpty()));
    EXPECT_THAT(failures.descriptions, Not(Contains(HasSubstr(L"tOp-sEcret"))));
}

TEST_F(ProductTest, databaseWithoutItsFolder_isShownAsSourceSafeTellsIt)
{
    EXPECT_FALSE(openSourceSafeDatabase(L"ann", L"secret", L"Gone", {{L"Gone", folder + L"\\gone"}}));
    EXPECT_THAT(messages, ElementsAre(HasSubstr(L"\\gone\\srcsafe.ini\" cannot be found")));
}

TEST_F(ProductTest, newProject_isCreatedAndTakesFiles)
{
    logIn();
    createSourceSafeProject(L"New");
    addFileToSourceSafe(written(L"a.sql", "one"));
    EXPECT_EQ(versionsOf(L"$/New/a.sql"), 1);
    EXPECT_THAT(failures.lines, IsEmpty());
}

TEST_F(ProductTest, existingProject_isMadeCurrentWithoutAFailure)
{
    logIn();
    createSourceSafeProject(L"orders");
    addFileToSourceSafe(written(L"a.sql", "one"));
    EXPECT_EQ(versionsOf(L"$/Orders/a.sql"), 1);
    EXPECT_THAT(failures.lines, IsEmpty());
}

TEST_F(ProductTest, file_goesOutAndComesBackAsANewVersion)
{
    logIn();
    createSourceSafeProject(L"Orders");
    addFileToSourceSafe(written(L"a.sql", "one"));
    checkOutFile(local(L"a.sql"));
    EXPECT_FALSE(files::isReadOnly(local(L"a.sql")));
    checkInFile(written(L"a.sql", "two"));
    EXPECT_TRUE(files::isReadOnly(local(L"a.sql")));
    EXPECT_EQ(versionsOf(L"$/Orders/a.sql"), 2);
    EXPECT_THAT(failures.lines, IsEmpty());
}

TEST_F(ProductTest, refusedCheckOut_isOnlyReported)
{
    logIn();
    createSourceSafeProject(L"Orders");
    addFileToSourceSafe(written(L"a.sql", "one"));
    checkOut(item(open(L"bob", L""), L"$/Orders/a.sql"), local(L"bob.sql"));
    checkOutFile(local(L"a.sql"));
    EXPECT_THAT(messages, IsEmpty());
    EXPECT_THAT(failures.descriptions, ElementsAre(L"\"$/Orders/a.sql\" is checked out by user \"bob\"."));
}

} // namespace
} // namespace velk
