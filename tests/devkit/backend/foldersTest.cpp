#include "devkit/backend/sampleBackend.h"

namespace velk::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class Folders : public SampleBackend {
protected:
    void SetUp() override { beginSample(); }
    void TearDown() override { EXPECT_THAT(breaches(), IsEmpty()); }
    // Selects a folder and gives what it holds.
    std::vector<std::wstring> selected(int32_t folder, int32_t kind)
    {
        RZSetCurrentFolder(folder, kind);
        EXPECT_THAT(notifications(), ElementsAre(L"5 " + std::to_wstring(kind) + L" " + std::to_wstring(folder)));
        return names(folder, kind);
    }
};

TEST_F(Folders, project_opened_hasNameAndPath)
{
    trzProject record;
    ASSERT_NE(fetchProject(1001, record), 0);
    EXPECT_EQ(record.strName, L"Orders");
    EXPECT_EQ(record.strPath, project());
    RZTerminate();
}

TEST_F(Folders, connection_opened_isConnectedAndHasFiveFolders)
{
    trzConnection record;
    ASSERT_NE(fetchConnection(1002, record), 0);
    EXPECT_TRUE(record.bConnected);
    EXPECT_EQ(record.strDatabase, L"ORDERS");
    EXPECT_EQ(record.lProceduresHdl, 1003);
    EXPECT_EQ(record.lViewsHdl, 1007);
    RZTerminate();
}

TEST_F(Folders, tables_selected_areThoseOfTheDatabase)
{
    EXPECT_THAT(selected(1006, 13), ElementsAre(L"audit", L"customers", L"order_lines", L"orders", L"products",
                                                L"stock", L"suppliers", L"warehouses"));
    RZTerminate();
}

TEST_F(Folders, views_selected_areThoseOfTheDatabase)
{
    EXPECT_THAT(selected(1007, 15), ElementsAre(L"open_orders", L"order_totals", L"product_list", L"stock_by_product"));
    RZTerminate();
}

TEST_F(Folders, triggers_selected_areThoseOfTheDatabase)
{
    EXPECT_THAT(selected(1005, 11), ElementsAre(L"customers_deleted", L"lines_take_stock", L"orders_inserted",
                                                L"orders_state", L"prices_audited"));
    RZTerminate();
}

TEST_F(Folders, procedures_selected_areThoseOfTheProjectInItsOrder)
{
    EXPECT_THAT(selected(1003, 7), ElementsAre(L"place_order", L"close_order", L"raise_prices", L"stock_report"));
    RZTerminate();
}

TEST_F(Folders, functions_selected_areThoseOfTheProjectInItsOrder)
{
    EXPECT_THAT(selected(1004, 9), ElementsAre(L"order_total", L"customer_credit", L"initials"));
    RZTerminate();
}

TEST_F(Folders, procedure_builtAsItIs_isClean)
{
    selected(1003, 7);
    trzProcedure record;
    ASSERT_NE(fetchProcedure(1008, record), 0);
    EXPECT_FALSE(record.bIsDirty);
    EXPECT_TRUE(record.bCanDebug);
    EXPECT_EQ(record.strSchema, L"sales");
    EXPECT_EQ(record.strSpecific, L"PLACE_ORDER_1");
    EXPECT_EQ(record.strParameters, L"IN a_customer INTEGER, IN a_date VARCHAR(10)");
    EXPECT_EQ(record.strLanguage, L"SQL");
    EXPECT_EQ(record.strSQLPackage, L"P8812044");
    EXPECT_EQ(record.strComment, L"Places an order for a customer");
    EXPECT_EQ(record.strFileName, path(L"rz\\routines\\place_order.sql"));
    RZTerminate();
}

TEST_F(Folders, procedure_inJava_hasItsFactsFromComments)
{
    selected(1003, 7);
    trzProcedure record;
    ASSERT_NE(fetchProcedure(1011, record), 0);
    EXPECT_TRUE(record.bIsDirty);
    EXPECT_TRUE(record.bIsFenced);
    EXPECT_EQ(record.strName, L"stock_report");
    EXPECT_EQ(record.strLanguage, L"Java");
    EXPECT_EQ(record.lResultSets, 1);
    RZTerminate();
}

TEST_F(Folders, function_record_hasItsResult)
{
    selected(1004, 9);
    trzFunction record;
    ASSERT_NE(fetchFunction(1009, record), 0);
    EXPECT_TRUE(record.bIsDirty);
    EXPECT_EQ(record.strName, L"customer_credit");
    EXPECT_EQ(record.strResult, L"DECIMAL(10,2)");
    EXPECT_EQ(record.strParameters, L"a_customer INTEGER");
    RZTerminate();
}

TEST_F(Folders, trigger_record_hasItsTableAndRemark)
{
    selected(1005, 11);
    trzTrigger record;
    ASSERT_NE(fetchTrigger(1010, record), 0);
    EXPECT_EQ(record.strName, L"orders_inserted");
    EXPECT_EQ(record.strTableSchema, L"main");
    EXPECT_EQ(record.strTableName, L"orders");
    EXPECT_EQ(record.strComment, L"Keeps the audit");
    RZTerminate();
}

TEST_F(Folders, table_record_hasSchemaTypeAndRemark)
{
    selected(1006, 13);
    trzTable record;
    ASSERT_NE(fetchTable(1009, record), 0);
    EXPECT_EQ(record.strName, L"customers");
    EXPECT_EQ(record.strSchema, L"main");
    EXPECT_EQ(record.lType, 1);
    EXPECT_EQ(record.strComment, L"Who buys from us");
    RZTerminate();
}

