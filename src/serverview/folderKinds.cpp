#include "serverview/folderKinds.h"

#include "backend/calls.h"
#include "backend/fetched.h"
#include "base/boundary.h"
#include "base/unique_any.h"
#include "serverview/objectColumns.h"
#include "serverview/viewAPIs.h"

namespace velk {
namespace {

template <auto fetch, auto show>
void showIfSelected(const FolderKindRow& folder, const Session& session, int32_t handle)
{
    const auto record = fetched(session, fetch, handle);
    if (selectedNodeKindIs(folder.folderKind))
        show(record);
}

template <class Record>
Record recordOf(int32_t (*next)(int32_t, Record&) noexcept);

template <const auto& begin, auto next, const auto& end, auto add>
void fill(const FolderKindRow&, const Session& session, int32_t folderHandle)
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
    decltype(recordOf(next)) record;
    while (begun != 0 && isWanted() && next(enumeration, record) != 0 && isWanted())
        add(record);
}

// clang-format off
constexpr FolderKindRow rows[] = {
    {7, 426, &trzConnection::lProceduresHdl, headersOf<procedureColumns>, procedurePictures,
     PopupMenu::devObjFolderMnu, PopupMenu::devObjMnu, true,
     showIfSelected<fetchProcedure, addProcedureRow>,
     showIfSelected<fetchProcedure, updateProcedureRow>,
     fill<RZProcedureEnumBegin, nextProcedure, RZProcedureEnumEnd, addProcedureRow>},

    {9, 427, &trzConnection::lFunctionsHdl, headersOf<functionColumns>, functionPictures,
     PopupMenu::devObjFolderMnu, PopupMenu::devObjMnu, false,
     showIfSelected<fetchFunction, addFunctionRow>,
     showIfSelected<fetchFunction, updateFunctionRow>,
     fill<RZFunctionEnumBegin, nextFunction, RZFunctionEnumEnd, addFunctionRow>},

    {11, 428, &trzConnection::lTriggersHdl, headersOf<triggerColumns>, triggerPictures,
     PopupMenu::dbObjFolderMnu, PopupMenu::trigObjMnu, false,
     showIfSelected<fetchTrigger, addTriggerRow>,
     nullptr,
     fill<RZTriggerEnumBegin, nextTrigger, RZTriggerEnumEnd, addTriggerRow>},

    {13, 429, &trzConnection::lTablesHdl, headersOf<tableColumns>, tablePictures,
     PopupMenu::dbObjFolderMnu, PopupMenu::dbTableObjMnu, false,
     showIfSelected<fetchTable, addTableRow>,
     nullptr,
     fill<RZTableEnumBegin, nextTable, RZTableEnumEnd, addTableRow>},

    {15, 430, &trzConnection::lViewsHdl, headersOf<viewColumns>, viewPictures,
     PopupMenu::dbObjFolderMnu, PopupMenu::dbTableObjMnu, false,
     showIfSelected<fetchView, addViewRow>,
     nullptr,
     fill<RZViewEnumBegin, nextView, RZViewEnumEnd, addViewRow>},
};
// clang-format on

} // namespace

std::span<const FolderKindRow> folderKindRows() noexcept
{
    return rows;
}

const FolderKindRow* folderKindRow(int32_t folderKind) noexcept
{
    for (const FolderKindRow& row : rows)
        if (row.folderKind == folderKind)
            return &row;
    return nullptr;
}

const FolderKindRow* folderKindRowOfObjects(int32_t objectKind) noexcept
{
    for (const FolderKindRow& row : rows)
        if (row.objectKind() == objectKind)
            return &row;
    return nullptr;
}

} // namespace velk
