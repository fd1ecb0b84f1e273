#include "notify/kinds.h"

#include "backend/calls.h"
#include "base/boundary.h"
#include "base/unique_any.h"
#include "notify/fetched.h"
#include "serverview/viewAPIs.h"

namespace velk {
namespace {

template <class Record, int32_t objectKind, auto fetch, auto add>
void addIfShown(const Session& session, int32_t handle)
{
    const Record record = fetched<Record>(session, fetch, handle);
    if (selectedNodeKindIs(objectKind - 1))
        add(record);
}

template <class Record, const auto& begin, auto next, const auto& end, auto add>
void fill(const Session& session, int32_t folderHandle)
{
    const ListFilling shownTogether;
    int32_t unread = 0;
    int32_t enumeration = 0;
    const int32_t begun = begin(folderHandle, unread, enumeration);
    // The Backend wants an end for every beginning, whatever the beginning answered; with its session it forgets all.
    const scope_exit ended([&] {
        if (session.isOver())
            return;
        swallow(L"folder contents", L"the rows stand; the Backend forgets the enumeration with its session",
                [&] { end(enumeration); });
    });
    const auto isWanted = [&] { return !session.isOver() && !shownTogether.isOvertaken(); };
    Record record;
    while (begun != 0 && isWanted() && next(enumeration, record) != 0 && isWanted())
        add(record);
}

// clang-format off
constexpr ObjectKindRow kindRows[] = {
    {8,
     addIfShown<trzProcedure, 8, fetchProcedure, addProcedureRow>,
     addIfShown<trzProcedure, 8, fetchProcedure, updateProcedureRow>,
     fill<trzProcedure, RZProcedureEnumBegin, nextProcedure, RZProcedureEnumEnd, addProcedureRow>},
    {10,
     addIfShown<trzFunction, 10, fetchFunction, addFunctionRow>,
     addIfShown<trzFunction, 10, fetchFunction, updateFunctionRow>,
     fill<trzFunction, RZFunctionEnumBegin, nextFunction, RZFunctionEnumEnd, addFunctionRow>},
    {12,
     addIfShown<trzTrigger, 12, fetchTrigger, addTriggerRow>,
     nullptr,
     fill<trzTrigger, RZTriggerEnumBegin, nextTrigger, RZTriggerEnumEnd, addTriggerRow>},
    {14,
     addIfShown<trzTable, 14, fetchTable, addTableRow>,
     nullptr,
     fill<trzTable, RZTableEnumBegin, nextTable, RZTableEnumEnd, addTableRow>},
    {16,
     addIfShown<trzView, 16, fetchView, addViewRow>,
     nullptr,
     fill<trzView, RZViewEnumBegin, nextView, RZViewEnumEnd, addViewRow>},
};
// clang-format on

} // namespace

const ObjectKindRow* rowOfObjectKind(int32_t objectKind) noexcept
{
    for (const ObjectKindRow& row : kindRows)
        if (row.objectKind == objectKind)
            return &row;
    return nullptr;
}

const ObjectKindRow* rowOfFolderKind(int32_t folderKind) noexcept
{
    return rowOfObjectKind(folderKind + 1);
}

} // namespace velk
