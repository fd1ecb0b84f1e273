#include "devkit/backend/sampleBackend.h"

namespace velk::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class Changes : public SampleBackend {
protected:
    void SetUp() override
    {
        watchOften();
        beginSample();
    }
    void TearDown() override
    {
        RZTerminate();
        EXPECT_THAT(breaches(), IsEmpty());
    }
    void select(int32_t folder, int32_t kind)
    {
        RZSetCurrentFolder(folder, kind);
        notifications();
    }
};

TEST_F(Changes, nothing_changed_isQuiet)
{
    select(1006, 13);
    EXPECT_THAT(notificationsAfterAWhile(), IsEmpty());
}

TEST_F(Changes, table_createdByAnother_isAdded)
{
    select(1006, 13);
    execute(L"CREATE TABLE returns (id INTEGER)");
    EXPECT_THAT(notificationsAfterAWhile(), ElementsAre(L"8 14 1016"));
    trzTable record;
    fetchTable(1016, record);
    EXPECT_EQ(record.strName, L"returns");
}

TEST_F(Changes, view_droppedByAnother_isRemoved)
{
    select(1007, 15);
    execute(L"DROP VIEW order_totals");
    EXPECT_THAT(notificationsAfterAWhile(), ElementsAre(L"7 16 1009"));
}

TEST_F(Changes, rows_changedByAnother_areNotOfInterest)
{
    select(1006, 13);
    execute(L"INSERT INTO audit (what) VALUES ('a test')");
    EXPECT_THAT(notificationsAfterAWhile(), IsEmpty());
}

TEST_F(Changes, source_edited_makesItsProcedureDirty)
{
    select(1003, 7);
    write(L"rz\\routines\\place_order.sql", "CREATE PROCEDURE sales.place_order ()\nLANGUAGE SQL\n");
    EXPECT_THAT(notificationsAfterAWhile(), ElementsAre(L"6 8 1008"));
    trzProcedure record;
    fetchProcedure(1008, record);
    EXPECT_TRUE(record.bIsDirty);
}

TEST_F(Changes, source_erasedAndRestored_removesAndAddsItsFunction)
{
    select(1004, 9);
    const std::string source = read(L"rz\\routines\\initials.java");
    erase(L"rz\\routines\\initials.java");
    EXPECT_THAT(notificationsAfterAWhile(), ElementsAre(L"7 10 1010"));
    write(L"rz\\routines\\initials.java", source);
    EXPECT_THAT(notificationsAfterAWhile(), ElementsAre(L"8 10 1011"));
}

TEST_F(Changes, source_ofManyLetters_isCleanOnceItIsInTheDatabase)
{
    // Longer than any piece in which it is fetched, with letters of two and three bytes.
    const std::string comment = "-- remark: Gr\xC3\xBC\xC3\x9F"
                                "e \xE2\x82\xAC\n" +
                                std::string(9000, '-') + "\n";
    const std::string source = comment + "CREATE PROCEDURE sales.raise_prices ()\nLANGUAGE SQL\n";
    write(L"rz\\routines\\raise_prices.sql", source);
    execute(L"INSERT INTO rozel_routines VALUES ('raise_prices', '-- remark: Gr\xFC\xDF"
            L"e \x20AC\n" +
            std::wstring(9000, L'-') + L"\nCREATE PROCEDURE sales.raise_prices ()\nLANGUAGE SQL\n')");
    select(1003, 7);
    trzProcedure record;
    fetchProcedure(1010, record);
    EXPECT_FALSE(record.bIsDirty);
}

TEST_F(Changes, folder_notCurrent_isNotWatched)
{
    select(1006, 13);
    select(1007, 15);
    execute(L"CREATE TABLE returns (id INTEGER)");
    EXPECT_THAT(notificationsAfterAWhile(), IsEmpty());
}

} // namespace
} // namespace velk::test
