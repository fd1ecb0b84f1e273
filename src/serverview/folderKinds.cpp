#include "serverview/folderKinds.h"

#include "backend/calls.h"
#include "backend/fetched.h"
#include "base/boundary.h"
#include "base/unique_any.h"
#include "serverview/FolderReading.h"
#include "serverview/objectColumns.h"
#include "serverview/publishedView.h"
#include "serverview/viewAPIs.h"
#include "ui/messageBox.h"
#include "ui/ownTexts.h"

namespace velk {
namespace {

template <class Record>
Record recordOf(int32_t (*get)(int32_t, Record&) noexcept);

template <auto fetch, auto show>
void showIfSelected(const FolderKindRow& folder, const Session& session, int32_t handle)
{
    KeptRecords::Taken<decltype(recordOf(fetch))> record(publishedView().records);
    fetchInto(record.get(), session, fetch, handle);
    if (selectedNodeKindIs(folder.folderKind))
        show(record.get());
}

// A Backend whose enumeration does not end must not hold the IDE for ever: a folder shows no more objects than anybody
// could look through, and what only comes again and again is the end.
class EnumerationLimit {
public:
    bool isReached() const noexcept { return m_objects > mostObjects || m_again > mostAgain; }
    void count(int32_t handle, bool wasThere) noexcept
    {
        m_again = wasThere || (m_objects > 0 && handle == m_last) ? m_again + 1 : 0;
        m_last = handle;
        ++m_objects;
    }

private:
    static constexpr int mostObjects = 1'000'000;
    static constexpr int mostAgain = 1'000;
    int m_objects = 0;
    int m_again = 0; // in a row
    int32_t m_last = 0;
};

bool isInTheList(int32_t handle)
{
    DetailsList* const list = publishedView().serverDetailsView;
    return list && list->rows().find(handle);
}

// False when the objects did not come to an end.
template <const auto& begin, auto next, const auto& end, auto add>
bool addAll(const Session& session, int32_t folderHandle)
{
    const ListFilling shownTogether;
    FolderReading reading(shownTogether);
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
    const auto isWanted = [&] { return !session.isOver() && !reading.isOver(); };
    decltype(recordOf(next)) record;
    EnumerationLimit limit;
    while (begun != 0 && isWanted() && !limit.isReached() && next(enumeration, record) != 0 && isWanted()) {
        const bool wasThere = isInTheList(record.lHdl);
        add(record);
        limit.count(record.lHdl, wasThere);
        reading.count();
    }
    if (begun != 0)
        reading.succeed();
    return !limit.isReached() || !isWanted();
}

template <const auto& begin, auto next, const auto& end, auto add>
void fill(const FolderKindRow&, const Session& session, int32_t folderHandle)
{
    if (!addAll<begin, next, end, add>(session, folderHandle) && !session.isOver())
        showMessage(ownTexts::endlessFolder);
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
