// The part of the desk for client code, for what this edition cannot do, and for functions that the add-in never calls.
#include "devkit/backend/desk.h"
#include "devkit/backend/deskTemplates.h"
#include "devkit/backend/messages.h"

#include <cwchar>

namespace velk::devkit {
namespace {

// clang-format off
constexpr int32_t actionPaste             = 23;
constexpr int32_t applicationName         = 850;
constexpr int32_t toolName                = 851;
constexpr int32_t fontName                = 100;
constexpr int32_t fontSize                = 101;
// clang-format on

} // namespace

int32_t Desk::RZObjectDoGetADO(int32_t handle, int32_t language, char* project, char* component)
{
    if (!enter(L"RZObjectDoGetADO", handle, language, project, component))
        return 0;
    const std::wstring projectName = input(project);
    const std::wstring componentName = input(component);
    if (m_handles.kindOf(handle) == 0)
        breach(L"the handle is not live");
    return m_session->client().makeADO(handle, projectName, componentName) ? 1 : 0;
}

int32_t Desk::RZConnectionDoGetDE(int32_t handle, char* project, char* environment, char* connection)
{
    if (!enter(L"RZConnectionDoGetDE", handle, project, environment, connection))
        return 0;
    ConnectionDEPayload wanted{input(project), input(environment), input(connection), {}};
    return checkHandle(handle, kindConnection) && m_session->client().makeConnectionDE(handle, std::move(wanted)) ? 1
                                                                                                                  : 0;
}

int32_t Desk::RZCommandDoGetDE(int32_t handle, char* project, char* environment, char* connection, char* command)
{
    if (!enter(L"RZCommandDoGetDE", handle, project, environment, connection, command))
        return 0;
    CommandDEPayload wanted{input(project), input(environment), input(connection), input(command), {}};
    if (m_handles.kindOf(handle) == 0)
        breach(L"the handle is not live");
    return m_session->client().makeCommandDE(handle, std::move(wanted)) ? 1 : 0;
}

int32_t Desk::RZLaunchApp(int32_t application, char* arguments)
{
    if (!enter(L"RZLaunchApp", application, arguments))
        return 0;
    input(arguments);
    m_session->conversation().tell(messageNoTool, {m_texts.text(applicationName, {std::to_wstring(application)})});
    return 0;
}

int32_t Desk::RZLaunchVelkTool(int32_t tool)
{
    if (!enter(L"RZLaunchVelkTool", tool))
        return 0;
    m_session->conversation().tell(messageNoTool, {m_texts.text(toolName, {std::to_wstring(tool)})});
    return 0;
}

int32_t Desk::RZDoTestAction(int32_t action)
{
    enter(L"RZDoTestAction", action);
    return 0;
}

int32_t Desk::RZMgrInitialize(int32_t ideType)
{
    m_journal.line(L"RZMgrInitialize(" + shown(ideType) + L")");
    return 0;
}

int32_t Desk::RZMgrTerminate()
{
    m_journal.line(L"RZMgrTerminate()");
    return 0;
}

int32_t Desk::RZMgrSendData(int32_t handle, char* data)
{
    enter(L"RZMgrSendData", handle, data);
    input(data);
    return 0;
}

int32_t Desk::RZMgrRecvData(int32_t handle, char* buffer, int32_t capacity)
{
    enter(L"RZMgrRecvData", handle, capacity);
    checkPreset(L"the buffer", buffer, static_cast<size_t>(capacity));
    return 0;
}

int32_t Desk::RZGetFontInfo(char* buffer, int32_t capacity, int32_t* size)
{
    m_call = L"RZGetFontInfo";
    m_journal.line(L"RZGetFontInfo(" + shown(capacity) + L")");
    if (size)
        *size = static_cast<int32_t>(std::wcstol(m_texts.text(fontSize).c_str(), nullptr, 10));
    return giveText(fontName, buffer, capacity, {});
}

// There is no picture: the caller shows its own.
int32_t Desk::RZGetSplashScreenBMPName(char* buffer, int32_t capacity)
{
    m_call = L"RZGetSplashScreenBMPName";
    m_journal.line(L"RZGetSplashScreenBMPName(" + shown(capacity) + L")");
    checkPreset(L"the buffer", buffer, static_cast<size_t>(capacity));
    return 0;
}

int32_t Desk::RZBuildSQLStatement(int32_t handle, char* buffer, int32_t capacity)
{
    if (enter(L"RZBuildSQLStatement", handle, capacity))
        checkPreset(L"the buffer", buffer, static_cast<size_t>(capacity));
    return 0;
}

int32_t Desk::RZObjectDoPaste(int32_t handle)
{
    return enter(L"RZObjectDoPaste", handle) ? notAvailable(actionPaste) : 0;
}

// The commands of a data environment are the caller's: the tool keeps none whose parameters could be asked for.
int32_t Desk::RZParameterDEEnumBegin(int32_t command, int32_t* count, int32_t* enumeration)
{
    if (enter(L"RZParameterDEEnumBegin", command) && count && enumeration)
        *count = *enumeration = 0;
    return 0;
}

int32_t Desk::RZParameterDEEnumNext(int32_t enumeration, wire::trzParameterDE*)
{
    enter(L"RZParameterDEEnumNext", enumeration);
    return 0;
}

int32_t Desk::RZParameterDEEnumEnd(int32_t enumeration)
{
    enter(L"RZParameterDEEnumEnd", enumeration);
    return 0;
}

} // namespace velk::devkit
