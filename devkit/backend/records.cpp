#include "devkit/backend/records.h"

#include "base/text.h"

#include <cstddef>

namespace velk::devkit {
namespace {

#define ROW(record, field, capacity) {L## #record L"." L## #field, offsetof(wire::record, field), capacity}

// clang-format off
constexpr PresetRow textRows[] = {
    ROW(trzText, strText, 4096), ROW(trzText, strButtons, 256)};
constexpr PresetRow sqlTextRows[] = {
    ROW(trzSQLText, strVSFile, 1024), ROW(trzSQLText, strText, 4096)};
constexpr PresetRow adoTextRows[] = {
    ROW(trzADOText, strVSProject, 1024), ROW(trzADOText, strVSFile, 1024), ROW(trzADOText, strText, 65536)};
constexpr PresetRow connectionDERows[] = {
    ROW(trzConnectionDE, strVSProject, 256), ROW(trzConnectionDE, strDEName, 256),
    ROW(trzConnectionDE, strDEConnection, 256), ROW(trzConnectionDE, strConnectionString, 1024)};
constexpr PresetRow commandDERows[] = {
    ROW(trzCommandDE, strVSProject, 256), ROW(trzCommandDE, strDEName, 256), ROW(trzCommandDE, strDEConnection, 256),
    ROW(trzCommandDE, strDECommand, 256), ROW(trzCommandDE, strCommandText, 4096)};
constexpr PresetRow projectRows[] = {
    ROW(trzProject, strName, 256), ROW(trzProject, strPath, 1024)};
constexpr PresetRow connectionRows[] = {
    ROW(trzConnection, strDatabase, 256)};
constexpr PresetRow procedureRows[] = {
    ROW(trzProcedure, strSchema, 256), ROW(trzProcedure, strName, 1024), ROW(trzProcedure, strSpecific, 1024),
    ROW(trzProcedure, strParameters, 1024), ROW(trzProcedure, strLanguage, 256),
    ROW(trzProcedure, strSQLPackage, 256), ROW(trzProcedure, strComment, 256), ROW(trzProcedure, strFileName, 1024)};
constexpr PresetRow functionRows[] = {
    ROW(trzFunction, strSchema, 256), ROW(trzFunction, strName, 256), ROW(trzFunction, strSpecific, 1024),
    ROW(trzFunction, strParameters, 1024), ROW(trzFunction, strResult, 1024), ROW(trzFunction, strLanguage, 256),
    ROW(trzFunction, strComment, 256), ROW(trzFunction, strFileName, 1024)};
constexpr PresetRow triggerRows[] = {
    ROW(trzTrigger, strSchema, 256), ROW(trzTrigger, strName, 256), ROW(trzTrigger, strTableSchema, 256),
    ROW(trzTrigger, strTableName, 256), ROW(trzTrigger, strComment, 256), ROW(trzTrigger, strFileName, 1024)};
constexpr PresetRow tableRows[] = {
    ROW(trzTable, strSchema, 256), ROW(trzTable, strName, 256), ROW(trzTable, strTableSpace, 256),
    ROW(trzTable, strComment, 256)};
constexpr PresetRow viewRows[] = {
    ROW(trzView, strSchema, 256), ROW(trzView, strName, 256), ROW(trzView, strComment, 256)};
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

void put(char* field, const std::wstring& text)
{
    CountedString(field).write(text);
}

} // namespace

std::span<const PresetRow> presetsOf(const wire::trzText*)
{
    return textRows;
}
std::span<const PresetRow> presetsOf(const wire::trzSQLText*)
{
    return sqlTextRows;
}
std::span<const PresetRow> presetsOf(const wire::trzADOText*)
{
    return adoTextRows;
}
std::span<const PresetRow> presetsOf(const wire::trzConnectionDE*)
{
    return connectionDERows;
}
std::span<const PresetRow> presetsOf(const wire::trzCommandDE*)
{
    return commandDERows;
}
std::span<const PresetRow> presetsOf(const wire::trzProject*)
{
    return projectRows;
}
std::span<const PresetRow> presetsOf(const wire::trzConnection*)
{
    return connectionRows;
}
std::span<const PresetRow> presetsOf(const wire::trzProcedure*)
{
    return procedureRows;
}
std::span<const PresetRow> presetsOf(const wire::trzFunction*)
{
    return functionRows;
}
std::span<const PresetRow> presetsOf(const wire::trzTrigger*)
{
    return triggerRows;
}
std::span<const PresetRow> presetsOf(const wire::trzTable*)
{
    return tableRows;
}
std::span<const PresetRow> presetsOf(const wire::trzView*)
{
    return viewRows;
}

void fill(wire::trzText& record, const TextPayload& payload)
{
    put(record.strText, payload.text);
    record.lTextSz = room(payload.text);
    record.lTextType = static_cast<int32_t>(payload.type);
    put(record.strButtons, payload.buttons);
}

void fill(wire::trzSQLText& record, const SqlPayload& payload)
{
    put(record.strVSProject, payload.project);
    put(record.strVSFile, payload.file);
    record.lSelFromLine = payload.fromLine;
    record.lSelFromColumn = payload.fromColumn;
    record.lSelToLine = payload.toLine;
    record.lSelToColumn = payload.toColumn;
    put(record.strText, payload.text);
    record.lTextSz = room(payload.text);
}

void fill(wire::trzADOText& record, const AdoPayload& payload)
{
    put(record.strVSProject, payload.project);
    put(record.strVSFile, payload.file);
    put(record.strText, payload.text);
    record.lTextSz = room(payload.text);
}

void fill(wire::trzConnectionDE& record, const ConnectionDEPayload& payload)
{
    put(record.strVSProject, payload.project);
    put(record.strDEName, payload.environment);
    put(record.strDEConnection, payload.connection);
    put(record.strConnectionString, payload.connectionString);
}

void fill(wire::trzCommandDE& record, const CommandDEPayload& payload)
{
    put(record.strVSProject, payload.project);
    put(record.strDEName, payload.environment);
    put(record.strDEConnection, payload.connection);
    put(record.strDECommand, payload.command);
    put(record.strCommandText, payload.text);
    record.lCommandType = payload.type;
    record.bHasParemeters = flag(payload.hasParameters);
}

void fill(wire::trzProject& record, int32_t handle, const ProjectFacts& facts)
{
    record.lHdl = handle;
    put(record.strName, facts.name);
    put(record.strPath, facts.path);
}

void fill(wire::trzConnection& record, int32_t handle, const ConnectionFacts& facts)
{
    record.lHdl = handle;
    record.bConnected = flag(facts.connected);
    put(record.strDatabase, facts.database);
    record.lProceduresHdl = facts.folders[0];
    record.lFunctionsHdl = facts.folders[1];
    record.lTriggersHdl = facts.folders[2];
    record.lTablesHdl = facts.folders[3];
    record.lViewsHdl = facts.folders[4];
}

void fill(wire::trzProcedure& record, int32_t handle, const ObjectFacts& facts)
{
    record.lHdl = handle;
    record.bIsDirty = flag(facts.dirty);
    record.bCanDebug = flag(facts.canDebug);
    put(record.strSchema, facts.schema);
    put(record.strName, facts.name);
    put(record.strSpecific, facts.specific);
    put(record.strParameters, facts.parameters);
    put(record.strLanguage, facts.language);
    put(record.strSQLPackage, facts.package);
    record.lResultSets = facts.resultSets;
    record.bIsFenced = flag(facts.fenced);
    put(record.strComment, facts.comment);
    put(record.strFileName, facts.file);
}

void fill(wire::trzFunction& record, int32_t handle, const ObjectFacts& facts)
{
    record.lHdl = handle;
    record.bIsDirty = flag(facts.dirty);
    record.bCanDebug = flag(facts.canDebug);
    put(record.strSchema, facts.schema);
    put(record.strName, facts.name);
    put(record.strSpecific, facts.specific);
    put(record.strParameters, facts.parameters);
    put(record.strResult, facts.result);
    put(record.strLanguage, facts.language);
    record.bIsFenced = facts.fenced ? 1 : 0;
    put(record.strComment, facts.comment);
    put(record.strFileName, facts.file);
}

void fill(wire::trzTrigger& record, int32_t handle, const ObjectFacts& facts)
{
    record.lHdl = handle;
    record.bIsDirty = flag(facts.dirty);
    record.bCanDebug = flag(facts.canDebug);
    put(record.strSchema, facts.schema);
    put(record.strName, facts.name);
    put(record.strTableSchema, facts.tableSchema);
    put(record.strTableName, facts.tableName);
    put(record.strComment, facts.comment);
    put(record.strFileName, facts.file);
}

void fill(wire::trzTable& record, int32_t handle, const ObjectFacts& facts)
{
    record.lHdl = handle;
    record.bIsDirty = flag(facts.dirty);
    put(record.strSchema, facts.schema);
    put(record.strName, facts.name);
    put(record.strTableSpace, facts.tableSpace);
    record.lType = facts.type;
    put(record.strComment, facts.comment);
}

void fill(wire::trzView& record, int32_t handle, const ObjectFacts& facts)
{
    record.lHdl = handle;
    record.bIsDirty = flag(facts.dirty);
    put(record.strSchema, facts.schema);
    put(record.strName, facts.name);
    put(record.strComment, facts.comment);
}

} // namespace velk::devkit
