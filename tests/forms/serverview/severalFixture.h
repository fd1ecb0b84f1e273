#pragma once

#include "commandsFixture.h"

#include <array>
#include <vector>

namespace velk::test {

// The procedures' folder with rows p0, p1 and so on, handles from 100 on, of which several can be selected.
class SeveralFixture : public CommandsFixture {
protected:
    SeveralFixture() { ShowWindow(host, SW_SHOW); }
    ~SeveralFixture() override
    {
        hold(VK_CONTROL, false);
        hold(VK_SHIFT, false);
    }
    static void addRows(int count)
    {
        const ListFilling together;
        for (int number = 0; number < count; ++number)
            addRow(100 + number, L"p" + std::to_wstring(number));
    }
    static void addRow(int32_t handle, const std::wstring& name)
    {
        addProcedureRow({.lHdl = handle,
                         .strSchema = L"s",
                         .strName = name,
                         .strLanguage = L"SQL",
                         .strFileName = L"C:\\src\\" + name + L".sql"});
    }
    void showRows(int count)
    {
        tree().select(L"K20");
        addRows(count);
        SetFocus(list().view().hwnd());
        backend.calls.clear();
    }
    void select(const std::vector<int>& rows)
    {
        list().view().selectRow(-1);
        for (const int row : rows)
            ListSelection(list().view()).add(row);
        if (!rows.empty())
            list().view().focusRow(rows.front());
    }
    std::vector<int> selected() { return ListSelection(list().view()).rows(); }
    std::vector<std::wstring> selectedNames()
    {
        std::vector<std::wstring> names;
        for (const Row* row : list().selectedRows())
            names.emplace_back(row->name());
        return names;
    }
    void sortBy(int column)
    {
        NMLISTVIEW notification{};
        notification.hdr.hwndFrom = list().view().hwnd();
        notification.hdr.code = LVN_COLUMNCLICK;
        notification.iSubItem = column;
        SendMessageW(view.hwnd(), WM_NOTIFY, 0, reinterpret_cast<LPARAM>(&notification));
    }
    // A click with the keys of the mask held down, as the control gets it.
    void clickRow(int row, WPARAM keys = 0, UINT down = WM_LBUTTONDOWN)
    {
        const RECT place = list().view().placeOf(row);
        clickAt({place.left + 3, (place.top + place.bottom) / 2}, keys, down);
    }
    void clickAt(POINT place, WPARAM keys = 0, UINT down = WM_LBUTTONDOWN)
    {
        const HWND window = list().view().hwnd();
        hold(VK_CONTROL, (keys & MK_CONTROL) != 0);
        hold(VK_SHIFT, (keys & MK_SHIFT) != 0);
        const LPARAM at = MAKELPARAM(place.x, place.y);
        PostMessageW(window, down + 1, keys, at); // for a control that waits for it
        SendMessageW(window, down, keys | (down == WM_LBUTTONDOWN ? MK_LBUTTON : MK_RBUTTON), at);
        MSG message{};
        while (PeekMessageW(&message, window, down + 1, down + 1, PM_REMOVE))
            DispatchMessageW(&message);
        hold(VK_CONTROL, false);
        hold(VK_SHIFT, false);
    }
    // A key as the control gets it.
    void pressInList(WPARAM key, WPARAM keys = 0)
    {
        hold(VK_CONTROL, (keys & MK_CONTROL) != 0);
        hold(VK_SHIFT, (keys & MK_SHIFT) != 0);
        list().view().send(WM_KEYDOWN, key);
        list().view().send(WM_KEYUP, key);
        hold(VK_CONTROL, false);
        hold(VK_SHIFT, false);
    }
    // A key as the host hands it to the view first.
    bool press(WPARAM key, const std::vector<int>& modifiers = {})
    {
        for (const int modifier : modifiers)
            hold(modifier, true);
        MSG message{};
        message.hwnd = GetFocus();
        message.message = WM_KEYDOWN;
        message.wParam = key;
        const bool isUsed = view.translateKey(message);
        for (const int modifier : modifiers)
            hold(modifier, false);
        return isUsed;
    }
    static void hold(int key, bool isDown)
    {
        std::array<BYTE, 256> keys{};
        GetKeyboardState(keys.data());
        keys.at(static_cast<size_t>(key)) = isDown ? 0x80 : 0;
        SetKeyboardState(keys.data());
    }
};

} // namespace velk::test
