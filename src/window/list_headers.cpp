// Tested in tests/forms/serverview/copyRowsTest.cpp.
#include "window/list_headers.h"

#include <cstring>

namespace velk {

std::vector<int> columnsFromLeft(const ListView& list)
{
    std::vector<int> columns(static_cast<size_t>(list.columnCount()));
    if (!columns.empty() &&
        !list.send(LVM_GETCOLUMNORDERARRAY, columns.size(), reinterpret_cast<LPARAM>(columns.data())))
        columns.clear();
    return columns;
}

std::wstring headerOf(const ListView& list, int column)
{
    std::wstring text(1024, L'\0');
    LVCOLUMNW asked{};
    asked.mask = LVCF_TEXT;
    asked.pszText = text.data();
    asked.cchTextMax = static_cast<int>(text.size());
    list.send(LVM_GETCOLUMNW, static_cast<WPARAM>(column), reinterpret_cast<LPARAM>(&asked));
    return text.c_str();
}

int headerMarkWidth(const ListView& list, int column) noexcept
{
    HDITEMW item{};
    item.mask = HDI_FORMAT | HDI_BITMAP;
    SendMessageW(headerOf(list), HDM_GETITEMW, static_cast<WPARAM>(column), reinterpret_cast<LPARAM>(&item));
    BITMAP picture{};
    if (!(item.fmt & HDF_BITMAP) || !GetObjectW(item.hbm, sizeof picture, &picture))
        return 0;
    return picture.bmWidth + 2 * 3 * GetSystemMetrics(SM_CXEDGE);
}

void setColumnsFromLeft(const ListView& list, const std::vector<int>& columns)
{
    std::vector<int> order = columns;
    list.send(LVM_SETCOLUMNORDERARRAY, order.size(), reinterpret_cast<LPARAM>(order.data()));
}

int columnAt(const ListView& list, POINT place) noexcept
{
    HDHITTESTINFO test{};
    test.pt = place;
    const HWND header = headerOf(list);
    ScreenToClient(header, &test.pt);
    return static_cast<int>(SendMessageW(header, HDM_HITTEST, 0, reinterpret_cast<LPARAM>(&test)));
}

HWND headerOf(const ListView& list) noexcept
{
    return reinterpret_cast<HWND>(list.send(LVM_GETHEADER));
}

std::optional<NMHEADERW> headerNotification(const ListView& list, UINT message, LPARAM lParam) noexcept
{
    if (message != WM_NOTIFY)
        return std::nullopt;
    NMHEADERW notification{};
    std::memcpy(&notification.hdr, reinterpret_cast<const void*>(lParam), sizeof notification.hdr);
    if (notification.hdr.hwndFrom != headerOf(list))
        return std::nullopt;
    const bool isOfHeadersOnly = notification.hdr.code <= HDN_FIRST && notification.hdr.code >= HDN_LAST;
    if (isOfHeadersOnly) // others are shorter
        std::memcpy(&notification, reinterpret_cast<const void*>(lParam), sizeof notification);
    return notification;
}

} // namespace velk
