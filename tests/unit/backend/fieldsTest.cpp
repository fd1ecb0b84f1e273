// Every field of every record against the Backend's own table: where it stands, how wide it is, and the room that a
// text gets before the call.
#include "backend/wire_copy.h"

#include "backend/records.h"
#include "support/fakeBackend.h"

#include <cstring>
#include <functional>
#include <gtest/gtest.h>

namespace velk {
namespace {

template <class Value, class Record>
Value at(WireCopy<Record>& copy, size_t offset)
{
    Value value;
    std::memcpy(&value, static_cast<const char*>(copy.address()) + offset, sizeof value);
    return value;
}

template <class Value, class Record>
void put(WireCopy<Record>& copy, size_t offset, Value value)
{
    std::memcpy(static_cast<char*>(copy.address()) + offset, &value, sizeof value);
}

// Each of these checks one field: what is handed over stands at the offset, and what is put there comes back.
template <class Record>
void expectNumber(int32_t Record::* field, size_t offset, int32_t preset)
{
    Record record;
    record.*field = 0x01234567;
    WireCopy<Record> copy(record);
    EXPECT_EQ(at<int32_t>(copy, offset), preset ? preset : 0x01234567);
    put<int32_t>(copy, offset, -0x7edcba98);
    copy.readBack(record);
    EXPECT_EQ(record.*field, -0x7edcba98);
}

template <class Record>
void expectFlag(bool Record::* field, size_t offset)
{
    Record record;
    record.*field = true;
    WireCopy<Record> copy(record);
    EXPECT_EQ(at<int16_t>(copy, offset), -1);
    put<int16_t>(copy, offset, 0);
    copy.readBack(record);
    EXPECT_FALSE(record.*field);
}

template <class Record>
void expectText(std::wstring Record::* field, size_t offset, uint32_t room)
{
    Record record;
    record.*field = L"old";
    WireCopy<Record> copy(record);
    char* text = at<char*>(copy, offset);
    EXPECT_EQ(test::roomOf(text), room ? room : 3);
    EXPECT_STREQ(text, room ? "" : "old");
    std::memcpy(text, room ? "ne\0" : "new", 3);
    copy.readBack(record);
    EXPECT_EQ(record.*field, room ? L"ne" : L"new");
}

struct TableRow {
    std::string name;
    std::function<void()> expectIt;
};

void PrintTo(const TableRow& row, std::ostream* out)
{
    *out << row.name;
}

template <class Record>
TableRow row(const char* name, int32_t Record::* field, size_t offset, int32_t preset)
{
    return {name, [=] { expectNumber(field, offset, preset); }};
}

template <class Record>
TableRow row(const char* name, bool Record::* field, size_t offset, int32_t)
{
    return {name, [=] { expectFlag(field, offset); }};
}

template <class Record>
TableRow row(const char* name, std::wstring Record::* field, size_t offset, int32_t room)
{
    return {name, [=] { expectText(field, offset, static_cast<uint32_t>(room)); }};
}

#define ROW(field, offset, preset) row(#field, &field, offset, preset)

// Field, offset, and what it is preset to: a text's room, a size's capacity; 0 goes in as it stands.
// clang-format off
const TableRow fields[] = {
    // trzNotify, 20 bytes
    ROW(trzNotify::lNotifyType,                   0,     0),
    ROW(trzNotify::lProjectHdl,                   4,     0),
    ROW(trzNotify::lConnectionHdl,                8,     0),
    ROW(trzNotify::lObjectType,                  12,     0),
    ROW(trzNotify::lObjectHdl,                   16,     0),
    // trzText, 16 bytes
    ROW(trzText::strText,                         0,  4096),
    ROW(trzText::lTextSz,                         4,  4096),
    ROW(trzText::lTextType,                       8,     0),
    ROW(trzText::strButtons,                     12,   256),
    // trzSQLText, 32 bytes
    ROW(trzSQLText::strVSProject,                 0,     0),
    ROW(trzSQLText::strVSFile,                    4,  1024),
    ROW(trzSQLText::lSelFromLine,                 8,     0),
    ROW(trzSQLText::lSelFromColumn,              12,     0),
    ROW(trzSQLText::lSelToLine,                  16,     0),
    ROW(trzSQLText::lSelToColumn,                20,     0),
    ROW(trzSQLText::strText,                     24,  4096),
    ROW(trzSQLText::lTextSz,                     28,  4096),
    // trzADOText, 16 bytes
    ROW(trzADOText::strVSProject,                 0,  1024),
    ROW(trzADOText::strVSFile,                    4,  1024),
    ROW(trzADOText::strText,                      8, 65536),
    ROW(trzADOText::lTextSz,                     12, 65536),
    // trzConnectionDE, 16 bytes
    ROW(trzConnectionDE::strVSProject,            0,   256),
    ROW(trzConnectionDE::strDEName,               4,   256),
    ROW(trzConnectionDE::strDEConnection,         8,   256),
    ROW(trzConnectionDE::strConnectionString,    12,  1024),
    // trzCommandDE, 28 bytes
    ROW(trzCommandDE::strVSProject,               0,   256),
    ROW(trzCommandDE::strDEName,                  4,   256),
    ROW(trzCommandDE::strDEConnection,            8,   256),
    ROW(trzCommandDE::strDECommand,              12,   256),
    ROW(trzCommandDE::strCommandText,            16,  4096),
    ROW(trzCommandDE::lCommandType,              20,     0),
    ROW(trzCommandDE::bHasParemeters,            24,     0),
    // trzParameterDE, 24 bytes
    ROW(trzParameterDE::strName,                  0,     0),
    ROW(trzParameterDE::lMode,                    4,     0),
    ROW(trzParameterDE::lSQLType,                 8,     0),
    ROW(trzParameterDE::lSQLSize,                12,     0),
    ROW(trzParameterDE::lSQLPrecision,           16,     0),
    ROW(trzParameterDE::bBitData,                20,     0),
    // trzProject, 12 bytes
    ROW(trzProject::lHdl,                         0,     0),
    ROW(trzProject::strName,                      4,   256),
    ROW(trzProject::strPath,                      8,  1024),
    // trzConnection, 32 bytes
    ROW(trzConnection::lHdl,                      0,     0),
    ROW(trzConnection::bConnected,                4,     0),
    ROW(trzConnection::strDatabase,               8,   256),
    ROW(trzConnection::lProceduresHdl,           12,     0),
    ROW(trzConnection::lFunctionsHdl,            16,     0),
    ROW(trzConnection::lTriggersHdl,             20,     0),
    ROW(trzConnection::lTablesHdl,               24,     0),
    ROW(trzConnection::lViewsHdl,                28,     0),
    // trzProcedure, 48 bytes
    ROW(trzProcedure::lHdl,                       0,     0),
    ROW(trzProcedure::bIsDirty,                   4,     0),
    ROW(trzProcedure::bCanDebug,                  6,     0),
    ROW(trzProcedure::strSchema,                  8,   256),
    ROW(trzProcedure::strName,                   12,  1024),
    ROW(trzProcedure::strSpecific,               16,  1024),
    ROW(trzProcedure::strParameters,             20,  1024),
    ROW(trzProcedure::strLanguage,               24,   256),
    ROW(trzProcedure::strSQLPackage,             28,   256),
    ROW(trzProcedure::lResultSets,               32,     0),
    ROW(trzProcedure::bIsFenced,                 36,     0),
    ROW(trzProcedure::strComment,                40,   256),
    ROW(trzProcedure::strFileName,               44,  1024),
    // trzFunction, 44 bytes
    ROW(trzFunction::lHdl,                        0,     0),
    ROW(trzFunction::bIsDirty,                    4,     0),
    ROW(trzFunction::bCanDebug,                   6,     0),
    ROW(trzFunction::strSchema,                   8,   256),
    ROW(trzFunction::strName,                    12,   256),
    ROW(trzFunction::strSpecific,                16,  1024),
    ROW(trzFunction::strParameters,              20,  1024),
    ROW(trzFunction::strResult,                  24,  1024),
    ROW(trzFunction::strLanguage,                28,   256),
    ROW(trzFunction::bIsFenced,                  32,     0),
    ROW(trzFunction::strComment,                 36,   256),
    ROW(trzFunction::strFileName,                40,  1024),
    // trzTrigger, 32 bytes
    ROW(trzTrigger::lHdl,                         0,     0),
    ROW(trzTrigger::bIsDirty,                     4,     0),
    ROW(trzTrigger::bCanDebug,                    6,     0),
    ROW(trzTrigger::strSchema,                    8,   256),
    ROW(trzTrigger::strName,                     12,   256),
    ROW(trzTrigger::strTableSchema,              16,   256),
    ROW(trzTrigger::strTableName,                20,   256),
    ROW(trzTrigger::strComment,                  24,   256),
    ROW(trzTrigger::strFileName,                 28,  1024),
    // trzTable, 28 bytes
    ROW(trzTable::lHdl,                           0,     0),
    ROW(trzTable::bIsDirty,                       4,     0),
    ROW(trzTable::strSchema,                      8,   256),
    ROW(trzTable::strName,                       12,   256),
    ROW(trzTable::strTableSpace,                 16,   256),
    ROW(trzTable::lType,                         20,     0),
    ROW(trzTable::strComment,                    24,   256),
    // trzView, 20 bytes
    ROW(trzView::lHdl,                            0,     0),
    ROW(trzView::bIsDirty,                        4,     0),
    ROW(trzView::strSchema,                       8,   256),
    ROW(trzView::strName,                        12,   256),
    ROW(trzView::strComment,                     16,   256)
};

struct RecordSize {
    const char* name;
    size_t size;
    size_t expected;
};

void PrintTo(const RecordSize& row, std::ostream* out)
{
    *out << row.name;
}

const RecordSize sizes[] = {
    {"trzNotify", layoutOf<trzNotify>().wireSize, 20},
    {"trzText", layoutOf<trzText>().wireSize, 16},
    {"trzSQLText", layoutOf<trzSQLText>().wireSize, 32},
    {"trzADOText", layoutOf<trzADOText>().wireSize, 16},
    {"trzConnectionDE", layoutOf<trzConnectionDE>().wireSize, 16},
    {"trzCommandDE", layoutOf<trzCommandDE>().wireSize, 28},
    {"trzParameterDE", layoutOf<trzParameterDE>().wireSize, 24},
    {"trzProject", layoutOf<trzProject>().wireSize, 12},
    {"trzConnection", layoutOf<trzConnection>().wireSize, 32},
    {"trzProcedure", layoutOf<trzProcedure>().wireSize, 48},
    {"trzFunction", layoutOf<trzFunction>().wireSize, 44},
    {"trzTrigger", layoutOf<trzTrigger>().wireSize, 32},
    {"trzTable", layoutOf<trzTable>().wireSize, 28},
    {"trzView", layoutOf<trzView>().wireSize, 20}
};
// clang-format on

class recordField : public testing::TestWithParam<TableRow> {};

TEST_P(recordField, onItsWayThereAndBack_standsWhereTheTableSays)
{
    GetParam().expectIt();
}

INSTANTIATE_TEST_SUITE_P(each, recordField, testing::ValuesIn(fields));

class recordSize : public testing::TestWithParam<RecordSize> {};

TEST_P(recordSize, ofEachRecord_isThatOfTheTable)
{
    EXPECT_EQ(GetParam().size, GetParam().expected);
}

INSTANTIATE_TEST_SUITE_P(each, recordSize, testing::ValuesIn(sizes));

} // namespace
} // namespace velk
