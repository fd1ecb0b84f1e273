// Code and data-environment objects that the tool made for the IDE's project: handed to the project model.

#include "backend/fetched.h"
#include "notify/handlers.h"

namespace velk {
namespace {

struct CommandTypeRow {
    int32_t toolType;
    int32_t adoType;
};

// The tool's command types and ADO's CommandTypeEnum.
// clang-format off
constexpr CommandTypeRow commandTypes[] = {
    {1, 4},   // stored procedure
    {2, 1},   // text
    {3, 2},   // table
    {4, 512}, // table direct
    {5, 128}, // execute without records
    {6, 256}, // file
    {7, 8},   // unknown
};
// clang-format on
constexpr int32_t noAdoType = 0;

int32_t adoTypeOf(int32_t toolType)
{
    for (const CommandTypeRow& row : commandTypes)
        if (row.toolType == toolType)
            return row.adoType;
    return noAdoType;
}

} // namespace

void handleSQLText(const IntegrationMgr& manager, const trzNotify& notification)
{
    const trzSQLText sql = fetched(manager.session(), fetchSQLText, notification.lObjectHdl);
    manager.getModel().insertSQLCode(sql.strText,
                                     {sql.lSelFromLine, sql.lSelFromColumn, sql.lSelToLine, sql.lSelToColumn},
                                     sql.strVSProject, sql.strVSFile);
}

void handleADOText(const IntegrationMgr& manager, const trzNotify& notification)
{
    const trzADOText ado = fetched(manager.session(), fetchADOText, notification.lObjectHdl);
    manager.getModel().insertClientCode(ado.strText, ado.strVSProject, ado.strVSFile);
}

void handleConnectionDE(const IntegrationMgr& manager, const trzNotify& notification)
{
    const trzConnectionDE connection = fetched(manager.session(), fetchConnectionDE, notification.lObjectHdl);
    manager.getModel().addADOConnection(connection.strConnectionString, connection.strDEConnection,
                                        connection.strDEName, connection.strVSProject);
}

void handleCommandDE(const IntegrationMgr& manager, const trzNotify& notification)
{
    const trzCommandDE command = fetched(manager.session(), fetchCommandDE, notification.lObjectHdl);
    manager.getModel().AddADOCommand(adoTypeOf(command.lCommandType), command.strCommandText, command.strDECommand,
                                     command.strDEConnection, command.strDEName, command.strVSProject);
}

} // namespace velk
