#include "devkit/backend/records.h"

#include "base/text.h"

#include <cstddef>

namespace velk::devkit {
namespace {

template <auto field, class Facts>
const std::wstring& textIn(const void* facts)
{
    return static_cast<const Facts*>(facts)->*field;
}

template <class Facts>
Facts ownerOf(std::wstring Facts::*);

#define ROW(record, field, capacity, from)                                                                             \
    {L## #record L"." L## #field, offsetof(wire::record, field), capacity, textIn<&from, decltype(ownerOf(&from))>}

// clang-format off
constexpr TextRow plainTextRows[] = {
    ROW(trzText, strText, 4096, TextPayload::text),
    ROW(trzText, strButtons, 256, TextPayload::buttons),
};
constexpr TextRow sqlTextRows[] = {
    ROW(trzSQLText, strVSFile, 1024, SqlPayload::file),
    ROW(trzSQLText, strText, 4096, SqlPayload::text),
};
constexpr TextRow adoTextRows[] = {
    ROW(trzADOText, strVSProject, 1024, AdoPayload::project),
    ROW(trzADOText, strVSFile, 1024, AdoPayload::file),
    ROW(trzADOText, strText, 65536, AdoPayload::text),
};
constexpr TextRow connectionDERows[] = {
    ROW(trzConnectionDE, strVSProject, 256, ConnectionDEPayload::project),
    ROW(trzConnectionDE, strDEName, 256, ConnectionDEPayload::environment),
    ROW(trzConnectionDE, strDEConnection, 256, ConnectionDEPayload::connection),
    ROW(trzConnectionDE, strConnectionString, 1024, ConnectionDEPayload::connectionString),
};
constexpr TextRow commandDERows[] = {
    ROW(trzCommandDE, strVSProject, 256, CommandDEPayload::project),
    ROW(trzCommandDE, strDEName, 256, CommandDEPayload::environment),
    ROW(trzCommandDE, strDEConnection, 256, CommandDEPayload::connection),
    ROW(trzCommandDE, strDECommand, 256, CommandDEPayload::command),
    ROW(trzCommandDE, strCommandText, 4096, CommandDEPayload::text),
};
constexpr TextRow projectRows[] = {
    ROW(trzProject, strName, 256, ProjectFacts::name),
    ROW(trzProject, strPath, 1024, ProjectFacts::path),
};
constexpr TextRow connectionRows[] = {
    ROW(trzConnection, strDatabase, 256, ConnectionFacts::database),
};
constexpr TextRow procedureRows[] = {
    ROW(trzProcedure, strSchema, 256, ObjectFacts::schema),
    ROW(trzProcedure, strName, 1024, ObjectFacts::name),
    ROW(trzProcedure, strSpecific, 1024, ObjectFacts::specific),
    ROW(trzProcedure, strParameters, 1024, ObjectFacts::parameters),
    ROW(trzProcedure, strLanguage, 256, ObjectFacts::language),
    ROW(trzProcedure, strSQLPackage, 256, ObjectFacts::package),
    ROW(trzProcedure, strComment, 256, ObjectFacts::comment),
    ROW(trzProcedure, strFileName, 1024, ObjectFacts::file),
};
constexpr TextRow functionRows[] = {
    ROW(trzFunction, strSchema, 256, ObjectFacts::schema),
    ROW(trzFunction, strName, 256, ObjectFacts::name),
    ROW(trzFunction, strSpecific, 1024, ObjectFacts::specific),
    ROW(trzFunction, strParameters, 1024, ObjectFacts::parameters),
    ROW(trzFunction, strResult, 1024, ObjectFacts::result),
    ROW(trzFunction, strLanguage, 256, ObjectFacts::language),
    ROW(trzFunction, strComment, 256, ObjectFacts::comment),
    ROW(trzFunction, strFileName, 1024, ObjectFacts::file),
};
constexpr TextRow triggerRows[] = {
    ROW(trzTrigger, strSchema, 256, ObjectFacts::schema),
    ROW(trzTrigger, strName, 256, ObjectFacts::name),
    ROW(trzTrigger, strTableSchema, 256, ObjectFacts::tableSchema),
    ROW(trzTrigger, strTableName, 256, ObjectFacts::tableName),
    ROW(trzTrigger, strComment, 256, ObjectFacts::comment),
    ROW(trzTrigger, strFileName, 1024, ObjectFacts::file),
};
constexpr TextRow tableRows[] = {
    ROW(trzTable, strSchema, 256, ObjectFacts::schema),
    ROW(trzTable, strName, 256, ObjectFacts::name),
    ROW(trzTable, strTableSpace, 256, ObjectFacts::tableSpace),
    ROW(trzTable, strComment, 256, ObjectFacts::comment),
};
constexpr TextRow viewRows[] = {
    ROW(trzView, strSchema, 256, ObjectFacts::schema),
    ROW(trzView, strName, 256, ObjectFacts::name),
    ROW(trzView, strComment, 256, ObjectFacts::comment),
};
// clang-format on
#undef ROW

int16_t flag(bool truth)
{
    return truth ? int16_t{-1} : int16_t{0};
}

// The bytes that a whole text needs with its NUL.
int32_t room(const std::wstring& text)
{
    return static_cast<int32_t>(toAnsi(text).size() + 1);
}

template <class Record, class Facts>
void fillTexts(Record& record, const Facts& facts)
{
    for (const TextRow& row : textRows(&record))
        CountedString(stringAt(&record, row)).write(row.text(&facts));
}

} // namespace

std::span<const TextRow> textRows(const wire::trzText*)
{
    return plainTextRows;
}
std::span<const TextRow> textRows(const wire::trzSQLText*)
{
    return sqlTextRows;
}
std::span<const TextRow> textRows(const wire::trzADOText*)
{
    return adoTextRows;
}
std::span<const TextRow> textRows(const wire::trzConnectionDE*)
{
    return connectionDERows;
}
std::span<const TextRow> textRows(const wire::trzCommandDE*)
{
    return commandDERows;
}
std::span<const TextRow> textRows(const wire::trzProject*)
{
    return projectRows;
}
std::span<const TextRow> textRows(const wire::trzConnection*)
{
    return connectionRows;
}
std::span<const TextRow> textRows(const wire::trzProcedure*)
{
    return procedureRows;
}
std::span<const TextRow> textRows(const wire::trzFunction*)
{
    return functionRows;
}
std::span<const TextRow> textRows(const wire::trzTrigger*)
{
    return triggerRows;
}
std::span<const TextRow> textRows(const wire::trzTable*)
{
    return tableRows;
}
std::span<const TextRow> textRows(const wire::trzView*)
{
    return viewRows;
}

void fill(wire::trzText& record, const TextPayload& payload)
{
    fillTexts(record, payload);
    record.lTextSz = room(payload.text);
    record.lTextType = static_cast<int32_t>(payload.type);
}

void fill(wire::trzSQLText& record, const SqlPayload& payload)
{
    fillTexts(record, payload);
    CountedString(record.strVSProject).write(payload.project); // has no room of its own
    record.lSelFromLine = payload.fromLine;
    record.lSelFromColumn = payload.fromColumn;
    record.lSelToLine = payload.toLine;
    record.lSelToColumn = payload.toColumn;
    record.lTextSz = room(payload.text);
}

void fill(wire::trzADOText& record, const AdoPayload& payload)
{
    fillTexts(record, payload);
    record.lTextSz = room(payload.text);
}

void fill(wire::trzConnectionDE& record, const ConnectionDEPayload& payload)
{
    fillTexts(record, payload);
}

void fill(wire::trzCommandDE& record, const CommandDEPayload& payload)
{
    fillTexts(record, payload);
    record.lCommandType = payload.type;
    record.bHasParemeters = flag(payload.hasParameters);
}

void fill(wire::trzProject& record, int32_t handle, const ProjectFacts& facts)
{
    fillTexts(record, facts);
    record.lHdl = handle;
}

void fill(wire::trzConnection& record, int32_t handle, const ConnectionFacts& facts)
{
    fillTexts(record, facts);
    record.lHdl = handle;
    record.bConnected = flag(facts.connected);
    record.lProceduresHdl = facts.folders[0];
    record.lFunctionsHdl = facts.folders[1];
    record.lTriggersHdl = facts.folders[2];
    record.lTablesHdl = facts.folders[3];
    record.lViewsHdl = facts.folders[4];
}

void fill(wire::trzProcedure& record, int32_t handle, const ObjectFacts& facts)
{
    fillTexts(record, facts);
    record.lHdl = handle;
    record.bIsDirty = flag(facts.dirty);
    record.bCanDebug = flag(facts.canDebug);
    record.lResultSets = facts.resultSets;
    record.bIsFenced = flag(facts.fenced);
}

void fill(wire::trzFunction& record, int32_t handle, const ObjectFacts& facts)
{
    fillTexts(record, facts);
    record.lHdl = handle;
    record.bIsDirty = flag(facts.dirty);
    record.bCanDebug = flag(facts.canDebug);
    record.bIsFenced = facts.fenced ? 1 : 0;
}

void fill(wire::trzTrigger& record, int32_t handle, const ObjectFacts& facts)
{
    fillTexts(record, facts);
    record.lHdl = handle;
    record.bIsDirty = flag(facts.dirty);
    record.bCanDebug = flag(facts.canDebug);
}

void fill(wire::trzTable& record, int32_t handle, const ObjectFacts& facts)
{
    fillTexts(record, facts);
    record.lHdl = handle;
    record.bIsDirty = flag(facts.dirty);
    record.lType = facts.type;
}

void fill(wire::trzView& record, int32_t handle, const ObjectFacts& facts)
{
    fillTexts(record, facts);
    record.lHdl = handle;
    record.bIsDirty = flag(facts.dirty);
}

} // namespace velk::devkit
