// The part of the desk that gives out records of projects, connections and objects.
#include "devkit/backend/desk.h"
#include "devkit/backend/deskTemplates.h"

namespace velk::devkit {

// Even an enumeration that cannot begin has a handle, because the caller ends it all the same.
int32_t Desk::enumBegin(const wchar_t* name, int32_t kind, int32_t container, int32_t* count, int32_t* enumeration)
{
    if (!enter(name, container))
        return 0;
    if (!count || !enumeration) {
        breach(L"an argument is missing");
        return 0;
    }
    const bool live = checkHandle(container, kind == kindConnection ? kindProject : kind - 1);
    Enumeration made{container, kind, {}, 0};
    if (live)
        made.handles = m_session->tree().contents(container);
    *count = static_cast<int32_t>(made.handles.size());
    *enumeration = ++m_lastEnumeration;
    m_enumerations.emplace(*enumeration, std::move(made));
    return live ? 1 : 0;
}

int32_t Desk::enumEnd(const wchar_t* name, int32_t kind, int32_t enumeration)
{
    if (!enter(name, enumeration))
        return 0;
    const auto found = m_enumerations.find(enumeration);
    if (found == m_enumerations.end() || found->second.kind != kind) {
        breach(L"no such enumeration is open");
        return 0;
    }
    m_enumerations.erase(found);
    return 1;
}

int32_t Desk::RZProjectGet(int32_t handle, wire::trzProject* record)
{
    return get(L"RZProjectGet", kindProject, handle, record);
}

#define ENUMERATION(name, kind, record)                                                                                \
    int32_t Desk::RZ##name##EnumBegin(int32_t container, int32_t* count, int32_t* enumeration)                         \
    {                                                                                                                  \
        return enumBegin(L"RZ" #name "EnumBegin", kind, container, count, enumeration);                                \
    }                                                                                                                  \
    int32_t Desk::RZ##name##EnumNext(int32_t enumeration, wire::record* target)                                        \
    {                                                                                                                  \
        return enumNext(L"RZ" #name "EnumNext", kind, enumeration, target);                                            \
    }                                                                                                                  \
    int32_t Desk::RZ##name##EnumEnd(int32_t enumeration)                                                               \
    {                                                                                                                  \
        return enumEnd(L"RZ" #name "EnumEnd", kind, enumeration);                                                      \
    }                                                                                                                  \
    int32_t Desk::RZ##name##Get(int32_t handle, wire::record* target)                                                  \
    {                                                                                                                  \
        return get(L"RZ" #name "Get", kind, handle, target);                                                           \
    }

ENUMERATION(Connection, kindConnection, trzConnection)
ENUMERATION(Procedure, kindProcedure, trzProcedure)
ENUMERATION(Function, kindFunction, trzFunction)
ENUMERATION(Trigger, kindTrigger, trzTrigger)
ENUMERATION(Table, kindTable, trzTable)
ENUMERATION(View, kindView, trzView)

#undef ENUMERATION

} // namespace velk::devkit
