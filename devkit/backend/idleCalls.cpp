// The calls that the add-in never makes.
#include "devkit/backend/calls.h"
#include "devkit/backend/messages.h"

namespace velk::devkit::calls {
namespace {

constexpr int32_t actionPaste = 23;

} // namespace

int32_t RZDoTestAction(Desk& desk, int32_t action)
{
    desk.rules.enter(L"RZDoTestAction", action);
    return 0;
}

int32_t RZMgrInitialize(Desk& desk, int32_t ideType)
{
    desk.rules.write(L"RZMgrInitialize", ideType);
    return 0;
}

int32_t RZMgrTerminate(Desk& desk)
{
    desk.rules.write(L"RZMgrTerminate");
    return 0;
}

int32_t RZMgrSendData(Desk& desk, int32_t handle, char* data)
{
    desk.rules.enter(L"RZMgrSendData", handle, data);
    desk.rules.input(data);
    return 0;
}

int32_t RZMgrRecvData(Desk& desk, int32_t handle, char* buffer, int32_t capacity)
{
    desk.rules.enter(L"RZMgrRecvData", handle, capacity);
    desk.rules.checkPreset(L"the buffer", buffer, static_cast<size_t>(capacity));
    return 0;
}

// There is no picture: the caller shows its own.
int32_t RZGetSplashScreenBMPName(Desk& desk, char* buffer, int32_t capacity)
{
    desk.rules.begin(L"RZGetSplashScreenBMPName");
    desk.rules.write(L"RZGetSplashScreenBMPName", capacity);
    desk.rules.checkPreset(L"the buffer", buffer, static_cast<size_t>(capacity));
    return 0;
}

int32_t RZBuildSQLStatement(Desk& desk, int32_t handle, char* buffer, int32_t capacity)
{
    if (desk.rules.enter(L"RZBuildSQLStatement", handle, capacity))
        desk.rules.checkPreset(L"the buffer", buffer, static_cast<size_t>(capacity));
    return 0;
}

int32_t RZObjectDoPaste(Desk& desk, int32_t handle)
{
    if (desk.rules.enter(L"RZObjectDoPaste", handle))
        desk.session->conversation().tell(messageNotAvailable, {desk.texts.text(actionNames + actionPaste)});
    return 0;
}

// The commands of a data environment are the caller's: the tool keeps none whose parameters could be asked for.
int32_t RZParameterDEEnumBegin(Desk& desk, int32_t command, int32_t* count, int32_t* enumeration)
{
    if (desk.rules.enter(L"RZParameterDEEnumBegin", command) && count && enumeration)
        *count = *enumeration = 0;
    return 0;
}

int32_t RZParameterDEEnumNext(Desk& desk, int32_t enumeration, wire::trzParameterDE*)
{
    desk.rules.enter(L"RZParameterDEEnumNext", enumeration);
    return 0;
}

int32_t RZParameterDEEnumEnd(Desk& desk, int32_t enumeration)
{
    desk.rules.enter(L"RZParameterDEEnumEnd", enumeration);
    return 0;
}

} // namespace velk::devkit::calls
