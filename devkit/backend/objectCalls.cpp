// The calls that give out records of projects, connections and objects.
#include "devkit/backend/calls.h"

#include <type_traits>

namespace velk::devkit::calls {
namespace {

template <class Record>
bool fillRecord(Desk& desk, int32_t handle, Record& record)
{
    if constexpr (std::is_same_v<Record, wire::trzConnection>) {
        const auto facts = desk.session->tree().connectionFacts(handle);
        if (facts)
            fill(record, handle, *facts);
        return facts.has_value();
    } else if constexpr (std::is_same_v<Record, wire::trzProject>) {
        const ProjectState* const project = desk.session->tree().project(handle);
        if (project)
            fill(record, handle, project->facts);
        return project != nullptr;
    } else {
        const ObjectFacts* const facts = desk.session->tree().facts(handle);
        if (facts)
            fill(record, handle, *facts);
        return facts != nullptr;
    }
}

template <class Record>
int32_t get(Desk& desk, const wchar_t* name, int32_t kind, int32_t handle, Record* record)
{
    if (!desk.rules.enter(name, handle))
        return 0;
    const bool complete = desk.rules.checkPresets(record);
    return desk.rules.checkHandle(handle, kind) && complete && fillRecord(desk, handle, *record) ? 1 : 0;
}

// Even an enumeration that cannot begin has a handle, because the caller ends it all the same.
int32_t enumBegin(Desk& desk, const wchar_t* name, int32_t kind, int32_t container, int32_t* count,
                  int32_t* enumeration)
{
    if (!desk.rules.enter(name, container) || !desk.rules.checkGiven(count && enumeration))
        return 0;
    const bool live = desk.rules.checkHandle(container, kind == kindConnection ? kindProject : kind - 1);
    std::vector<int32_t> handles = live ? desk.session->tree().contents(container) : std::vector<int32_t>();
    *count = static_cast<int32_t>(handles.size());
    *enumeration = desk.enumerations.begin(kind, std::move(handles));
    return live ? 1 : 0;
}

// Null when no such enumeration is open.
OpenEnumeration* opened(Desk& desk, int32_t kind, int32_t enumeration)
{
    OpenEnumeration* const found = desk.enumerations.find(enumeration, kind);
    if (!found)
        desk.rules.breach(L"no such enumeration is open");
    return found;
}

template <class Record>
int32_t enumNext(Desk& desk, const wchar_t* name, int32_t kind, int32_t enumeration, Record* record)
{
    if (!desk.rules.enter(name, enumeration))
        return 0;
    const bool complete = desk.rules.checkPresets(record);
    OpenEnumeration* const open = opened(desk, kind, enumeration);
    // An object may have gone since the enumeration began: the next one is given in its place.
    while (open && complete && open->next < open->handles.size())
        if (fillRecord(desk, open->handles[open->next++], *record))
            return 1;
    return 0;
}

int32_t enumEnd(Desk& desk, const wchar_t* name, int32_t kind, int32_t enumeration)
{
    if (!desk.rules.enter(name, enumeration) || !opened(desk, kind, enumeration))
        return 0;
    desk.enumerations.end(enumeration);
    return 1;
}

} // namespace

int32_t RZProjectGet(Desk& desk, int32_t handle, wire::trzProject* record)
{
    return get(desk, L"RZProjectGet", kindProject, handle, record);
}

#define ENUMERATION(name, kind, record)                                                                                \
    int32_t RZ##name##EnumBegin(Desk& desk, int32_t container, int32_t* count, int32_t* enumeration)                   \
    {                                                                                                                  \
        return enumBegin(desk, L"RZ" #name "EnumBegin", kind, container, count, enumeration);                          \
    }                                                                                                                  \
    int32_t RZ##name##EnumNext(Desk& desk, int32_t enumeration, wire::record* target)                                  \
    {                                                                                                                  \
        return enumNext(desk, L"RZ" #name "EnumNext", kind, enumeration, target);                                      \
    }                                                                                                                  \
    int32_t RZ##name##EnumEnd(Desk& desk, int32_t enumeration)                                                         \
    {                                                                                                                  \
        return enumEnd(desk, L"RZ" #name "EnumEnd", kind, enumeration);                                                \
    }                                                                                                                  \
    int32_t RZ##name##Get(Desk& desk, int32_t handle, wire::record* target)                                            \
    {                                                                                                                  \
        return get(desk, L"RZ" #name "Get", kind, handle, target);                                                     \
    }

ENUMERATION(Connection, kindConnection, trzConnection)
ENUMERATION(Procedure, kindProcedure, trzProcedure)
ENUMERATION(Function, kindFunction, trzFunction)
ENUMERATION(Trigger, kindTrigger, trzTrigger)
ENUMERATION(Table, kindTable, trzTable)
ENUMERATION(View, kindView, trzView)

#undef ENUMERATION

} // namespace velk::devkit::calls
