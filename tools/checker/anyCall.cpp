#include "checker/anyCall.h"

namespace velk::check {
namespace {

int32_t fetchThing(Bench& bench, Fn function, int32_t kind, int32_t handle)
{
    WireRecord record = fetchOfKind(kind)->record();
    return bench.calls.fill(function, handle, record);
}

// The kind is that of the notification here.
int32_t fetchText(Bench& bench, Fn function, int32_t type, int32_t handle)
{
    WireRecord record = fetchOfType(type)->record();
    return bench.calls.fill(function, handle, record);
}

int32_t begin(Bench& bench, Fn function, int32_t, int32_t handle)
{
    return bench.calls.enumBegin(function, handle).answer;
}

int32_t number(Bench& bench, Fn function, int32_t, int32_t handle)
{
    return bench.calls.plain(function, handle);
}

int32_t select(Bench& bench, Fn function, int32_t kind, int32_t handle)
{
    return bench.calls.plain(function, handle, kind);
}

int32_t act(Bench& bench, Fn function, int32_t, int32_t handle)
{
    return bench.calls.plain(function, handle, actionProperties);
}

int32_t ado(Bench& bench, Fn, int32_t, int32_t handle)
{
    constexpr int32_t language = 3;
    return bench.calls.getAdo(handle, language, "", "");
}

int32_t connectionDe(Bench& bench, Fn, int32_t, int32_t handle)
{
    return bench.calls.connectionDe(handle, "Project", "Environment", "Connection");
}

int32_t commandDe(Bench& bench, Fn, int32_t, int32_t handle)
{
    return bench.calls.commandDe(handle, "Project", "Environment", "Connection", "Command");
}

int32_t next(Bench& bench, Fn, int32_t, int32_t)
{
    const Notify notify = bench.calls.next();
    return notify.answer != 0 ? notify.answer : notify.more;
}

int32_t button(Bench& bench, Fn, int32_t, int32_t)
{
    return bench.calls.button("User response", answerOk);
}

int32_t access(Bench& bench, Fn, int32_t, int32_t)
{
    const std::string path = bench.anyProjectFile();
    const size_t backslash = path.rfind('\\');
    return bench.calls.access(path.substr(0, backslash), path.substr(backslash + 1), modeOpen);
}

// clang-format off
#define FOLDER(name, object)                                                                                           \
    {Fn::RZ##name##EnumBegin, AnyCall::beginsEnumeration,    object - 1, begin},                                       \
    {Fn::RZ##name##EnumNext,  AnyCall::continuesEnumeration, object,     fetchThing},                                  \
    {Fn::RZ##name##EnumEnd,   AnyCall::endsEnumeration,      0,          number},                                      \
    {Fn::RZ##name##Get,       AnyCall::fetchesThing,         object,     fetchThing}

constexpr AnyCall rows[] = {
    {Fn::RZGetNotification,   AnyCall::other,        0,                next},
    {Fn::RZButtonDoAction,    AnyCall::other,        0,                button},
    {Fn::RZProjectDoAccess,   AnyCall::other,        0,                access},
    {Fn::RZGetText,           AnyCall::fetchesText,  typeText,         fetchText},
    {Fn::RZGetSQLText,        AnyCall::fetchesText,  typeSqlText,      fetchText},
    {Fn::RZGetADOText,        AnyCall::fetchesText,  typeAdoText,      fetchText},
    {Fn::RZConnectionGetDE,   AnyCall::fetchesText,  typeConnectionDe, fetchText},
    {Fn::RZCommandGetDE,      AnyCall::fetchesText,  typeCommandDe,    fetchText},
    {Fn::RZProjectGet,        AnyCall::fetchesThing, kindProject,      fetchThing},
    {Fn::RZConnectionGet,     AnyCall::fetchesThing, kindConnection,   fetchThing},
    FOLDER(Procedure, 8),
    FOLDER(Function, 10),
    FOLDER(Trigger, 12),
    FOLDER(Table, 14),
    FOLDER(View, 16),
    {Fn::RZSetCurrentFolder,  AnyCall::acts,         kindFirstFolder,  select},
    {Fn::RZObjectDoAction,    AnyCall::acts,         0,                act},
    {Fn::RZObjectDoGetADO,    AnyCall::acts,         0,                ado},
    {Fn::RZConnectionDoGetDE, AnyCall::acts,         kindConnection,   connectionDe},
    {Fn::RZCommandDoGetDE,    AnyCall::acts,         0,                commandDe},
};
// clang-format on
#undef FOLDER

} // namespace

std::span<const AnyCall> anyCalls() noexcept
{
    return rows;
}

} // namespace velk::check
