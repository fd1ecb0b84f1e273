// Tested in tests/forms/serverview/columnFitTest.cpp.
#include "serverview/columnCommands.h"

#include "window/list_headers.h"

namespace velk {
namespace {

// The columns are not to change while rows are shown, which happens with the first message to the control.
const RowModel& shownRows(DetailsList& list)
{
    list.view().send(WM_NULL);
    return list.rows();
}

} // namespace

void setColumnShown(DetailsList& list, size_t column, bool isShown)
{
    list.columns().setShown(column, isShown, shownRows(list));
}

void fitColumn(DetailsList& list, size_t column)
{
    list.columns().fitToContents(column, shownRows(list));
}

void fitAllColumns(DetailsList& list)
{
    for (size_t column = 0; column < list.columns().headers().size(); ++column)
        fitColumn(list, column);
}

void resetColumns(DetailsList& list)
{
    list.sortBy(std::nullopt);
    const RowModel& rows = shownRows(list);
    list.columns().reset();
    list.columns().fit(rows);
}

std::optional<LRESULT> answerHeader(DetailsList& list, UINT message, LPARAM lParam)
{
    const std::optional<NMHEADERW> notification = headerNotification(list.view(), message, lParam);
    if (!notification)
        return std::nullopt;
    switch (notification->hdr.code) {
    case HDN_DIVIDERDBLCLICKW:
    case HDN_DIVIDERDBLCLICKA: // the control would ask for all texts, or look at the rows on screen only
        if (notification->iItem >= 0 && notification->iItem < list.view().columnCount())
            fitColumn(list, list.columns().columnAt(notification->iItem));
        return 0;
    case NM_RCLICK: // not everywhere followed by the message that menus open on; answered, it nowhere is
        PostMessageW(GetParent(list.view().hwnd()), WM_CONTEXTMENU,
                     reinterpret_cast<WPARAM>(notification->hdr.hwndFrom), static_cast<LPARAM>(GetMessagePos()));
        return 1;
    default:
        list.columns().onHeaderNotify(*notification);
        return std::nullopt;
    }
}

} // namespace velk
