// What the Backend is given to write into.
#include "backend/fetch.h"

#include "support/fakeBackend.h"

#include <algorithm>
#include <gmock/gmock.h>

namespace velk {
namespace {

using test::FakeBackend;
using testing::ElementsAre;
namespace wire = devkit::wire;

// The room of a string that holds NULs only, its terminator included; 0 when anything else stands in it.
uint32_t blankRoom(const char* counted)
{
    const uint32_t room = test::roomOf(counted);
    return std::all_of(counted, counted + room + 1, [](char byte) { return byte == '\0'; }) ? room : 0;
}

template <class Wire, class... Fields>
auto roomsInto(std::vector<uint32_t>& rooms, Fields... fields)
{
    return [&rooms, fields...](int32_t, Wire* record) {
        rooms = {blankRoom(record->*fields)...};
        return 1;
    };
}

TEST(fetchText, preset_isItsCapacities)
{
    FakeBackend backend;
    std::vector<uint32_t> rooms;
    using Wire = wire::trzText;
    backend.on.RZGetText = roomsInto<Wire>(rooms, &Wire::strText, &Wire::strButtons);
    trzText record;
    fetchText(1, record);
    EXPECT_THAT(rooms, ElementsAre(4096u, 256u));
}

TEST(fetchSQLText, preset_isItsCapacities)
{
    FakeBackend backend;
    std::vector<uint32_t> rooms;
    using Wire = wire::trzSQLText;
    backend.on.RZGetSQLText = roomsInto<Wire>(rooms, &Wire::strVSProject, &Wire::strVSFile, &Wire::strText);
    trzSQLText record;
    fetchSQLText(1, record);
    EXPECT_THAT(rooms, ElementsAre(0u, 1024u, 4096u));
}

TEST(fetchADOText, preset_isItsCapacitiesAndSize)
{
    FakeBackend backend;
    std::vector<uint32_t> rooms;
    backend.on.RZGetADOText = [&](int32_t, wire::trzADOText* record) {
        rooms = {blankRoom(record->strVSProject), blankRoom(record->strVSFile), blankRoom(record->strText),
                 static_cast<uint32_t>(record->lTextSz)};
        return 1;
    };
    trzADOText record;
    fetchADOText(1, record);
    EXPECT_THAT(rooms, ElementsAre(1024u, 1024u, 65536u, 65536u));
}

TEST(fetchConnectionDE, preset_isItsCapacities)
{
    FakeBackend backend;
    std::vector<uint32_t> rooms;
    using Wire = wire::trzConnectionDE;
    backend.on.RZConnectionGetDE = roomsInto<Wire>(rooms, &Wire::strVSProject, &Wire::strDEName, &Wire::strDEConnection,
                                                   &Wire::strConnectionString);
    trzConnectionDE record;
    fetchConnectionDE(1, record);
    EXPECT_THAT(rooms, ElementsAre(256u, 256u, 256u, 1024u));
}

TEST(fetchCommandDE, preset_isItsCapacities)
{
    FakeBackend backend;
    std::vector<uint32_t> rooms;
    using Wire = wire::trzCommandDE;
    backend.on.RZCommandGetDE = roomsInto<Wire>(rooms, &Wire::strVSProject, &Wire::strDEName, &Wire::strDEConnection,
                                                &Wire::strDECommand, &Wire::strCommandText);
    trzCommandDE record;
    fetchCommandDE(1, record);
    EXPECT_THAT(rooms, ElementsAre(256u, 256u, 256u, 256u, 4096u));
}

TEST(fetchProject, preset_isItsCapacities)
{
    FakeBackend backend;
    std::vector<uint32_t> rooms;
    using Wire = wire::trzProject;
    backend.on.RZProjectGet = roomsInto<Wire>(rooms, &Wire::strName, &Wire::strPath);
    trzProject record;
    fetchProject(1, record);
    EXPECT_THAT(rooms, ElementsAre(256u, 1024u));
}

TEST(fetchConnection, preset_isItsCapacity)
{
    FakeBackend backend;
    std::vector<uint32_t> rooms;
    using Wire = wire::trzConnection;
    backend.on.RZConnectionGet = roomsInto<Wire>(rooms, &Wire::strDatabase);
    trzConnection record;
    fetchConnection(1, record);
    EXPECT_THAT(rooms, ElementsAre(256u));
}

template <class Wire>
auto procedureRooms(std::vector<uint32_t>& rooms)
{
    return roomsInto<Wire>(rooms, &Wire::strSchema, &Wire::strName, &Wire::strSpecific, &Wire::strParameters,
                           &Wire::strLanguage, &Wire::strSQLPackage, &Wire::strComment, &Wire::strFileName);
}

TEST(nextProcedure, preset_isItsCapacities)
{
    FakeBackend backend;
    std::vector<uint32_t> rooms;
    backend.on.RZProcedureEnumNext = procedureRooms<wire::trzProcedure>(rooms);
    trzProcedure record;
    nextProcedure(1, record);
    EXPECT_THAT(rooms, ElementsAre(256u, 1024u, 1024u, 1024u, 256u, 256u, 256u, 1024u));
}

TEST(fetchProcedure, preset_isThatOfNext)
{
    FakeBackend backend;
    std::vector<uint32_t> rooms;
    backend.on.RZProcedureGet = procedureRooms<wire::trzProcedure>(rooms);
    trzProcedure record;
    fetchProcedure(1, record);
    EXPECT_THAT(rooms, ElementsAre(256u, 1024u, 1024u, 1024u, 256u, 256u, 256u, 1024u));
}

template <class Wire>
auto functionRooms(std::vector<uint32_t>& rooms)
{
    return roomsInto<Wire>(rooms, &Wire::strSchema, &Wire::strName, &Wire::strSpecific, &Wire::strParameters,
                           &Wire::strResult, &Wire::strLanguage, &Wire::strComment, &Wire::strFileName);
}

TEST(nextFunction, preset_isItsCapacities)
{
    FakeBackend backend;
    std::vector<uint32_t> rooms;
    backend.on.RZFunctionEnumNext = functionRooms<wire::trzFunction>(rooms);
    trzFunction record;
    nextFunction(1, record);
    EXPECT_THAT(rooms, ElementsAre(256u, 256u, 1024u, 1024u, 1024u, 256u, 256u, 1024u));
}

TEST(fetchFunction, preset_isThatOfNext)
{
    FakeBackend backend;
    std::vector<uint32_t> rooms;
    backend.on.RZFunctionGet = functionRooms<wire::trzFunction>(rooms);
    trzFunction record;
    fetchFunction(1, record);
    EXPECT_THAT(rooms, ElementsAre(256u, 256u, 1024u, 1024u, 1024u, 256u, 256u, 1024u));
}

TEST(fetchTrigger, preset_isItsCapacities)
{
    FakeBackend backend;
    std::vector<uint32_t> rooms;
    using Wire = wire::trzTrigger;
    backend.on.RZTriggerGet = roomsInto<Wire>(rooms, &Wire::strSchema, &Wire::strName, &Wire::strTableSchema,
                                              &Wire::strTableName, &Wire::strComment, &Wire::strFileName);
    trzTrigger record;
    fetchTrigger(1, record);
    EXPECT_THAT(rooms, ElementsAre(256u, 256u, 256u, 256u, 256u, 1024u));
}

TEST(fetchTable, preset_isItsCapacities)
{
    FakeBackend backend;
    std::vector<uint32_t> rooms;
    using Wire = wire::trzTable;
    backend.on.RZTableGet =
        roomsInto<Wire>(rooms, &Wire::strSchema, &Wire::strName, &Wire::strTableSpace, &Wire::strComment);
    trzTable record;
    fetchTable(1, record);
    EXPECT_THAT(rooms, ElementsAre(256u, 256u, 256u, 256u));
}

TEST(fetchView, preset_isItsCapacities)
{
    FakeBackend backend;
    std::vector<uint32_t> rooms;
    using Wire = wire::trzView;
    backend.on.RZViewGet = roomsInto<Wire>(rooms, &Wire::strSchema, &Wire::strName, &Wire::strComment);
    trzView record;
    fetchView(1, record);
    EXPECT_THAT(rooms, ElementsAre(256u, 256u, 256u));
}

} // namespace
} // namespace velk
