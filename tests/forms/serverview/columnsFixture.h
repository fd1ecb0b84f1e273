#pragma once

#include "support/shownControls.h"
#include "viewFixture.h"

#include "serverview/columnCommands.h"
#include "window/list_headers.h"
#include "window/menu.h"

namespace velk::test {

// A view whose folder of views (K24: name, schema, remark) is selected, with rows, used by the header's own messages.
class ColumnsFixture : public ViewFixture {
protected:
    ColumnsFixture()
    {
        addProject();
        tree().select(L"K24");
        addViews();
    }
    ~ColumnsFixture() override { setMenuPresenter({}); }

    void addViews()
    {
        const ListFilling together;
        addViewRow({.lHdl = 300, .strSchema = L"sales", .strName = L"open_orders", .strComment = L"not shipped"});
        addViewRow({.lHdl = 301, .strSchema = L"main", .strName = L"customers", .strComment = L"who buys"});
    }
    ListColumns& columns() { return list().columns(); }
    HWND headerWindow() { return headerOf(list().view()); }
    int width(int number) { return list().view().columnWidth(number); }

    // What a header says to the list that it belongs to.
    void headerSays(UINT code, int number, int newWidth = 0)
    {
        HDITEMW item{};
        item.mask = HDI_WIDTH;
        item.cxy = newWidth;
        NMHEADERW notification{};
        notification.hdr.hwndFrom = headerWindow();
        notification.hdr.code = code;
        notification.iItem = number;
        notification.pitem = &item;
        SendMessageW(list().view().hwnd(), WM_NOTIFY, 0, reinterpret_cast<LPARAM>(&notification));
    }
    // As a user drags a divider.
    void dragDivider(int number, int newWidth)
    {
        headerSays(HDN_BEGINTRACKW, number, width(number));
        headerSays(HDN_ENDTRACKW, number, newWidth);
        list().view().setColumnWidth(number, newWidth);
    }
    void dragColumns(const std::vector<int>& places)
    {
        headerSays(HDN_ENDDRAG, 0);
        setColumnsFromLeft(list().view(), places);
    }
    void doubleClickDivider(int number) { headerSays(HDN_DIVIDERDBLCLICKW, number); }
    void clickHeader(int number)
    {
        NMLISTVIEW notification{};
        notification.hdr.hwndFrom = list().view().hwnd();
        notification.hdr.code = LVN_COLUMNCLICK;
        notification.iSubItem = number;
        SendMessageW(view.hwnd(), WM_NOTIFY, 0, reinterpret_cast<LPARAM>(&notification));
    }
    POINT middleOf(int number)
    {
        RECT place{};
        SendMessageW(headerWindow(), HDM_GETITEMRECT, static_cast<WPARAM>(number), reinterpret_cast<LPARAM>(&place));
        POINT middle{(place.left + place.right) / 2, (place.top + place.bottom) / 2};
        ClientToScreen(headerWindow(), &middle);
        return middle;
    }
    // A right click on a column's header, and the choice of the line of that caption; empty for none.
    void chooseFromMenu(int number, const std::wstring& caption)
    {
        setMenuPresenter([this, caption](const std::vector<MenuLine>& lines, POINT) {
            menu = lines;
            for (const MenuLine& line : lines)
                if (line.caption == caption && line.enabled)
                    return line.id;
            return 0;
        });
        const POINT place = middleOf(number);
        SendMessageW(view.hwnd(), WM_CONTEXTMENU, reinterpret_cast<WPARAM>(headerWindow()),
                     MAKELPARAM(place.x, place.y));
    }

    std::vector<MenuLine> menu;
};

} // namespace velk::test
