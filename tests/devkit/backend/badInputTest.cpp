#include "devkit/backend/sampleBackend.h"

#include "devkit/backend/odbc.h"

namespace velk::test {
namespace {

using testing::AllOf;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

class BadInput : public SampleBackend {
protected:
    void SetUp() override { begin(); }
    void TearDown() override
    {
        RZTerminate();
        EXPECT_THAT(breaches(), IsEmpty());
    }
    trzProject opened(int32_t handle) const
    {
        trzProject record;
        fetchProject(handle, record);
        return record;
    }
};

TEST_F(BadInput, project_missing_isNamedAndAnEmptyOneOpens)
{
    open(L"none.rzv");
    EXPECT_THAT(notifications(),
                ElementsAre(AllOf(HasSubstr(path(L"rz\\none.rzv")), HasSubstr(L"does not exist")), L"8 5 1001"));
    EXPECT_EQ(opened(1001).strName, L"none");
    EXPECT_EQ(opened(1001).strPath, path(L"rz\\none.rzv"));
}

TEST_F(BadInput, project_broken_isNamedWithLineAndReasonAndLeftAlone)
{
    const std::string broken = "[project]\nname=Orders\nwhat is this\n";
    write(L"rz\\other.rzv", broken);
    open(L"other.rzv");
    EXPECT_THAT(notifications(),
                ElementsAre(AllOf(HasSubstr(path(L"rz\\other.rzv")), HasSubstr(L"line 3"), HasSubstr(L"what is this")),
                            L"8 5 1001"));
    EXPECT_EQ(opened(1001).strPath, L"");
    EXPECT_EQ(read(L"rz\\other.rzv"), broken);
}

TEST_F(BadInput, project_empty_opensUnderItsFileName)
{
    write(L"rz\\other.rzv", "");
    open(L"other.rzv");
    EXPECT_THAT(notifications(), ElementsAre(L"8 5 1001"));
    EXPECT_EQ(opened(1001).strName, L"other");
}

TEST_F(BadInput, project_thatIsAFolder_cannotBeRead)
{
    open(L"routines");
    EXPECT_THAT(notifications(), ElementsAre(HasSubstr(L"cannot be read"), L"8 5 1001"));
}

TEST_F(BadInput, database_missing_isNamedAndTheConnectionStaysDisconnected)
{
    erase(L"rz\\orders.db");
    open(L"orders.rzv");
    EXPECT_THAT(notifications(),
                ElementsAre(L"8 5 1001", L"8 6 1002", AllOf(HasSubstr(path(L"rz\\orders.db")), HasSubstr(project()))));
    trzConnection record;
    fetchConnection(1002, record);
    EXPECT_FALSE(record.bConnected);
}

TEST_F(BadInput, database_missingWhenAFolderIsSelected_isToldAgainAndTheFolderIsEmpty)
{
    erase(L"rz\\orders.db");
    open(L"orders.rzv");
    notifications();
    RZSetCurrentFolder(1006, 13);
    EXPECT_THAT(notifications(), ElementsAre(HasSubstr(L"orders.db"), L"5 13 1006"));
    EXPECT_THAT(names(1006, 13), IsEmpty());
}

TEST_F(BadInput, database_backWhenAFolderIsSelected_connects)
{
    MoveFileW(path(L"rz\\orders.db").c_str(), path(L"journal.db").c_str());
    open(L"orders.rzv");
    notifications();
    MoveFileW(path(L"journal.db").c_str(), path(L"rz\\orders.db").c_str());
    RZSetCurrentFolder(1007, 15);
    EXPECT_THAT(notifications(), ElementsAre(L"6 6 1002", L"5 15 1007"));
    EXPECT_EQ(names(1007, 15).size(), 4U);
}

TEST_F(BadInput, database_locked_isToldInTime)
{
    const auto place = devkit::placeDatabase(L"Driver=SQLite3;Database=orders.db;NoCreat=1", path(L"rz"));
    devkit::OdbcConnection holder(place.connectionString);
    holder.query(L"BEGIN EXCLUSIVE");
    const DWORD before = GetTickCount();
    open(L"orders.rzv");
    EXPECT_LT(GetTickCount() - before, 3000U);
    EXPECT_THAT(notifications(), ElementsAre(L"8 5 1001", L"8 6 1002", HasSubstr(L"locked")));
}

TEST_F(BadInput, database_lockedWhileAFolderIsShown_isNoLostConnection)
{
    open(L"orders.rzv");
    notifications();
    RZSetCurrentFolder(1006, 13);
    notifications();
    const auto place = devkit::placeDatabase(L"Driver=SQLite3;Database=orders.db;NoCreat=1", path(L"rz"));
    devkit::OdbcConnection holder(place.connectionString);
    holder.query(L"BEGIN EXCLUSIVE");
    EXPECT_THAT(notificationsAfterAWhile(), IsEmpty());
    holder.query(L"ROLLBACK");
    RZSetCurrentFolder(1006, 13);
    EXPECT_THAT(notifications(), ElementsAre(L"5 13 1006"));
}

TEST_F(BadInput, text_longerThanTheFirstBuffer_arrivesWhole)
{
    const std::string reason(5000, 'x');
    write(L"rz\\other.rzv", reason);
    open(L"other.rzv");
    EXPECT_THAT(
        notifications(),
        ElementsAre(AllOf(HasSubstr(std::wstring(5000, L'x')), HasSubstr(L"open the file again.")), L"8 5 1001"));
}

TEST_F(BadInput, database_ofAnUnknownDriver_isToldWithTheDriversWords)
{
    write(L"rz\\other.rzv", "[connection]\nname=NONE\nodbc=Driver=NoSuchDriver;Database=x.db;PWD=secret\n");
    open(L"other.rzv");
    EXPECT_THAT(notifications(), ElementsAre(L"8 5 1001", L"8 6 1002", HasSubstr(L"NONE")));
}

TEST_F(BadInput, source_missing_isNamedAndTheOthersAreThere)
{
    erase(L"rz\\routines\\close_order.sql");
    open(L"orders.rzv");
    EXPECT_THAT(notifications(),
                ElementsAre(L"8 5 1001", HasSubstr(path(L"rz\\routines\\close_order.sql")), L"8 6 1002"));
    RZSetCurrentFolder(1003, 7);
    EXPECT_THAT(names(1003, 7), ElementsAre(L"place_order", L"raise_prices", L"stock_report"));
}

TEST_F(BadInput, connectionString_inAMessage_showsNoPassword)
{
    write(L"rz\\other.rzv", "[connection]\nname=A;PWD=secret\nodbc=Driver=NoSuchDriver\n");
    open(L"other.rzv");
    EXPECT_THAT(notifications(),
                ElementsAre(testing::_, testing::_, AllOf(HasSubstr(L"PWD=***"), testing::Not(HasSubstr(L"secret")))));
}

} // namespace
} // namespace velk::test
