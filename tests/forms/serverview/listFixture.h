#pragma once

#include "serverview/folderKinds.h"
#include "support/outOfMemory.h"
#include "ui/ownTexts.h"
#include "viewFixture.h"
#include "window/grey_text.h"

namespace velk::test {

// The shown server view with a project, and what its list paints.
class ListFixture : public ViewFixture {
protected:
    using Pixels = std::vector<COLORREF>;

    ListFixture()
    {
        ShowWindow(host, SW_SHOW);
        addProject();
        backend.folders[24] = {};
    }
    // The contents of the views folder arrive.
    void fillViews() { folderKindRow(15)->fill(*folderKindRow(15), session, 24); }
    void giveViews(int32_t count)
    {
        for (int32_t handle = 300; handle < 300 + count; ++handle) {
            backend.views[handle] = {.lHdl = handle, .strName = L"view" + std::to_wstring(handle)};
            backend.folders[24].push_back(handle);
        }
    }
    // What the list paints below its header, and what a text looks like there.
    Pixels painted()
    {
        return pixels([this](HDC dc) { list().view().send(WM_PRINTCLIENT, reinterpret_cast<WPARAM>(dc), PRF_CLIENT); });
    }
    Pixels picture(const std::wstring& text)
    {
        return pixels([&](HDC dc) { drawGreyText(dc, list().view().hwnd(), area(), text); });
    }
    // What the list shows at the moment, on the screen.
    Pixels onScreen()
    {
        return pixels([this](HDC dc) {
            const RECT place = area();
            const HDC screen = GetDC(list().view().hwnd());
            BitBlt(dc, 0, place.top, place.right, place.bottom - place.top, screen, 0, place.top, SRCCOPY);
            ReleaseDC(list().view().hwnd(), screen);
        });
    }
    bool isToBePainted() { return GetUpdateRect(list().view().hwnd(), nullptr, FALSE) != 0; }
    void paint() { UpdateWindow(list().view().hwnd()); }

    // The same with no memory left, and whether that was felt.
    std::pair<Pixels, bool> paintedWithoutMemory()
    {
        bool wasFelt = false;
        const Pixels seen = pixels([&](HDC dc) {
            const OutOfMemory none;
            list().view().send(WM_PRINTCLIENT, reinterpret_cast<WPARAM>(dc), PRF_CLIENT);
            wasFelt = none.wasFelt();
        });
        return {seen, wasFelt};
    }

    Session session;

private:
    RECT area()
    {
        const auto header = reinterpret_cast<HWND>(list().view().send(LVM_GETHEADER));
        RECT area{};
        RECT above{};
        GetClientRect(list().view().hwnd(), &area);
        if (IsWindowVisible(header) && GetClientRect(header, &above))
            area.top = above.bottom;
        return area;
    }
    template <class Draw>
    Pixels pixels(const Draw& draw)
    {
        const RECT place = area();
        BITMAPINFO format{};
        format.bmiHeader = {sizeof format.bmiHeader, place.right, -place.bottom, 1, 32, BI_RGB, 0, 0, 0, 0, 0};
        void* bits = nullptr;
        const unique_memory_dc dc(CreateCompatibleDC(nullptr));
        const unique_bitmap bitmap(CreateDIBSection(dc.get(), &format, DIB_RGB_COLORS, &bits, nullptr, 0));
        const HGDIOBJ before = SelectObject(dc.get(), bitmap.get());
        const RECT whole{0, 0, place.right, place.bottom};
        FillRect(dc.get(), &whole, GetSysColorBrush(COLOR_WINDOW));
        draw(dc.get());
        GdiFlush();
        const auto* first = static_cast<const COLORREF*>(bits);
        Pixels seen(first + place.top * place.right, first + place.bottom * place.right);
        for (COLORREF& pixel : seen)
            pixel &= 0xFFFFFF;
        SelectObject(dc.get(), before);
        return seen;
    }
};

} // namespace velk::test
