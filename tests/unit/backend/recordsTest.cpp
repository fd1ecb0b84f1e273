// Each record over the whole way: what the Backend wrote comes back.
#include "backend/fetch.h"

#include "support/fakeBackend.h"

#include <gmock/gmock.h>

namespace velk {
namespace {

using test::FakeBackend;
using testing::ElementsAre;
namespace wire = devkit::wire;

TEST(fetchConnectionDE, allFields_comeBack)
{
    FakeBackend backend;
    backend.connectionDEs[1] = {L"web", L"Env", L"Orders", L"DSN=orders"};
    trzConnectionDE record;
    EXPECT_EQ(fetchConnectionDE(1, record), 1);
    EXPECT_EQ(record.strVSProject, L"web");
    EXPECT_EQ(record.strDEName, L"Env");
    EXPECT_EQ(record.strDEConnection, L"Orders");
    EXPECT_EQ(record.strConnectionString, L"DSN=orders");
}

TEST(fetchCommandDE, allFields_comeBack)
{
    FakeBackend backend;
    backend.commandDEs[1] = {L"web", L"Env", L"Orders", L"Raise", L"call raise()", 4, true};
    trzCommandDE record;
    EXPECT_EQ(fetchCommandDE(1, record), 1);
    EXPECT_EQ(record.strVSProject, L"web");
    EXPECT_EQ(record.strDEName, L"Env");
    EXPECT_EQ(record.strDEConnection, L"Orders");
    EXPECT_EQ(record.strDECommand, L"Raise");
    EXPECT_EQ(record.strCommandText, L"call raise()");
    EXPECT_EQ(record.lCommandType, 4);
    EXPECT_TRUE(record.bHasParemeters);
}

TEST(fetchProject, allFields_comeBack)
{
    FakeBackend backend;
    backend.projects[1] = {0, L"Orders", L"C:\\rz\\orders.rzv"};
    trzProject record;
    EXPECT_EQ(fetchProject(1, record), 1);
    EXPECT_EQ(record.lHdl, 1);
    EXPECT_EQ(record.strName, L"Orders");
    EXPECT_EQ(record.strPath, L"C:\\rz\\orders.rzv");
}

TEST(fetchConnection, allFields_comeBack)
{
    FakeBackend backend;
    backend.connections[2] = {2, true, L"ORDERS", 30, 31, 32, 33, -34};
    trzConnection record;
    EXPECT_EQ(fetchConnection(2, record), 1);
    EXPECT_TRUE(record.bConnected);
    EXPECT_EQ(record.strDatabase, L"ORDERS");
    EXPECT_THAT((std::vector{record.lProceduresHdl, record.lFunctionsHdl, record.lTriggersHdl, record.lTablesHdl,
                             record.lViewsHdl}),
                ElementsAre(30, 31, 32, 33, -34));
}

TEST(fetchProcedure, allFields_comeBack)
{
    FakeBackend backend;
    backend.procedures[101] = {101, true, true, L"S", L"N", L"Sp", L"P", L"L", L"Pkg", 2, true, L"C", L"F"};
    trzProcedure r;
    EXPECT_EQ(fetchProcedure(101, r), 1);
    EXPECT_TRUE(r.bIsDirty && r.bCanDebug && r.bIsFenced);
    EXPECT_EQ(r.lHdl, 101);
    EXPECT_EQ(r.lResultSets, 2);
    EXPECT_THAT((std::vector{r.strSchema, r.strName, r.strSpecific, r.strParameters, r.strLanguage, r.strSQLPackage,
                             r.strComment, r.strFileName}),
                ElementsAre(L"S", L"N", L"Sp", L"P", L"L", L"Pkg", L"C", L"F"));
}

TEST(fetchFunction, allFields_comeBack)
{
    FakeBackend backend;
    backend.functions[102] = {102, false, true, L"S", L"N", L"Sp", L"P", L"R", L"L", 1, L"C", L"F"};
    trzFunction r;
    EXPECT_EQ(fetchFunction(102, r), 1);
    EXPECT_FALSE(r.bIsDirty);
    EXPECT_TRUE(r.bCanDebug);
    EXPECT_THAT((std::vector{r.strSchema, r.strName, r.strSpecific, r.strParameters, r.strResult, r.strLanguage,
                             r.strComment, r.strFileName}),
                ElementsAre(L"S", L"N", L"Sp", L"P", L"R", L"L", L"C", L"F"));
}

TEST(fetchTrigger, allFields_comeBack)
{
    FakeBackend backend;
    backend.triggers[103] = {103, true, false, L"S", L"N", L"TS", L"TN", L"C", L"F"};
    trzTrigger r;
    EXPECT_EQ(fetchTrigger(103, r), 1);
    EXPECT_TRUE(r.bIsDirty);
    EXPECT_FALSE(r.bCanDebug);
    EXPECT_THAT((std::vector{r.strSchema, r.strName, r.strTableSchema, r.strTableName, r.strComment, r.strFileName}),
                ElementsAre(L"S", L"N", L"TS", L"TN", L"C", L"F"));
}

TEST(fetchTable, allFields_comeBack)
{
    FakeBackend backend;
    backend.tables[104] = {104, true, L"S", L"N", L"TS", 7, L"C"};
    trzTable r;
    EXPECT_EQ(fetchTable(104, r), 1);
    EXPECT_TRUE(r.bIsDirty);
    EXPECT_EQ(r.lType, 7);
    EXPECT_THAT((std::vector{r.strSchema, r.strName, r.strTableSpace, r.strComment}),
                ElementsAre(L"S", L"N", L"TS", L"C"));
}

TEST(fetchView, allFields_comeBack)
{
    FakeBackend backend;
    backend.views[105] = {105, true, L"S", L"N", L"C"};
    trzView r;
    EXPECT_EQ(fetchView(105, r), 1);
    EXPECT_TRUE(r.bIsDirty);
    EXPECT_THAT((std::vector{r.strSchema, r.strName, r.strComment}), ElementsAre(L"S", L"N", L"C"));
}

TEST(nextOfEachKind, oneObjectEach_isFound)
{
    FakeBackend backend;
    backend.functions[1] = {.strName = L"f"};
    backend.triggers[2] = {.strName = L"g"};
    backend.tables[3] = {.strName = L"t"};
    backend.views[4] = {.strName = L"v"};
    backend.enumerations = {{1, {1}}, {2, {2}}, {3, {3}}, {4, {4}}};
    trzFunction function;
    trzTrigger trigger;
    trzTable table;
    trzView view;
    EXPECT_EQ(nextFunction(1, function) + nextTrigger(2, trigger) + nextTable(3, table) + nextView(4, view), 4);
    EXPECT_EQ(function.strName + trigger.strName + table.strName + view.strName, L"fgtv");
}

TEST(flags, trueFromTheAddIn_isAllBitsSet)
{
    FakeBackend backend;
    int16_t dirty = 77;
    int16_t debug = 77;
    backend.on.RZProcedureGet = [&](int32_t, wire::trzProcedure* record) {
        dirty = record->bIsDirty;
        debug = record->bCanDebug;
        return 1;
    };
    trzProcedure record{.bIsDirty = true, .bCanDebug = false};
    fetchProcedure(1, record);
    EXPECT_EQ(dirty, -1);
    EXPECT_EQ(debug, 0);
}

TEST(flags, anyNonZero_isTrue)
{
    FakeBackend backend;
    backend.on.RZProcedureGet = [&](int32_t, wire::trzProcedure* record) {
        record->bIsDirty = 1;
        record->bCanDebug = 256;
        record->bIsFenced = INT16_MIN;
        return 1;
    };
    trzProcedure record;
    fetchProcedure(1, record);
    EXPECT_TRUE(record.bIsDirty && record.bCanDebug && record.bIsFenced);
}

TEST(flags, procedureFenced_is16BitsAndItsPaddingIsNotRead)
{
    FakeBackend backend;
    backend.on.RZProcedureGet = [&](int32_t, wire::trzProcedure* record) {
        record->bIsFenced = 0;
        record->hole = -1;
        return 1;
    };
    trzProcedure record{.bIsFenced = true};
    fetchProcedure(1, record);
    EXPECT_FALSE(record.bIsFenced);
}

TEST(flags, functionFenced_is32BitsBothWays)
{
    FakeBackend backend;
    int32_t given = 0;
    backend.on.RZFunctionGet = [&](int32_t, wire::trzFunction* record) {
        given = std::exchange(record->bIsFenced, 0x10000);
        return 1;
    };
    trzFunction record{.bIsFenced = 0x7fff0000};
    fetchFunction(1, record);
    EXPECT_EQ(given, 0x7fff0000);
    EXPECT_EQ(record.bIsFenced, 0x10000);
}

TEST(wireRecord, everyString_startsAtAMultipleOfFourAndEndsWithNul)
{
    FakeBackend backend;
    uintptr_t bits = 0;
    int ends = 0;
    backend.on.RZProcedureGet = [&](int32_t, wire::trzProcedure* r) {
        for (char* text : {r->strSchema, r->strName, r->strSpecific, r->strParameters, r->strComment}) {
            bits |= reinterpret_cast<uintptr_t>(text);
            ends += text[test::roomOf(text)];
        }
        return 1;
    };
    trzProcedure record;
    fetchProcedure(1, record);
    EXPECT_EQ(bits % 4, 0u);
    EXPECT_EQ(ends, 0);
}

} // namespace
} // namespace velk
