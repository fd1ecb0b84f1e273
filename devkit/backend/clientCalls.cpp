// The calls that make client code and the objects of a data environment.
#include "devkit/backend/calls.h"

namespace velk::devkit::calls {

int32_t RZObjectDoGetADO(Desk& desk, int32_t handle, int32_t language, char* project, char* component)
{
    if (!desk.rules.enter(L"RZObjectDoGetADO", handle, language, project, component))
        return 0;
    const std::wstring projectName = desk.rules.input(project);
    const std::wstring componentName = desk.rules.input(component);
    desk.rules.checkLive(handle);
    return desk.session->client().makeADO(handle, projectName, componentName) ? 1 : 0;
}

int32_t RZConnectionDoGetDE(Desk& desk, int32_t handle, char* project, char* environment, char* connection)
{
    if (!desk.rules.enter(L"RZConnectionDoGetDE", handle, project, environment, connection))
        return 0;
    ConnectionDEPayload wanted{
        desk.rules.input(project), desk.rules.input(environment), desk.rules.input(connection), {}};
    return desk.rules.checkHandle(handle, kindConnection) &&
                   desk.session->client().makeConnectionDE(handle, std::move(wanted))
               ? 1
               : 0;
}

int32_t RZCommandDoGetDE(Desk& desk, int32_t handle, char* project, char* environment, char* connection, char* command)
{
    if (!desk.rules.enter(L"RZCommandDoGetDE", handle, project, environment, connection, command))
        return 0;
    CommandDEPayload wanted{desk.rules.input(project),
                            desk.rules.input(environment),
                            desk.rules.input(connection),
                            desk.rules.input(command),
                            {}};
    desk.rules.checkLive(handle);
    return desk.session->client().makeCommandDE(handle, std::move(wanted)) ? 1 : 0;
}

} // namespace velk::devkit::calls
