#pragma once

#include "commandsFixture.h"
#include "ui/uiFont.h"

#include <product.h>

#include <algorithm>
#include <array>

namespace velk::test {

// A shown view with three procedures in its list, which has the focus, and the keys by which the filter strip is used.
class FilterStripFixture : public CommandsFixture {
protected:
    FilterStripFixture()
    {
        ShowWindow(host, SW_SHOW);
        tree().select(L"K20");
        addProcedures({L"raise", L"lower", L"order"});
        SetFocus(list().view().hwnd());
        backend.calls.clear();
    }
    ~FilterStripFixture() override
    {
        hold({});
        uiFont() = {};
    }
    void addProcedures(const std::vector<std::wstring>& names)
    {
        const ListFilling together;
        int32_t handle = 100;
        for (const std::wstring& name : names)
            addProcedureRow({.lHdl = handle++, .strSchema = L"sys", .strName = name, .strLanguage = L"SQL"});
    }
    static void hold(const std::vector<int>& modifiers)
    {
        std::array<BYTE, 256> keys{};
        for (const int modifier : modifiers)
            keys.at(static_cast<size_t>(modifier)) = 0x80;
        SetKeyboardState(keys.data());
    }
    // A key as the host hands it on; whether the view used it. What it led to is carried out.
    bool press(WPARAM key, const std::vector<int>& modifiers = {})
    {
        hold(modifiers);
        const bool isAlt = std::find(modifiers.begin(), modifiers.end(), VK_MENU) != modifiers.end();
        MSG message{};
        message.hwnd = GetFocus();
        message.message = isAlt ? WM_SYSKEYDOWN : WM_KEYDOWN;
        message.wParam = key;
        const bool isUsed = view.translateKey(message);
        while (PeekMessageW(&message, nullptr, WM_KEYFIRST, WM_KEYLAST, PM_REMOVE))
            DispatchMessageW(&message);
        hold({});
        return isUsed;
    }
    void type(const std::wstring& text)
    {
        for (const wchar_t character : text)
            SendMessageW(edit(), WM_CHAR, character, 0);
    }
    HWND strip() { return FindWindowExW(view.hwnd(), nullptr, VELK_OWN_NAME("filterStrip"), nullptr); }
    HWND edit() { return FindWindowExW(strip(), nullptr, L"EDIT", nullptr); }
    HWND label() { return FindWindowExW(strip(), nullptr, L"STATIC", nullptr); }
    HWND found() { return FindWindowExW(strip(), label(), L"STATIC", nullptr); }
    HWND button() { return FindWindowExW(strip(), nullptr, L"BUTTON", nullptr); }
    static std::wstring textOf(HWND window)
    {
        std::array<wchar_t, 100> text{};
        GetWindowTextW(window, text.data(), static_cast<int>(text.size()));
        return text.data();
    }
    bool isShown() { return strip() && IsWindowVisible(strip()); }
    // In the view; pixels.
    struct Place {
        LONG left, top, right, bottom;
        friend bool operator==(const Place&, const Place&) = default;
    };
    Place placeOf(HWND window)
    {
        RECT place{};
        GetWindowRect(window, &place);
        MapWindowPoints(nullptr, view.hwnd(), reinterpret_cast<POINT*>(&place), 2);
        return {place.left, place.top, place.right, place.bottom};
    }
    std::vector<std::wstring> names()
    {
        std::vector<std::wstring> shown;
        for (int row = 0; row < shownRows(); ++row)
            shown.push_back(cell(row, 0));
        return shown;
    }
    DWORD selection() { return static_cast<DWORD>(SendMessageW(edit(), EM_GETSEL, 0, 0)); }
    void openStrip() { press('F', {VK_CONTROL}); }
};

} // namespace velk::test
