#include "devkit/backend/clientCode.h"

#include "devkit/backend/routineBody.h"

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

std::wstring commandCode(const ObjectFacts& facts, int32_t folderKind)
{
    std::wstring code = L"Set command = Server.CreateObject(\"ADODB.Command\")\r\nSet command.ActiveConnection = "
                        L"connection\r\ncommand.CommandText = " +
                        quoted(fullName(facts)) + L"\r\ncommand.CommandType = " +
                        (isTableLike(folderKind) ? L"2" : L"4") + L"\r\n";
    for (const RoutineParameter& parameter : parametersOf(facts))
        code += L"command.Parameters.Append command.CreateParameter(" + quoted(parameter.name) + L")\r\n";
    return code + L"Set records = command.Execute\r\n";
}

} // namespace

bool ClientCode::makeADO(int32_t handle, const std::wstring& project, const std::wstring& component)
{
    const ConnectionState* const connection = m_tree.connection(handle);
    const TreePlace place = m_tree.object(handle);
    if (!connection && !place.facts)
        return false;
    m_conversation.pushPayload(Notice::adoText, AdoPayload{project, component,
                                                           connection ? connectionCode(connection->database.odbc())
                                                                      : commandCode(*place.facts, place.folder->kind)});
    return true;
}

bool ClientCode::makeConnectionDE(int32_t handle, ConnectionDEPayload wanted)
{
    const ConnectionState* const connection = m_tree.connection(handle);
    if (!connection)
        return false;
    wanted.connectionString = connection->database.odbc();
    m_conversation.pushPayload(Notice::connectionDE, std::move(wanted));
    return true;
}

bool ClientCode::makeCommandDE(int32_t handle, CommandDEPayload wanted)
{
    const TreePlace place = m_tree.object(handle);
    if (!place.facts)
        return false;
    const int32_t kind = place.folder->kind;
    wanted.text = fullName(*place.facts);
    wanted.type = kind == kindProcedureFolder ? commandStoredProcedure : isTableLike(kind) ? commandTable : commandText;
    wanted.hasParameters = !parametersOf(*place.facts).empty();
    m_conversation.pushPayload(Notice::commandDE, std::move(wanted));
    return true;
}

} // namespace velk::devkit
