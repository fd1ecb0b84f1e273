// A project over PostgreSQL, worked on in the IDE.
#include "ideRun.h"
#include "support/folders.h"

#include "devkit/backend/odbc.h"
#include "devkit/backend/projectFile.h"
#include "devkit/backend/systemFile.h"
#include "devkit/base/thread.h"

namespace velk {
namespace {

using testing::Contains;
using testing::HasSubstr;
using testing::Not;

constexpr const char* start = "open-solution $SAMPLE\\orders.sln\nclick Add-Ins/#1\nexpect-node Orders/ORDERS/Views\n";
constexpr const char* end = "unload velkviadd.Connect\nexpect-module velkviadd.dll unloaded\n";

class PostgresTest : public test::IdeRun {
protected:
    PostgresTest() { test::copyTree(devkit::environmentText(L"VELK_POSTGRES_SAMPLE"), path(L"")); }
    DWORD work(const std::string& script) { return runShown(start + script + end); }
    void expectNoBreach() { EXPECT_THAT(backendJournal(), Not(Contains(HasSubstr("BREACH")))); }
};

TEST_F(PostgresTest, folders_showTheDatabasesOwnObjects)
{
    EXPECT_EQ(
        work("select-node Orders/ORDERS/Tables\nexpect-rows 8\nexpect-row customers|public|*|1|Who buys from us\n"
             "select-node Orders/ORDERS/Views\nexpect-rows 4\nexpect-row open_orders|public|Orders not yet shipped\n"
             "select-node Orders/ORDERS/Triggers\nexpect-rows 5\nexpect-row orders_inserted|public|orders|public|Keeps "
             "the audit\n"),
        0u);
    expectNoBreach();
}

TEST_F(PostgresTest, procedure_isBuiltRunAndDropped)
{
    EXPECT_EQ(work("select-node Orders/ORDERS/Stored Procedures\nexpect-rows 3\n"
                   "right-click-row place_order\nchoose-menu Build\nexpect-message place_order was built.\nanswer ok\n"
                   "right-click-row place_order\nchoose-menu Run\nexpect-message place_order ran: 1 statements.\n"
                   "answer ok\nselect-node Orders/ORDERS/Views\nexpect-rows 4\n"
                   "right-click-row open_orders\nchoose-menu Sample Contents\nexpect-message 3 | Ashdown Books\n"
                   "answer ok\nselect-node Orders/ORDERS/Stored Procedures\nexpect-rows 3\n"
                   "right-click-row place_order\nchoose-menu Drop From Database\nexpect-message Drop place_order\n"
                   "answer yes\nexpect-rows 2\n"),
              0u);
    expectNoBreach();
}

TEST_F(PostgresTest, function_tellsItsResult)
{
    EXPECT_EQ(work("select-node Orders/ORDERS/User-Defined Functions\nexpect-rows 2\n"
                   "right-click-row order_total\nchoose-menu Build\nexpect-message order_total was built.\nanswer ok\n"
                   "right-click-row order_total\nchoose-menu Run\nexpect-message 52.25\nanswer ok\n"),
              0u);
    expectNoBreach();
}

// What a procedure changes, its triggers note, as in the sample on the other database.
TEST_F(PostgresTest, procedureWithATrigger_changesBothTables)
{
    EXPECT_EQ(work("select-node Orders/ORDERS/Stored Procedures\nexpect-rows 3\n"
                   "right-click-row close_order\nchoose-menu Build\nexpect-message close_order was built.\nanswer ok\n"
                   "right-click-row close_order\nchoose-menu Run\nexpect-message close_order ran: 1 statements.\n"
                   "answer ok\nselect-node Orders/ORDERS/Tables\nexpect-rows 8\n"
                   "right-click-row audit\nchoose-menu Sample Contents\nexpect-message order 1 shipped\nanswer ok\n"),
              0u);
    expectNoBreach();
}

TEST_F(PostgresTest, failedBuild_tellsTheDatabasesOwnWords)
{
    EXPECT_EQ(work("select-node Orders/ORDERS/Stored Procedures\nexpect-rows 3\n"
                   "append-line $SAMPLE\\rz\\routines\\place_order.sql SELECT elephants;\n"
                   "right-click-row place_order\nchoose-menu Build\nexpect-message place_order was not built\n"
                   "expect-message column \"elephants\" does not exist\nanswer ok\n"),
              0u);
    expectNoBreach();
}

TEST_F(PostgresTest, disconnectedProject_connectsAgainWithTheNextFolder)
{
    EXPECT_EQ(work("select-node Orders/ORDERS/Tables\nexpect-rows 8\nright-click-node Orders/ORDERS\n"
                   "choose-menu Disconnect\nselect-node Orders/ORDERS/Views\nexpect-rows 4\n"),
              0u);
}

// Ends every other connection to the database as soon as the add-in's has shown a folder.
void endConnectionsWhen(const std::wstring& journal, const std::wstring& connectionString)
{
    for (int tries = 0; tries < 300; ++tries) {
        const auto bytes = devkit::readBytes(journal);
        if (bytes && bytes->find("RZTableEnumEnd") != std::string::npos)
            break;
        Sleep(50);
    }
    devkit::OdbcConnection(connectionString)
        .query(L"SELECT pg_terminate_backend(pid) FROM pg_stat_activity WHERE pid <> pg_backend_pid() AND datname = "
               L"current_database()");
}

TEST_F(PostgresTest, lostConnection_isToldAndTheNodeIsDisconnectedUntilTheNextFolder)
{
    const devkit::ProjectFile project = devkit::parseProject(*devkit::readBytes(path(L"rz\\orders.rzv")));
    devkit::Thread ending([&] { endConnectionsWhen(path(L"backend.journal"), project.connections.front().odbc); });
    EXPECT_EQ(work("select-node Orders/ORDERS/Tables\nexpect-rows 8\nwait 1500\n"
                   "select-node Orders/ORDERS/Views\nexpect-message was lost\nanswer ok\nexpect-rows 0\n"
                   "select-node Orders/ORDERS/Tables\nexpect-rows 8\n"),
              0u);
    ending.join();
    expectNoBreach();
}

} // namespace
} // namespace velk
