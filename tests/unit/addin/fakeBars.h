#pragma once

#include "fakeIde.h"
#include "platform/unique_any.h"

#include <map>
#include <string>
#include <vector>

namespace velk::test {

// The controls of a bar or menu: new ones can be added, all but one that the test may name.
struct FakeControls {
    com_ptr<FakeObject> face = fakeObject(L"Controls");
    std::vector<com_ptr<FakeObject>> made;
    int refused = 0; // the control of this number, from 1 on, cannot be added
    int asked = 0;

    std::vector<std::wstring> captions() const
    {
        std::vector<std::wstring> all;
        for (const com_ptr<FakeObject>& control : made)
            all.push_back(control->read(L"Caption").asText());
        return all;
    }
};

// The pixels of a bitmap from the top left on; empty for what is none.
inline std::vector<DWORD> pixelsOf(HBITMAP bitmap)
{
    BITMAP size{};
    if (!GetObjectW(bitmap, sizeof size, &size))
        return {};
    BITMAPINFO wanted{};
    wanted.bmiHeader = {sizeof wanted.bmiHeader, size.bmWidth, -size.bmHeight, 1, 32, BI_RGB, 0, 0, 0, 0, 0};
    std::vector<DWORD> pixels(static_cast<size_t>(size.bmWidth * size.bmHeight));
    const HDC screen = GetDC(nullptr);
    GetDIBits(screen, bitmap, 0, static_cast<UINT>(size.bmHeight), pixels.data(), &wanted, DIB_RGB_COLORS);
    ReleaseDC(nullptr, screen);
    return pixels;
}

// Gives an IDE command bars that take a toolbar, and a menu bar with the menu that the add-in extends. What stands on
// the clipboard when a control is told to paste its face is that control's face.
struct FakeBars {
    com_ptr<FakeObject> toolbar = fakeObject(L"Toolbar");
    FakeControls buttons;                             // of the toolbar
    FakeControls menu;                                // in the add-in's menu
    FakeControls views;                               // in the popups of that menu
    std::map<std::wstring, std::vector<DWORD>> faces; // by caption
    int refusedFaces = 0;                             // so many times pasting fails, as while others hold the clipboard

    FakeBars(FakeIde& ide, const std::wstring& menuCaption)
    {
        for (FakeControls* controls : {&buttons, &menu, &views})
            controls->face->function(L"Add", [this, controls](const auto&) { return asVariant(add(*controls)); });
        toolbar->value(L"Controls", asVariant(buttons.face))
            ->value(L"Visible", variant(false))
            ->function(L"Delete", [](const auto&) { return variant(); });
        menuPopup->value(L"Caption", variant(std::wstring_view(menuCaption)))->value(L"Controls", asVariant(menu.face));
        menuBarControls->value(L"Count", variant(int32_t{1}))->function(L"Item", [this](const auto&) {
            return asVariant(menuPopup);
        });
        menuBar->value(L"Controls", asVariant(menuBarControls));
        ide.bars->value(L"ActiveMenuBar", asVariant(menuBar))->function(L"Add", [this](const auto&) {
            return asVariant(toolbar);
        });
    }
    FakeBars(const FakeBars&) = delete;
    FakeBars& operator=(const FakeBars&) = delete;

    // Makes a control keep its face here.
    void watchFace(FakeObject* control)
    {
        control->function(L"PasteFace", [this, control](const auto&) {
            if (refusedFaces > 0) {
                --refusedFaces;
                throw Error(errorPermissionDenied);
            }
            if (OpenClipboard(nullptr)) {
                faces[control->read(L"Caption").asText()] = pixelsOf(static_cast<HBITMAP>(GetClipboardData(CF_BITMAP)));
                CloseClipboard();
            }
            return variant();
        });
    }

private:
    com_ptr<FakeObject> add(FakeControls& controls)
    {
        if (++controls.asked == controls.refused)
            throw Error(errorPermissionDenied);
        const com_ptr<FakeObject> control = fakeObject(L"Control");
        control->value(L"Caption", variant(L""))
            ->value(L"OnAction", variant(L""))
            ->value(L"BeginGroup", variant(false))
            ->value(L"Controls", asVariant(views.face))
            ->function(L"Delete", [](const auto&) { return variant(); });
        watchFace(control.get());
        controls.made.push_back(control);
        return control;
    }

    com_ptr<FakeObject> menuBar = fakeObject(L"MenuBar");
    com_ptr<FakeObject> menuBarControls = fakeObject(L"MenuBarControls");
    com_ptr<FakeObject> menuPopup = fakeObject(L"Menu");
};

} // namespace velk::test
