#include "scc/VSSAPI.h"
#include "support/failureLog.h"
#include "support/fakeBackend.h"
#include "support/fakeSourceSafe.h"
#include "support/shownMessages.h"

#include <gmock/gmock.h>

namespace velk {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::Not;
using Journal = test::FakeObject::Journal;

class VSSAPITest : public testing::Test {
protected:
    VSSAPITest() { backend.texts = {{675, L"not %1"}, {682, L"log in"}}; }
    ~VSSAPITest() override { closeSourceSafe(); }
    void logIn()
    {
        openSourceSafeDatabase(L"ann", L"secret", L"Main", {{L"Main", L"C:\\vss"}});
        setCurrentProject(L"Web");
        sourceSafe.journal.clear();
    }
    // Whether anybody beside the stand-in holds the database.
    bool isDatabaseOpen() const
    {
        sourceSafe.database->AddRef();
        return sourceSafe.database->Release() > 1;
    }

    test::FakeBackend backend;
    test::FakeSourceSafe sourceSafe;
    test::ShownMessages shownMessages{test::ShownMessages::textAndStyle};
    const std::vector<std::wstring>& messages = shownMessages.lines;
};

TEST_F(VSSAPITest, withoutTheKey_sourceSafeIsAbsent)
{
    EXPECT_FALSE(isSourceSafeInstalled());
}

TEST_F(VSSAPITest, withoutTheServerPath_sourceSafeIsAbsent)
{
    test::FakeSourceSafe::addDatabase(L"Main", L"C:\\vss"); // makes the key, too
    EXPECT_FALSE(isSourceSafeInstalled());
    test::FakeSourceSafe::install();
    EXPECT_TRUE(isSourceSafeInstalled());
}

TEST_F(VSSAPITest, registeredDatabases_areListedInTheirOrder)
{
    test::FakeSourceSafe::addDatabase(L"Main", L"C:\\vss");
    test::FakeSourceSafe::addDatabase(L"Old", L"D:\\old vss");
    DatabaseTable table;
    EXPECT_TRUE(getSourceSafeDatabases(table));
    ASSERT_EQ(table.size(), 2u);
    EXPECT_EQ(table[0].name, L"Main");
    EXPECT_EQ(table[1].folder, L"D:\\old vss");
}

TEST_F(VSSAPITest, folderNamedNotFound_endsTheList)
{
    test::FakeSourceSafe::addDatabase(L"A", L"C:\\a");
    test::FakeSourceSafe::addDatabase(L"B", L"Not Found");
    test::FakeSourceSafe::addDatabase(L"C", L"C:\\c");
    DatabaseTable table;
    EXPECT_TRUE(getSourceSafeDatabases(table));
    EXPECT_EQ(table.size(), 1u);
}

TEST_F(VSSAPITest, opening_givesIniPathUserAndPassword)
{
    EXPECT_TRUE(openSourceSafeDatabase(L"ann", L"secret", L"Main", {{L"main", L"C:\\x"}, {L"Main", L"C:\\vss"}}));
    EXPECT_THAT(sourceSafe.journal, ElementsAre(L"Database.Open(\"C:\\vss\\srcsafe.ini\", \"ann\", \"secret\")"));
    EXPECT_TRUE(isDatabaseOpen());
}

TEST_F(VSSAPITest, openingThatFails_showsSourceSafesOwnWordsAndLeavesNoDatabase)
{
    logIn();
    sourceSafe.database->failing(L"Open", Error(5, L"Invalid password", L"SourceSafe", E_FAIL));
    EXPECT_FALSE(openSourceSafeDatabase(L"ann", L"wrong", L"Main", {{L"Main", L"C:\\vss"}}));
    EXPECT_THAT(messages, ElementsAre(L"Invalid password|0"));
    EXPECT_FALSE(isDatabaseOpen());
}

TEST_F(VSSAPITest, newLogin_keepsTheCurrentProject)
{
    logIn();
    ASSERT_TRUE(openSourceSafeDatabase(L"bob", L"other", L"Main", {{L"Main", L"C:\\vss"}}));
    sourceSafe.journal.clear();
    addFileToSourceSafe(L"C:\\src\\a.sql");
    EXPECT_THAT(sourceSafe.journal,
                ElementsAre(L"Item.Name", L"Database.VSSItem(\"$/Web\", False)", L"Item.Add(\"C:\\src\\a.sql\")"));
}

TEST_F(VSSAPITest, loginThatFails_keepsTheCurrentProjectForTheNext)
{
    logIn();
    sourceSafe.database->failing(L"Open", Error(5, L"Invalid password", L"SourceSafe", E_FAIL));
    openSourceSafeDatabase(L"bob", L"wrong", L"Main", {{L"Main", L"C:\\vss"}});
    sourceSafe.database->mend(L"Open");
    openSourceSafeDatabase(L"bob", L"right", L"Main", {{L"Main", L"C:\\vss"}});
    addFileToSourceSafe(L"C:\\src\\a.sql");
    EXPECT_EQ(sourceSafe.journal.back(), L"Item.Add(\"C:\\src\\a.sql\")");
}

TEST_F(VSSAPITest, password_isInNoFailureReport)
{
    test::FailureLog failures;
    sourceSafe.database->failing(L"Open", Error(5, L"Invalid password", L"SourceSafe", E_FAIL));
    openSourceSafeDatabase(L"ann", L"tOp-sEcret", L"Main", {{L"Main", L"C:\\vss"}});
    for (const std::wstring& line : failures.descriptions)
        EXPECT_EQ(line.find(L"tOp-sEcret"), std::wstring::npos) << line;
    EXPECT_EQ(failures.descriptions.size(), 1u);
}

TEST_F(VSSAPITest, passwordThatSourceSafeRepeats_isShownButNotReported)
{
    test::FailureLog failures;
    sourceSafe.database->failing(L"Open", Error(5, L"\"tOp-sEcret\" is wrong", L"tOp-sEcret", E_FAIL));
    openSourceSafeDatabase(L"ann", L"tOp-sEcret", L"Main", {{L"Main", L"C:\\vss"}});
    EXPECT_THAT(messages, ElementsAre(L"\"tOp-sEcret\" is wrong|0"));
    EXPECT_THAT(failures.descriptions, ElementsAre(Not(HasSubstr(L"tOp-sEcret"))));
}

TEST_F(VSSAPITest, projects_areTheChildrenOfTheRoot)
{
    logIn();
    std::vector<std::wstring> projects{L"earlier"};
    EXPECT_TRUE(getSourceSafeProjects(projects));
    EXPECT_THAT(projects, ElementsAre(L"earlier", L"Web", L"Tools"));
}

TEST_F(VSSAPITest, itemsThatWereDeleted_areNotAskedFor)
{
    logIn();
    std::vector<std::wstring> projects;
    getSourceSafeProjects(projects);
    EXPECT_THAT(sourceSafe.journal,
                ElementsAre(L"Database.VSSItem(\"$/\", False)", L"Root.Items(False)", L"Items.Count", L"Items.Item(1)",
                            L"First.Name", L"Items.Item(2)", L"Second.Name"));
}

TEST_F(VSSAPITest, everyLogin_opensANewDatabaseObject)
{
    logIn();
    logIn();
    EXPECT_EQ(sourceSafe.madeDatabases, 2);
}

TEST_F(VSSAPITest, messages_haveNoTitleOfTheirOwn)
{
    checkInFile(L"C:\\src\\a.sql");
    sourceSafe.database->failing(L"Open", Error(5, L"Invalid password", L"SourceSafe", E_FAIL));
    openSourceSafeDatabase(L"ann", L"wrong", L"Main", {{L"Main", L"C:\\vss"}});
    EXPECT_EQ(messages.size(), 2u);
    EXPECT_THAT(shownMessages.titles, testing::AllOf(Not(testing::IsEmpty()), testing::Each(applicationTitle)));
}

TEST_F(VSSAPITest, projectThatCannotBeHad_leavesTheCurrentOne)
{
    logIn();
    sourceSafe.database->failing(L"VSSItem", Error(5, L"gone", L"SourceSafe", E_FAIL));
    setCurrentProject(L"Gone");
    sourceSafe.database->mend(L"VSSItem");
    sourceSafe.journal.clear();
    checkInFile(L"C:\\src\\a.sql");
    EXPECT_EQ(sourceSafe.journal.back(), L"Item.Checkin(\"\", \"C:\\src\\a.sql\")");
}

TEST_F(VSSAPITest, end_letsDatabaseAndProjectGo)
{
    logIn();
    closeSourceSafe();
    EXPECT_FALSE(isDatabaseOpen());
    const auto references = [](IDispatch& object) {
        object.AddRef();
        return object.Release();
    };
    EXPECT_EQ(references(*sourceSafe.database.get()), 1u);
    EXPECT_EQ(references(*sourceSafe.item.get()), 1u);
}

TEST_F(VSSAPITest, endInsideOpen_leavesNoDatabase)
{
    sourceSafe.database->function(L"Open", [](const std::vector<variant>&) {
        closeSourceSafe();
        return variant();
    });
    EXPECT_FALSE(openSourceSafeDatabase(L"ann", L"secret", L"Main", {{L"Main", L"C:\\vss"}}));
    EXPECT_FALSE(isDatabaseOpen());
    EXPECT_TRUE(messages.empty());
}

TEST_F(VSSAPITest, endInsideAnOpenThatFails_showsNothing)
{
    sourceSafe.database->function(L"Open", [](const std::vector<variant>&) -> variant {
        closeSourceSafe();
        throw Error(5, L"Invalid password", L"SourceSafe", E_FAIL);
    });
    EXPECT_FALSE(openSourceSafeDatabase(L"ann", L"wrong", L"Main", {{L"Main", L"C:\\vss"}}));
    EXPECT_TRUE(messages.empty());
}

TEST_F(VSSAPITest, endInsideTheLookForAProject_keepsNoProject)
{
    logIn();
    sourceSafe.database->function(L"VSSItem", [this](const std::vector<variant>&) {
        closeSourceSafe();
        return asVariant(sourceSafe.item);
    });
    setCurrentProject(L"Web");
    sourceSafe.item->AddRef();
    EXPECT_EQ(sourceSafe.item->Release(), 1u);
}

TEST_F(VSSAPITest, endInsideAFileOperation_isFollowedByNoOtherCallAndNoBox)
{
    logIn();
    sourceSafe.database->function(L"VSSItem", [this](const std::vector<variant>&) {
        closeSourceSafe();
        return asVariant(sourceSafe.item);
    });
    addFileToSourceSafe(L"C:\\src\\a.sql");
    EXPECT_THAT(sourceSafe.journal, ElementsAre(L"Item.Name", L"Database.VSSItem(\"$/Web\", False)"));
    EXPECT_TRUE(messages.empty());
}

TEST_F(VSSAPITest, endInsideTheTextOfTheBox_showsNoBox)
{
    backend.onCall = [](const std::string&) { closeSourceSafe(); };
    backend.unjournaled.erase("RZGetString");
    checkInFile(L"C:\\src\\a.sql");
    EXPECT_TRUE(messages.empty());
}

TEST_F(VSSAPITest, rootWithoutChildren_givesFalse)
{
    logIn();
    sourceSafe.children->value(L"Count", variant(int32_t{0}));
    std::vector<std::wstring> projects;
    EXPECT_FALSE(getSourceSafeProjects(projects));
}

TEST_F(VSSAPITest, newProject_isCreatedBelowTheRootAndMadeCurrent)
{
    logIn();
    createSourceSafeProject(L"New");
    const Journal expected{L"Database.VSSItem(\"$/\", False)", L"Root.NewSubproject(\"New\", \"\")",
                           L"Database.VSSItem(\"$/New\", False)"};
    ASSERT_GT(sourceSafe.journal.size(), expected.size()); // before it, the look for one that exists
    EXPECT_EQ(Journal(sourceSafe.journal.end() - 3, sourceSafe.journal.end()), expected);
}

TEST_F(VSSAPITest, existingProjectInAnyLetters_isNotCreatedAgainButMadeCurrent)
{
    logIn();
    createSourceSafeProject(L"TOOLS");
    EXPECT_THAT(sourceSafe.journal, Not(Contains(HasSubstr(L"NewSubproject"))));
    EXPECT_EQ(sourceSafe.journal.back(), L"Database.VSSItem(\"$/TOOLS\", False)");
}

TEST_F(VSSAPITest, projectThatCannotBeLookedFor_isCreated)
{
    logIn();
    sourceSafe.root->failing(L"Items", Error(5, L"no rights", L"SourceSafe", E_FAIL));
    createSourceSafeProject(L"New");
    EXPECT_THAT(sourceSafe.journal, Contains(L"Root.NewSubproject(\"New\", \"\")"));
}

TEST_F(VSSAPITest, projectThatCannotBeCreated_isMadeCurrentAllTheSame)
{
    logIn();
    sourceSafe.root->failing(L"NewSubproject", Error(5, L"exists", L"SourceSafe", E_FAIL));
    createSourceSafeProject(L"New");
    EXPECT_EQ(sourceSafe.journal.back(), L"Database.VSSItem(\"$/New\", False)");
    EXPECT_TRUE(messages.empty());
}

TEST_F(VSSAPITest, addedFile_goesIntoTheCurrentProject)
{
    logIn();
    addFileToSourceSafe(L"C:\\src\\a.sql");
    EXPECT_THAT(sourceSafe.journal,
                ElementsAre(L"Item.Name", L"Database.VSSItem(\"$/Web\", False)", L"Item.Add(\"C:\\src\\a.sql\")"));
}

TEST_F(VSSAPITest, checkOutAndCheckIn_nameTheFileInTheProjectAndItsLocalPath)
{
    logIn();
    checkOutFile(L"C:\\src\\a.sql");
    checkInFile(L"C:\\src\\a.sql");
    EXPECT_THAT(sourceSafe.journal,
                ElementsAre(L"Item.Name", L"Database.VSSItem(\"$/Web/a.sql\", False)",
                            L"Item.Checkout(\"\", \"C:\\src\\a.sql\")", L"Item.Name",
                            L"Database.VSSItem(\"$/Web/a.sql\", False)", L"Item.Checkin(\"\", \"C:\\src\\a.sql\")"));
}

TEST_F(VSSAPITest, failingOperation_isReportedToTheTraceOnly)
{
    logIn();
    test::FailureLog failures;
    sourceSafe.item->failing(L"Checkin", Error(5, L"not checked out", L"SourceSafe", E_FAIL));
    checkInFile(L"C:\\src\\a.sql");
    EXPECT_TRUE(messages.empty());
    EXPECT_EQ(failures.lines.size(), 1u);
}

TEST_F(VSSAPITest, fileOperationsWithoutAnOpenDatabase_sayWhichFileAndWhatToDo)
{
    addFileToSourceSafe(L"C:\\src\\a.sql");
    checkOutFile(L"C:\\src\\b.sql");
    checkInFile(L"C:\\src\\c.sql");
    EXPECT_THAT(messages, ElementsAre(L"not C:\\src\\a.sql\r\nlog in|0", L"not C:\\src\\b.sql\r\nlog in|0",
                                      L"not C:\\src\\c.sql\r\nlog in|0"));
    EXPECT_TRUE(sourceSafe.journal.empty());
}

} // namespace
} // namespace velk
