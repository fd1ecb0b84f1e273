#include "devkit/backend/projectFile.h"
#include "devkit/backend/routineBody.h"
#include "devkit/backend/sampleBackend.h"

namespace velk::test {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;
using testing::StartsWith;

constexpr int32_t procedures = 1003;
constexpr int32_t functions = 1004;
constexpr int32_t placeOrder = 1008; // built
constexpr int32_t sampleContents = 20;
constexpr int32_t raisePrices = 1010; // changed since it was built

class Actions : public SampleBackend {
protected:
    void SetUp() override
    {
        beginSample();
        RZSetCurrentFolder(procedures, 7);
        notifications();
    }
    void TearDown() override
    {
        RZTerminate();
        EXPECT_THAT(breaches(), IsEmpty());
    }
    std::vector<std::wstring> act(int32_t handle, int32_t code)
    {
        RZObjectDoAction(handle, code);
        return notifications();
    }
    std::vector<std::wstring> answer(int32_t button)
    {
        std::wstring said = L"User response";
        RZButtonDoAction(said, button);
        return notifications();
    }
    // The payload handle of the next notification of that type.
    int32_t payload(int32_t type)
    {
        trzNotify notification;
        bool more = true;
        while (more && RZGetNotification(notification, more) != 0)
            if (notification.lNotifyType == type)
                return notification.lObjectHdl;
        return 0;
    }
    bool isDirty(int32_t procedure)
    {
        trzProcedure record;
        fetchProcedure(procedure, record);
        return record.bIsDirty;
    }
};

TEST_F(Actions, build_ofAChangedProcedure_keepsItAndMakesItClean)
{
    EXPECT_TRUE(isDirty(raisePrices));
    EXPECT_THAT(act(raisePrices, 18), ElementsAre(L"2 1 MINIMIZE_MSWIN", L"6 8 1010", L"2 1 RZ_TASK_COMPLETE",
                                                  L"2 3 raise_prices was built."));
    EXPECT_FALSE(isDirty(raisePrices));
}

TEST_F(Actions, build_thatTheDatabaseRefuses_saysWhyAndLeavesItChanged)
{
    write(L"rz\\routines\\raise_prices.sql",
          "CREATE PROCEDURE sales.raise_prices ()\nLANGUAGE SQL\nBEGIN\n UPDATE elephants SET x = 1;\nEND\n");
    const auto told = act(raisePrices, 18);
    EXPECT_THAT(told, Contains(AllOf(StartsWith(L"2 3 raise_prices was not built:"), HasSubstr(L"elephants"))));
    EXPECT_TRUE(isDirty(raisePrices));
}

TEST_F(Actions, build_ofAJavaRoutine_keepsItsSource)
{
    EXPECT_THAT(act(1011, 18), Contains(L"2 3 stock_report was built."));
    EXPECT_FALSE(isDirty(1011));
}

TEST_F(Actions, run_changesTheDatabase)
{
    execute(L"DELETE FROM audit");
    EXPECT_THAT(act(placeOrder, 16), Contains(L"2 3 place_order ran: 1 statements."));
    act(placeOrder, 16);
    EXPECT_EQ(value(L"SELECT COUNT(*) FROM audit"), L"2"); // a trigger notes each order
}

TEST_F(Actions, run_ofAFunction_tellsItsResult)
{
    RZSetCurrentFolder(functions, 9);
    notifications();
    EXPECT_THAT(act(1012, 16), Contains(HasSubstr(L"52.25")));
}

TEST_F(Actions, run_ofAChangedRoutine_wantsABuildFirst)
{
    EXPECT_THAT(act(raisePrices, 16), ElementsAre(L"2 3 raise_prices has changed since it was built. Build it first."));
}

TEST_F(Actions, run_thatFails_changesNothing)
{
    write(L"rz\\routines\\raise_prices.sql", "CREATE PROCEDURE sales.raise_prices ()\nLANGUAGE SQL\nBEGIN\n"
                                             " INSERT INTO audit (what) VALUES ('half');\n"
                                             " INSERT INTO stock VALUES (1, 1, 5);\nEND\n");
    act(raisePrices, 18);
    EXPECT_THAT(act(raisePrices, 16), Contains(StartsWith(L"2 3 raise_prices did not run:")));
    EXPECT_EQ(value(L"SELECT COUNT(*) FROM audit WHERE what = 'half'"), L"0");
}

// Counting that far takes longer than any test may: without an end to it this test would not come to its own.
constexpr char endless[] = "CREATE PROCEDURE sales.place_order ()\nLANGUAGE SQL\nBEGIN\n"
                           " INSERT INTO audit (what) VALUES ('half');\n"
                           " INSERT INTO audit (what) WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n"
                           " WHERE i < 1000000000000) SELECT COUNT(*) FROM n;\nEND\n";

TEST_F(Actions, endOfTheSession_endsARunningRoutine)
{
    write(L"rz\\routines\\place_order.sql", endless);
    EXPECT_THAT(act(placeOrder, 18), Contains(L"2 3 place_order was built."));
    RZObjectDoAction(placeOrder, 16);
    EXPECT_THAT(notificationsNow(), ElementsAre(L"2 1 MINIMIZE_MSWIN"));
    Sleep(300); // the thread has written and counts
    RZTerminate();
    execute(L"INSERT INTO audit (what) VALUES ('free again')"); // the routine holds the database no longer
    EXPECT_EQ(value(L"SELECT COUNT(*) FROM audit WHERE what = 'half'"), L"0");
    ASSERT_NE(RZInitialize(3, project(), L""), 0); // for the end of every test
}

TEST_F(Actions, endOfTheProject_endsARunningRoutineAndTellsIt)
{
    write(L"rz\\routines\\place_order.sql", endless);
    act(placeOrder, 18);
    RZObjectDoAction(placeOrder, 16);
    EXPECT_THAT(notificationsNow(), ElementsAre(L"2 1 MINIMIZE_MSWIN"));
    Sleep(300);
    RZObjectDoAction(1001, 21);
    open(L"orders.rzv");
    const std::vector<std::wstring> all = notifications();
    EXPECT_THAT(all, Contains(StartsWith(L"2 3 place_order did not run: the work was ended")));
    EXPECT_THAT(all, Contains(L"2 1 RZ_TASK_COMPLETE"));
    EXPECT_THAT(all.back(), StartsWith(L"8 6 ")); // the new project has its connection
}

TEST_F(Actions, sourceThatIsGone_isToldOnceAndNothingRuns)
{
    erase(L"rz\\routines\\place_order.sql");
    for (const int32_t action : {14, 15, 16, 18, 24})
        EXPECT_THAT(act(placeOrder, action),
                    ElementsAre(AllOf(StartsWith(L"2 3 The file "), HasSubstr(L"place_order"))))
            << action;
}

TEST_F(Actions, runSettings_giveTheValues)
{
    EXPECT_THAT(act(placeOrder, 15), Contains(HasSubstr(L"a_customer=1")));
    write(L"rz\\routines\\place_order.sql.run", "a_customer=2\na_date='2003-05-05'\n");
    act(placeOrder, 16);
    EXPECT_EQ(value(L"SELECT COUNT(*) FROM orders WHERE customer = 2 AND placed = '2003-05-05'"), L"1");
}

TEST_F(Actions, drop_answeredNo_keepsTheProcedure)
{
    EXPECT_THAT(act(placeOrder, 22), ElementsAre(StartsWith(L"2 1 Drop place_order from its database?")));
    EXPECT_THAT(answer(7), IsEmpty());
    EXPECT_FALSE(isDirty(placeOrder));
}

TEST_F(Actions, drop_answeredYes_takesTheRowAway)
{
    act(placeOrder, 22);
    EXPECT_THAT(answer(6), ElementsAre(L"7 8 1008"));
    EXPECT_THAT(names(procedures, 7), Not(Contains(L"place_order")));
    EXPECT_THAT(read(L"rz\\routines\\place_order.sql"), Not(IsEmpty()));
}

TEST_F(Actions, drop_answeredCancel_keepsTheProcedure)
{
    act(placeOrder, 22);
    EXPECT_THAT(answer(2), IsEmpty());
}

TEST_F(Actions, source_comesWithItsRange)
{
    RZObjectDoAction(placeOrder, 25);
    trzSQLText record;
    EXPECT_NE(fetchSQLText(payload(3), record), 0);
    EXPECT_EQ(record.strVSFile, path(L"rz\\routines\\place_order.sql"));
    EXPECT_THAT(record.strText, HasSubstr(L"INSERT INTO orders"));
    EXPECT_EQ(record.lSelFromLine, 1);
    EXPECT_EQ(record.lSelToLine, 9);
}

TEST_F(Actions, longSource_isFetchedAtTheSecondAttempt)
{
    write(L"rz\\routines\\place_order.sql",
          "CREATE PROCEDURE sales.place_order ()\nLANGUAGE SQL\n--" + std::string(9000, 'x') + "\n");
    RZObjectDoAction(placeOrder, 14);
    trzSQLText record;
    EXPECT_NE(fetchSQLText(payload(3), record), 0);
    EXPECT_GT(record.strText.size(), 9000u);
}

TEST_F(Actions, sampleContents_areTheFirstRows)
{
    RZSetCurrentFolder(1006, 13);
    notifications();
    EXPECT_THAT(act(1013, sampleContents),
                ElementsAre(AllOf(HasSubstr(L"id | name | city | credit"), HasSubstr(L"Ashdown Books"))));
}

TEST_F(Actions, properties_ofEachThing_areToldAsText)
{
    EXPECT_THAT(act(1001, 13), ElementsAre(HasSubstr(L"Project: Orders")));
    EXPECT_THAT(act(1002, 13), ElementsAre(HasSubstr(L"State: connected")));
    EXPECT_THAT(act(placeOrder, 13), ElementsAre(HasSubstr(L"Specific name: PLACE_ORDER_1")));
}

TEST_F(Actions, newProcedure_isATemplateFileInTheProject)
{
    EXPECT_THAT(act(procedures, 9), ElementsAre(L"8 8 1012"));
    EXPECT_THAT(names(procedures, 7), Contains(L"new_procedure"));
    act(procedures, 9);
    EXPECT_THAT(names(procedures, 7), Contains(L"new_procedure2"));
    EXPECT_THAT(act(1012, 18), Contains(L"2 3 new_procedure was built."));
}

TEST_F(Actions, newConnection_getsAFreeName)
{
    EXPECT_THAT(act(1001, 9), Contains(StartsWith(L"8 6 ")));
    trzConnection record;
    fetchConnection(1012, record);
    EXPECT_EQ(record.strDatabase, L"ORDERS2");
    EXPECT_TRUE(record.bConnected);
}

TEST_F(Actions, copiedRoutine_isPastedUnderAFreeName)
{
    act(placeOrder, 24);
    EXPECT_THAT(act(procedures, 23), ElementsAre(StartsWith(L"8 8 ")));
    EXPECT_THAT(names(procedures, 7), Contains(L"place_order2"));
}

TEST_F(Actions, pasteWithoutACopy_saysWhatToDo)
{
    EXPECT_THAT(act(procedures, 23), ElementsAre(L"2 3 Copy a routine first, then paste it."));
}

TEST_F(Actions, import_takesTheSourcesOfTheImportFolder)
{
    EXPECT_THAT(act(procedures, 12), ElementsAre(StartsWith(L"2 3 There is nothing to import")));
    CreateDirectoryW(path(L"rz\\import").c_str(), nullptr);
    write(L"rz\\import\\extra.sql", "CREATE PROCEDURE sales.extra ()\nLANGUAGE SQL\nBEGIN\nEND\n");
    EXPECT_THAT(act(procedures, 12), ElementsAre(L"8 8 1012"));
    EXPECT_THAT(names(procedures, 7), Contains(L"extra"));
    erase(L"rz\\import\\extra.sql");
    RemoveDirectoryW(path(L"rz\\import").c_str());
}

TEST_F(Actions, filter_answeredYes_showsMatchingNamesOnly)
{
    EXPECT_THAT(act(procedures, 11), ElementsAre(HasSubstr(L"Show only the Stored Procedures")));
    EXPECT_THAT(answer(6), ElementsAre(L"5 7 1003"));
    EXPECT_THAT(names(procedures, 7), ElementsAre(L"place_order", L"close_order", L"stock_report"));
    act(procedures, 11);
    answer(7);
    EXPECT_THAT(names(procedures, 7), Contains(L"raise_prices"));
}

TEST_F(Actions, removedRoutine_leavesTheProjectButNotTheDisk)
{
    EXPECT_THAT(act(placeOrder, 21), ElementsAre(L"7 8 1008"));
    EXPECT_THAT(read(L"rz\\routines\\place_order.sql"), Not(IsEmpty()));
}

TEST_F(Actions, removedConnection_goesWithItsFolders)
{
    EXPECT_THAT(act(1002, 21), ElementsAre(L"7 6 1002"));
    EXPECT_EQ(fetchProject(1001, *std::make_unique<trzProject>()), 1);
}

TEST_F(Actions, savedProject_opensAgainAsItWas)
{
    const devkit::ProjectFile before = devkit::parseProject(read(L"rz\\orders.rzv"));
    EXPECT_THAT(act(1001, 3), ElementsAre(StartsWith(L"2 3 The project was saved as")));
    const devkit::ProjectFile after = devkit::parseProject(read(L"rz\\orders.rzv"));
    ASSERT_EQ(after.procedures.size(), before.procedures.size());
    EXPECT_EQ(after.procedures[0].file, before.procedures[0].file);
    EXPECT_EQ(after.procedures[0].debug, before.procedures[0].debug);
    EXPECT_EQ(after.connections[0].odbc, before.connections[0].odbc);
    EXPECT_EQ(after.functions.size(), before.functions.size());
}

TEST_F(Actions, saveAs_writesTheNewFileAndTellsTheNewPath)
{
    std::wstring target = path(L"rz\\copy.rzv");
    std::wstring empty;
    EXPECT_EQ(RZProjectDoAccess(target, empty, 4), 1);
    EXPECT_THAT(notifications(), ElementsAre(StartsWith(L"2 3 The project was saved as"), L"6 5 1001"));
    trzProject record;
    fetchProject(1001, record);
    EXPECT_EQ(record.strPath, target);
    EXPECT_THAT(read(L"rz\\copy.rzv"), HasSubstr("name=ORDERS"));
    erase(L"rz\\copy.rzv");
}

TEST_F(Actions, saveAsThatCannotBe_saysWhyAndKeepsThePath)
{
    std::wstring target = path(L"no such folder\\copy.rzv");
    std::wstring empty;
    EXPECT_EQ(RZProjectDoAccess(target, empty, 4), 0);
    EXPECT_THAT(notifications(), ElementsAre(HasSubstr(L"cannot be saved")));
}

TEST_F(Actions, adoCode_ofAProcedure_comesForTheAskedComponent)
{
    std::wstring project = L"Web";
    std::wstring component = L"a.asp";
    RZObjectDoGetADO(placeOrder, 3, project, component);
    trzADOText record;
    EXPECT_NE(fetchADOText(payload(4), record), 0);
    EXPECT_EQ(record.strVSProject, L"Web");
    EXPECT_EQ(record.strVSFile, L"a.asp");
    EXPECT_THAT(record.strText, HasSubstr(L"command.CommandText = \"sales.place_order\""));
    EXPECT_THAT(record.strText, HasSubstr(L"command.CommandType = 4"));
}

TEST_F(Actions, dataEnvironmentObjects_comeWithWhatWasAsked)
{
    std::wstring project = L"Web", environment = L"DE1", connection = L"C1", command = L"K1";
    RZConnectionDoGetDE(1002, project, environment, connection);
    trzConnectionDE made;
    EXPECT_NE(fetchConnectionDE(payload(9), made), 0);
    EXPECT_EQ(made.strDEConnection, L"C1");
    EXPECT_THAT(made.strConnectionString, HasSubstr(L"Driver=SQLite3"));
    RZCommandDoGetDE(placeOrder, project, environment, connection, command);
    trzCommandDE record;
    EXPECT_NE(fetchCommandDE(payload(10), record), 0);
    EXPECT_EQ(record.strDECommand, L"K1");
    EXPECT_EQ(record.lCommandType, 1);
    EXPECT_TRUE(record.bHasParemeters);
}

TEST(RoutineBody, statements_getTheirValues)
{
    devkit::ObjectFacts facts;
    facts.name = L"f";
    const auto statements = devkit::statementsOf(
        L"BEGIN\n INSERT INTO t (a) VALUES (p, 'p;p');\n UPDATE t SET a = f.p;\nEND", facts, {{L"p", L"7"}});
    EXPECT_THAT(statements, ElementsAre(L"INSERT INTO t (a) VALUES (7, 'p;p')", L"UPDATE t SET a = 7"));
}

TEST(RoutineBody, parameters_haveNameAndType)
{
    devkit::ObjectFacts facts;
    facts.parameters = L"IN a INTEGER, OUT b DECIMAL(5,2), c VARCHAR(3)";
    const auto parameters = devkit::parametersOf(facts);
    ASSERT_EQ(parameters.size(), 3u);
    EXPECT_EQ(parameters[1].name, L"b");
    EXPECT_EQ(parameters[1].type, L"DECIMAL(5,2)");
    EXPECT_EQ(devkit::defaultValue(parameters[0]), L"1");
    EXPECT_EQ(devkit::defaultValue(parameters[2]), L"''");
}

} // namespace
} // namespace velk::test