TEST_F(Folders, folder_selectedTwice_keepsTheHandlesOfItsObjects)
{
    selected(1007, 15);
    selected(1007, 15);
    trzView record;
    ASSERT_NE(fetchView(1008, record), 0);
    EXPECT_EQ(record.strName, L"open_orders");
    RZTerminate();
}

TEST_F(Folders, folder_refreshed_announcesItsContents)
{
    EXPECT_NE(RZObjectDoAction(1006, 10), 0);
    EXPECT_THAT(notifications(), ElementsAre(L"5 13 1006"));
    RZTerminate();
}

TEST_F(Folders, connection_disconnected_saysSoAndEmptiesTheCurrentFolder)
{
    selected(1006, 13);
    EXPECT_NE(RZObjectDoAction(1002, 8), 0);
    EXPECT_THAT(notifications(), ElementsAre(L"6 6 1002", L"5 13 1006"));
    EXPECT_THAT(names(1006, 13), IsEmpty());
    trzConnection record;
    fetchConnection(1002, record);
    EXPECT_FALSE(record.bConnected);
    RZTerminate();
}

TEST_F(Folders, connection_connectedAgain_isConnected)
{
    RZObjectDoAction(1002, 8);
    EXPECT_NE(RZObjectDoAction(1002, 7), 0);
    EXPECT_THAT(notifications(), ElementsAre(L"6 6 1002", L"6 6 1002"));
    trzConnection record;
    fetchConnection(1002, record);
    EXPECT_TRUE(record.bConnected);
    RZTerminate();
}

TEST_F(Folders, connection_disconnectedWhileItConnects_staysDisconnected)
{
    RZObjectDoAction(1002, 8);
    notifications();
    RZObjectDoAction(1002, 7);
    RZObjectDoAction(1002, 8);
    EXPECT_THAT(notifications(), IsEmpty());
    trzConnection record;
    fetchConnection(1002, record);
    EXPECT_FALSE(record.bConnected);
    RZTerminate();
}

TEST_F(Folders, folder_selectedWithoutItsConnection_comesWhenThatIsThere)
{
    RZObjectDoAction(1002, 8);
    notifications();
    RZSetCurrentFolder(1003, 7);
    RZSetCurrentFolder(1006, 13); // the user goes on meanwhile
    EXPECT_THAT(notifications(), ElementsAre(L"6 6 1002", L"5 13 1006"));
    EXPECT_EQ(names(1006, 13).size(), 8u);
    RZTerminate();
}

TEST_F(Folders, connectionOfAProjectThatOpens_disconnectedAtOnce_isStillAdded)
{
    EXPECT_NE(RZObjectDoAction(1001, 21), 0);
    open(L"orders.rzv");
    RZObjectDoAction(1009, 8);
    EXPECT_THAT(notifications(), ElementsAre(L"7 5 1001", L"8 5 1008", L"8 6 1009"));
    trzConnection record;
    fetchConnection(1009, record);
    EXPECT_FALSE(record.bConnected);
    RZTerminate();
}

TEST_F(Folders, folderSelectedBeforeItsConnectionIsAdded_comesWithIt)
{
    EXPECT_NE(RZObjectDoAction(1001, 21), 0);
    open(L"orders.rzv");
    RZSetCurrentFolder(1013, 13);
    EXPECT_THAT(notifications(), ElementsAre(L"7 5 1001", L"8 5 1008", L"8 6 1009", L"5 13 1013"));
    RZTerminate();
}

TEST_F(Folders, project_removedWhileItConnects_isForgotten)
{
    EXPECT_NE(RZObjectDoAction(1001, 21), 0);
    open(L"orders.rzv");
    EXPECT_NE(RZObjectDoAction(1008, 21), 0);
    EXPECT_THAT(notifications(), ElementsAre(L"7 5 1001", L"8 5 1008", L"7 5 1008"));
    RZTerminate();
}

TEST_F(Folders, project_removed_goesWithAllHandles)
{
    EXPECT_NE(RZObjectDoAction(1001, 21), 0);
    open(L"orders.rzv");
    EXPECT_THAT(notifications(), ElementsAre(L"7 5 1001", L"8 5 1008", L"8 6 1009"));
    RZTerminate();
}

TEST_F(Folders, action_forAnotherKindOfThing_saysSoByItsName)
{
    EXPECT_EQ(RZObjectDoAction(1001, 18), 0);
    EXPECT_THAT(notifications(), ElementsAre(L"2 3 \"Build\" cannot be done with this object."));
    RZTerminate();
}

TEST_F(Folders, caller_usingThem_isInTheJournal)
{
    RZSetCurrentFolder(1007, 15);
    names(1007, 15);
    RZTerminate();
    const std::vector<std::wstring> lines = journal();
    EXPECT_THAT(lines, ElementsAre(L"RZInitialize(3, \"" + project() + L"\", \"\")", L"RZGetText(900001)",
                                   L"RZProjectDoAccess(\"" + path(L"rz") + L"\", \"orders.rzv\", 2)",
                                   L"RZSetCurrentFolder(1007, 15)", L"RZViewEnumBegin(1007)", L"RZViewEnumNext(800001)",
                                   L"RZViewEnumNext(800001)", L"RZViewEnumNext(800001)", L"RZViewEnumNext(800001)",
                                   L"RZViewEnumNext(800001)", L"RZViewEnumEnd(800001)", L"RZTerminate()"));
}

} // namespace
} // namespace velk::test
