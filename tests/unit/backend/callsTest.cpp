#include "backend/calls.h"

#include "support/fakeBackend.h"

#include <cstring>
#include <gmock/gmock.h>

namespace velk {
namespace {

using namespace std::string_view_literals;
using test::FakeBackend;
using testing::ElementsAre;
namespace wire = devkit::wire;

TEST(RZInitialize, projectFile_crossesAsCountedText)
{
    FakeBackend backend;
    EXPECT_EQ(RZInitialize(3, L"C:\\rz\\orders.rzv", L""), 1);
    EXPECT_THAT(backend.calls, ElementsAre("RZInitialize(3, \"C:\\rz\\orders.rzv\", \"\")"));
}

TEST(RZInitialize, emptyText_isAZeroLengthStringWithItsNul)
{
    FakeBackend backend;
    uint32_t room = 77;
    char end = 'x';
    backend.on.RZInitialize = [&](int32_t, char*, char* second) {
        room = test::roomOf(second);
        end = *second;
        return 1;
    };
    RZInitialize(3, L"a", L"");
    EXPECT_EQ(room, 0u);
    EXPECT_EQ(end, '\0');
}

TEST(RZProjectDoAccess, variablesChangedByTheBackend_comeBackWhateverTheStatus)
{
    FakeBackend backend;
    backend.on.RZProjectDoAccess = [](char* first, char* second, int32_t) {
        first[0] = 'D';
        second[1] = '\0';
        return 0;
    };
    std::wstring folder = L"C:\\rz";
    std::wstring file = L"a.rzv";
    EXPECT_EQ(RZProjectDoAccess(folder, file, 2), 0);
    EXPECT_EQ(folder, L"D:\\rz");
    EXPECT_EQ(file, L"a\0rzv"sv);
}

TEST(RZProjectDoAccess, constantText_isHandedOverAndNotChanged)
{
    FakeBackend backend;
    backend.on.RZProjectDoAccess = [](char* first, char*, int32_t) {
        first[0] = 'D';
        return 1;
    };
    const std::wstring path = L"C:\\rz";
    RZProjectDoAccess(path, L"", 4);
    EXPECT_EQ(path, L"C:\\rz");
}

TEST(RZGetNotification, twoWaiting_givesTheFirstAndThatMoreWait)
{
    FakeBackend backend;
    backend.notify(5, 1, 2, 7, 30);
    backend.notify(8, 1, 2, 8, 101);
    trzNotify notify;
    bool more = false;
    EXPECT_EQ(RZGetNotification(notify, more), 1);
    EXPECT_TRUE(more);
    EXPECT_EQ(notify.lNotifyType, 5);
    EXPECT_EQ(notify.lProjectHdl, 1);
    EXPECT_EQ(notify.lConnectionHdl, 2);
    EXPECT_EQ(notify.lObjectType, 7);
    EXPECT_EQ(notify.lObjectHdl, 30);
}

TEST(RZGetNotification, noneWaiting_clearsTheFlag)
{
    FakeBackend backend;
    trzNotify notify;
    bool more = true;
    EXPECT_EQ(RZGetNotification(notify, more), 0);
    EXPECT_FALSE(more);
}

TEST(RZGetNotification, anyNonZeroFlag_meansMore)
{
    FakeBackend backend;
    int16_t given = 77;
    backend.on.RZGetNotification = [&](wire::trzNotify*, int16_t* more) {
        given = std::exchange(*more, int16_t{1});
        return 1;
    };
    trzNotify notify;
    bool more = true;
    RZGetNotification(notify, more);
    EXPECT_EQ(given, -1);
    EXPECT_TRUE(more);
}

TEST(enumeration, wholeFolder_beginsGoesOnAndEnds)
{
    FakeBackend backend;
    backend.folders[30] = {101};
    backend.views[101] = {.strName = L"OPEN"};
    int32_t unread = 0;
    int32_t enumeration = 0;
    trzView view;
    EXPECT_EQ(RZViewEnumBegin(30, unread, enumeration), 1);
    EXPECT_EQ(RZViewEnumNext(enumeration, view), 1);
    EXPECT_EQ(view.strName, L"OPEN");
    EXPECT_EQ(RZViewEnumNext(enumeration, view), 0);
    EXPECT_EQ(RZViewEnumEnd(enumeration), 1);
    EXPECT_THAT(backend.calls,
                ElementsAre("RZViewEnumBegin(30)", "RZViewEnumNext(1)", "RZViewEnumNext(1)", "RZViewEnumEnd(1)"));
    EXPECT_TRUE(backend.enumerations.empty());
}

TEST(enumeration, beginFails_leavesNothingBegun)
{
    FakeBackend backend;
    int32_t unread = 5;
    int32_t enumeration = 6;
    EXPECT_EQ(RZProcedureEnumBegin(30, unread, enumeration), 0);
    EXPECT_EQ(RZProcedureEnumEnd(enumeration), 1);
    EXPECT_EQ(enumeration, 6);
}

TEST(actions, eachOfThem_crossesWithItsArguments)
{
    FakeBackend backend;
    RZSetCurrentFolder(30, 7);
    RZObjectDoAction(101, 18);
    RZObjectDoGetADO(101, 1, L"web", L"a.asp");
    RZConnectionDoGetDE(2, L"web", L"Env", L"RZConnection");
    RZCommandDoGetDE(101, L"web", L"Env", L"Con", L"RZCommand");
    RZLaunchApp(2, L"-ccf");
    RZLaunchVelkTool(5);
    RZButtonDoAction(L"User response", 6);
    RZTerminate();
    EXPECT_THAT(backend.calls,
                ElementsAre("RZSetCurrentFolder(30, 7)", "RZObjectDoAction(101, 18)",
                            R"(RZObjectDoGetADO(101, 1, "web", "a.asp"))",
                            R"(RZConnectionDoGetDE(2, "web", "Env", "RZConnection"))",
                            R"(RZCommandDoGetDE(101, "web", "Env", "Con", "RZCommand"))", R"(RZLaunchApp(2, "-ccf"))",
                            "RZLaunchVelkTool(5)", R"(RZButtonDoAction("User response", 6))", "RZTerminate()"));
}

TEST(offeredFunctions, theManagersOnes_crossWithTheirArguments)
{
    FakeBackend backend;
    RZDoTestAction(1);
    RZMgrInitialize(3);
    RZMgrSendData(4, L"data");
    RZMgrTerminate();
    RZObjectDoPaste(101);
    EXPECT_THAT(backend.calls, ElementsAre("RZDoTestAction(1)", "RZMgrInitialize(3)", R"(RZMgrSendData(4, "data"))",
                                           "RZMgrTerminate()", "RZObjectDoPaste(101)"));
}

TEST(offeredFunctions, buffers_areFilledWithinTheirRoom)
{
    FakeBackend backend;
    backend.on.RZMgrRecvData = [](int32_t handle, char* buffer, int32_t) {
        test::writeCounted(buffer, L"data");
        return handle;
    };
    backend.on.RZBuildSQLStatement = backend.on.RZMgrRecvData;
    backend.on.RZGetSplashScreenBMPName = [](char* buffer, int32_t capacity) {
        test::writeCounted(buffer, L"splash.bmp");
        return capacity;
    };
    backend.on.RZGetFontInfo = [](char* buffer, int32_t, int32_t* size) {
        test::writeCounted(buffer, L"Tahoma");
        return *size = 8;
    };
    std::wstring buffer(16, L'\0');
    int32_t size = 0;
    EXPECT_EQ(RZMgrRecvData(4, buffer, 16), 4);
    EXPECT_EQ(RZBuildSQLStatement(5, buffer, 16), 5);
    EXPECT_EQ(RZGetSplashScreenBMPName(buffer, 16), 16);
    EXPECT_EQ(RZGetFontInfo(buffer, 16, size), 8);
    EXPECT_EQ(buffer.substr(0, 7), L"Tahoma\0"sv);
    EXPECT_EQ(buffer.size(), 16u);
}

TEST(offeredFunctions, parameters_areEnumerated)
{
    FakeBackend backend;
    backend.on.RZParameterDEEnumBegin = [](int32_t command, int32_t*, int32_t* enumeration) {
        return *enumeration = command + 1;
    };
    backend.on.RZParameterDEEnumNext = [](int32_t enumeration, wire::trzParameterDE* record) {
        record->lMode = enumeration;
        record->lSQLType = 4;
        record->lSQLSize = 5;
        record->lSQLPrecision = 6;
        record->bBitData = -1;
        return 1;
    };
    backend.on.RZParameterDEEnumEnd = [](int32_t enumeration) { return enumeration; };
    int32_t unread = 0;
    int32_t enumeration = 0;
    trzParameterDE parameter;
    EXPECT_EQ(RZParameterDEEnumBegin(7, unread, enumeration), 8);
    EXPECT_EQ(RZParameterDEEnumNext(enumeration, parameter), 1);
    EXPECT_EQ(RZParameterDEEnumEnd(enumeration), 8);
    EXPECT_EQ(parameter.lMode, 8);
    EXPECT_EQ(parameter.lSQLType * 100 + parameter.lSQLSize * 10 + parameter.lSQLPrecision, 456);
    EXPECT_TRUE(parameter.bBitData);
}

TEST(offeredFunctions, connections_areEnumerated)
{
    FakeBackend backend;
    backend.on.RZConnectionEnumBegin = [](int32_t project, int32_t*, int32_t* enumeration) {
        return *enumeration = project + 1;
    };
    backend.on.RZConnectionEnumNext = [](int32_t, wire::trzConnection* record) {
        test::writeCounted(record->strDatabase, L"ORDERS");
        return 1;
    };
    backend.on.RZConnectionEnumEnd = [](int32_t enumeration) { return enumeration; };
    int32_t unread = 0;
    int32_t enumeration = 0;
    trzConnection connection;
    EXPECT_EQ(RZConnectionEnumBegin(7, unread, enumeration), 8);
    EXPECT_EQ(RZConnectionEnumNext(enumeration, connection), 1);
    EXPECT_EQ(RZConnectionEnumEnd(enumeration), 8);
    EXPECT_EQ(connection.strDatabase, L"ORDERS");
}

TEST(backendAddress, everyFunctionOfTheTable_isFoundUnderItsName)
{
    FakeBackend backend;
    for (int function = 0; function < static_cast<int>(BackendFunction::count); ++function)
        EXPECT_NE(backendAddress(static_cast<BackendFunction>(function)), nullptr) << function;
    EXPECT_EQ(static_cast<int>(BackendFunction::count), 57);
}

} // namespace
} // namespace velk
