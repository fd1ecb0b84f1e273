#pragma once

#include "base/unique_any.h"
#include "fakeIde.h"

#include <algorithm>
#include <functional>
#include <map>
#include <string>
#include <vector>

namespace velk::test {

// The controls of a bar or menu: new ones can be added, all but one that the test may name, and deleted.
struct FakeControls {
    FakeObject::Journal journal; // how they are added and deleted
    com_ptr<FakeObject> face = fakeObject(L"Controls", &journal);
    std::vector<com_ptr<FakeObject>> made;
    int refused = 0; // the control of this number, from 1 on, cannot be added
    int asked = 0;

    FakeControls()
    {
        face->function(L"Count", [this](const auto&) { return variant(static_cast<int32_t>(made.size())); })
            ->function(L"Item", [this](const auto& arguments) {
                return asVariant(made.at(static_cast<size_t>(arguments.at(0).asLong()) - 1));
            });
    }
    FakeControls(const FakeControls&) = delete;
    FakeControls& operator=(const FakeControls&) = delete;

    std::vector<std::wstring> captions() const
    {
        std::vector<std::wstring> all;
        for (const com_ptr<FakeObject>& control : made)
            all.push_back(control->read(L"Caption").asText());
        return all;
    }
    void erase(const FakeObject* control)
    {
        std::erase_if(made, [control](const auto& one) { return one.get() == control; });
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
// the clipboard when a control is told to paste its face is that control's face. Each control has events of its own.
struct FakeBars {
    FakeControls buttons;                                                   // of the toolbar
    com_ptr<FakeObject> toolbar = fakeObject(L"Toolbar", &buttons.journal); // the one that can be added
    FakeControls menus;                                // of the menu bar; the add-in's is the first
    FakeControls menu;                                 // in the add-in's menu
    FakeControls views;                                // in the popups that are added
    std::map<std::wstring, com_ptr<FakeObject>> named; // the bars that can be found by name
    std::vector<std::wstring> deleted;                 // their names
    std::map<std::wstring, std::vector<DWORD>> faces;  // by caption
    const wchar_t* controlsFail = nullptr;             // the member that controls made from now on refuse
    bool hasPictures = false;         // controls that are made from now on take pictures beside pasting
    std::function<void()> whenNamed;  // happens inside each assignment of a caption
    std::function<void()> whenPasted; // and each pasting
    int refusedFaces = 0;             // so many times pasting fails, as while others hold the clipboard

    FakeBars(FakeIde& ide, const std::wstring& menuCaption)
    {
        for (FakeControls* controls : {&buttons, &menus, &menu, &views})
            controls->face->function(L"Add", [this, controls](const auto&) { return asVariant(add(*controls)); });
        toolbar->value(L"Controls", asVariant(buttons.face))
            ->value(L"Visible", variant(false))
            ->value(L"BuiltIn", variant(false))
            ->function(L"Delete", [this](const auto&) { return erase(toolbar.get()); });
        add(menus)
            ->value(L"Caption", variant(std::wstring_view(menuCaption)))
            ->value(L"Controls", asVariant(menu.face));
        menuBar->value(L"Controls", asVariant(menus.face));
        ide.bars->value(L"ActiveMenuBar", asVariant(menuBar))
            ->function(L"Item", [this, bar = ide.bar](const auto& arguments) { return item(arguments.at(0), bar); })
            ->function(L"Add", [this](const auto& arguments) { return addBar(arguments.at(0).asText()); });
        ide.events->function(L"CommandBarEvents", [this](const auto& arguments) {
            return variant(static_cast<IDispatch*>(eventsOf(arguments.at(0).asObject().get()).get()));
        });
    }
    FakeBars(const FakeBars&) = delete;
    FakeBars& operator=(const FakeBars&) = delete;

    // What the IDE does when the user clicks a control.
    void click(const com_ptr<FakeObject>& control, bool isHandled = false)
    {
        eventsOf(control.get())->click(control.get(), isHandled);
    }
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
            if (whenPasted)
                whenPasted();
            return variant();
        });
    }
    // A bar that is there already, with a control for each tag.
    com_ptr<FakeObject> putBar(const std::wstring& name, FakeControls& controls,
                               const std::vector<const wchar_t*>& tags)
    {
        for (const wchar_t* tag : tags)
            add(controls)->value(L"Tag", variant(tag));
        const com_ptr<FakeObject> bar = fakeObject(L"Bar");
        bar->value(L"Controls", asVariant(controls.face))
            ->value(L"Visible", variant(false))
            ->value(L"BuiltIn", variant(false))
            ->function(L"Delete", [this, made = bar.get()](const auto&) { return erase(made); });
        controls.face->function(L"Add", [this, &controls](const auto&) { return asVariant(add(controls)); });
        return named[name] = bar;
    }

private:
    com_ptr<FakeObject> add(FakeControls& controls)
    {
        if (++controls.asked == controls.refused)
            throw Error(errorPermissionDenied);
        const com_ptr<FakeObject> control = fakeObject(L"Control", &controls.journal);
        control->whenAssigned(L"Caption", [this] {
            if (whenNamed)
                whenNamed();
        });
        control->value(L"Caption", variant(L""))
            ->value(L"OnAction", variant(L""))
            ->value(L"Tag", variant(L""))
            ->value(L"BeginGroup", variant(false))
            ->value(L"Controls", asVariant(views.face))
            ->function(L"Delete", [&controls, made = control.get()](const auto&) {
                controls.erase(made);
                return variant();
            });
        watchFace(control.get());
        if (controlsFail)
            control->failing(controlsFail, Error(errorPermissionDenied));
        if (hasPictures)
            control->value(L"Picture", variant())->value(L"Mask", variant());
        controls.made.push_back(control);
        return control;
    }
    variant item(const variant& index, const com_ptr<FakeObject>& numbered) const
    {
        if (index.type() != VT_BSTR)
            return asVariant(numbered);
        const auto found = named.find(index.asText());
        if (found == named.end())
            throw Error(errorInvalidCall);
        return asVariant(found->second);
    }
    variant addBar(const std::wstring& name)
    {
        if (!named.try_emplace(name, toolbar).second)
            throw Error(errorInvalidCall);
        return asVariant(toolbar);
    }
    variant erase(const FakeObject* bar)
    {
        const auto found =
            std::find_if(named.begin(), named.end(), [bar](const auto& row) { return row.second.get() == bar; });
        deleted.push_back(found->first);
        named.erase(found);
        return variant();
    }
    com_ptr<FakeEvents> eventsOf(IDispatch* control)
    {
        com_ptr<FakeEvents>& events = m_events[control];
        if (!events)
            events = makeObject<FakeEvents>();
        return events;
    }

    com_ptr<FakeObject> menuBar = fakeObject(L"MenuBar");
    std::map<IDispatch*, com_ptr<FakeEvents>> m_events;
};

} // namespace velk::test
