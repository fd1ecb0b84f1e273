// The part of a session that makes client code and objects for a data environment.
#include "devkit/backend/routineBody.h"
#include "devkit/backend/session.h"
#include "devkit/backend/sessionState.h"
#include "devkit/backend/texts.h"

namespace velk::devkit {
namespace {

// The tool's numbers for kinds of commands.
constexpr int32_t commandStoredProcedure = 1;
constexpr int32_t commandText = 2;
constexpr int32_t commandTable = 3;

std::wstring connectionCode(const std::wstring& connectionString)
{
    return L"Set connection = Server.CreateObject(\"ADODB.Connection\")\r\nconnection.Open " +
           quoted(connectionString) + L"\r\n";
}

bool isTableLike(int32_t folderKind)
{
    return folderKind == kindTableFolder || folderKind == kindViewFolder;
}

std::wstring commandCode(const ObjectFacts& facts, int32_t folderKind)
{
    std::wstring code = L"Set command = Server.CreateObject(\"ADODB.Command\")\r\nSet command.ActiveConnection = "
                        L"connection\r\ncommand.CommandText = " +
                        quoted(facts.schema.empty() ? facts.name : facts.schema + L"." + facts.name) +
                        L"\r\ncommand.CommandType = " + (isTableLike(folderKind) ? L"2" : L"4") + L"\r\n";
    for (const RoutineParameter& parameter : parametersOf(facts))
        code += L"command.Parameters.Append command.CreateParameter(" + quoted(parameter.name) + L")\r\n";
    return code + L"Set records = command.Execute\r\n";
}

} // namespace

bool Session::makeADO(int32_t handle, const std::wstring& project, const std::wstring& component)
{
    if (const ConnectionState* state = connectionState(handle)) {
        m_queue.pushPayload(Notice::adoText, AdoPayload{project, component, connectionCode(state->database.odbc())});
        return true;
    }
    const Place place = placeOf(handle);
    if (!place.facts)
        return false;
    m_queue.pushPayload(Notice::adoText, AdoPayload{project, component, commandCode(*place.facts, place.folder->kind)});
    return true;
}

bool Session::makeConnectionDE(int32_t handle, ConnectionDEPayload wanted)
{
    const ConnectionState* state = connectionState(handle);
    if (!state)
        return false;
    wanted.connectionString = state->database.odbc();
    m_queue.pushPayload(Notice::connectionDE, std::move(wanted));
    return true;
}

bool Session::makeCommandDE(int32_t handle, CommandDEPayload wanted)
{
    const Place place = placeOf(handle);
    if (!place.facts)
        return false;
    const ObjectFacts& facts = *place.facts;
    const int32_t kind = place.folder->kind;
    wanted.text = facts.schema.empty() ? facts.name : facts.schema + L"." + facts.name;
    wanted.type = kind == kindProcedureFolder ? commandStoredProcedure : isTableLike(kind) ? commandTable : commandText;
    wanted.hasParameters = !parametersOf(facts).empty();
    m_queue.pushPayload(Notice::commandDE, std::move(wanted));
    return true;
}

} // namespace velk::devkit
