#include "devkit/ide/automatedWindows.h"

#include <algorithm>
#include <cwchar>

namespace velk::devkit {
namespace {

using Arguments = const CallArguments&;

// clang-format off
constexpr int showCommands[] = {SW_SHOWNORMAL, SW_SHOWMINIMIZED, SW_SHOWMAXIMIZED}; // by WindowState
// clang-format on

int32_t stateOf(HWND window)
{
    return IsIconic(window) ? 1 : IsZoomed(window) ? 2 : 0;
}

template <LONG RECT::* edge>
variant edgeOf(AutomatedWindow& window, Arguments)
{
    RECT place{};
    GetWindowRect(window.hwnd(), &place);
    return variant(static_cast<int32_t>(place.*edge));
}

void putState(AutomatedWindow& window, Arguments arguments)
{
    const auto state = static_cast<size_t>(arguments.number(0, 0));
    if (state >= std::size(showCommands))
        throw Error(errorInvalidCall);
    ShowWindow(window.hwnd(), showCommands[state]);
}

variant setFocus(AutomatedWindow& window, Arguments)
{
    if (window.pane)
        window.pane->focus();
    else
        SetFocus(window.hwnd());
    return {};
}

} // namespace

HWND AutomatedWindow::hwnd() const
{
    if (!m_window)
        throw Error(errorObjectNotSet, L"the window is closed");
    return m_window;
}

bool AutomatedWindow::isShown() const
{
    return m_window && (GetWindowLongW(m_window, GWL_STYLE) & WS_VISIBLE) != 0;
}

void AutomatedWindow::show(bool visible) const
{
    ShowWindow(hwnd(), visible ? SW_SHOWNA : SW_HIDE);
    changed();
}

void AutomatedWindow::changed() const
{
    if (const HWND parent = m_window ? GetParent(m_window) : nullptr)
        PostMessageW(parent, WM_SIZE, 0, 0);
}

void AutomatedWindow::close()
{
    if (!pane)
        throw Error(errorUnsupportedAction, L"this window cannot be closed");
    const HWND parent = GetParent(hwnd());
    m_window = nullptr;
    pane->close();
    pane.reset();
    if (parent)
        PostMessageW(parent, WM_SIZE, 0, 0);
}

std::span<const Member<AutomatedWindow>> AutomatedWindow::members()
{
    using Self = AutomatedWindow;
    // clang-format off
    static const Member<Self> rows[] = {
        {L"Caption",     readField<&Self::caption>},
        {L"Type",        readField<&Self::type>},
        {L"Visible",     [](Self& self, Arguments) { self.hwnd(); return variant(self.isShown()); },
                         [](Self& self, Arguments arguments) { self.show(arguments.truth(0, false)); }},
        {L"WindowState", [](Self& self, Arguments) { return variant(stateOf(self.hwnd())); }, putState},
        {L"SetFocus",    setFocus},
        {L"Close",       [](Self& self, Arguments) { self.close(); return variant(); }},
        {L"HWnd",        [](Self& self, Arguments) { return variant(static_cast<int32_t>(HandleToLong(self.hwnd()))); }},
        {L"Left",        edgeOf<&RECT::left>},
        {L"Top",         edgeOf<&RECT::top>},
    };
    // clang-format on
    return rows;
}

std::span<const Member<AutomatedWindows>> AutomatedWindows::members()
{
    using Self = AutomatedWindows;
    // clang-format off
    static const Member<Self> rows[] = {
        {L"Item",             [](Self& self, Arguments arguments) { return self.item(arguments); }, nullptr, L"Index"},
        {L"Count",            [](Self& self, Arguments) { return variant(static_cast<int32_t>(self.open().size())); }},
        {L"_NewEnum",         [](Self& self, Arguments) { return enumerate(self.open()); }},
        {L"CreateToolWindow", [](Self& self, Arguments arguments) { return self.createToolWindow(arguments); }, nullptr,
                              L"AddInInst ProgID Caption GuidPosition DocObj"},
    };
    // clang-format on
    return rows;
}

com_ptr<AutomatedWindow> AutomatedWindows::add(int32_t type, HWND window, const std::wstring& caption)
{
    m_all.push_back(makeObject<AutomatedWindow>(type, window, caption));
    return m_all.back();
}

std::vector<com_ptr<AutomatedWindow>> AutomatedWindows::open() const
{
    std::vector<com_ptr<AutomatedWindow>> windows;
    std::copy_if(m_all.begin(), m_all.end(), std::back_inserter(windows),
                 [](const auto& window) { return window->isOpen(); });
    return windows;
}

variant AutomatedWindows::item(const CallArguments& arguments) const
{
    const auto windows = open();
    if (arguments.raw(0).vt == VT_BSTR) {
        for (const auto& window : windows)
            if (window->caption == arguments.text(0))
                return asVariant(window.get());
        throw Error(errorInvalidCall);
    }
    const auto place = static_cast<size_t>(arguments.number(0, 0));
    if (place < 1 || place > windows.size())
        throw Error(errorInvalidCall);
    return asVariant(windows[place - 1].get());
}

variant AutomatedWindows::createToolWindow(const CallArguments& arguments)
{
    AutomationObject* owner = ownObject(arguments.object(0).get());
    const VARIANT& document = arguments.raw(4);
    if (!owner || arguments.text(3).size() != 38) // a GUID in braces
        throw Error(errorInvalidCall);
    if (document.vt != (VT_DISPATCH | VT_BYREF) && document.vt != (VT_VARIANT | VT_BYREF))
        throw Error::fromResult(DISP_E_TYPEMISMATCH);
    const auto pane = std::make_shared<ToolPane>(workspace, arguments.text(2));
    pane->host(arguments.text(1));
    const com_ptr<AutomatedWindow> window = add(windowTool, pane->hwnd(), arguments.text(2));
    window->pane = pane;
    window->owner = owner;
    if (document.vt == (VT_DISPATCH | VT_BYREF))
        pane->document().copyTo(document.ppdispVal);
    else
        throwIfFailed(VariantCopy(document.pvarVal, const_cast<VARIANT*>(&variant(pane->document()).get())));
    if (layOut)
        layOut();
    return asVariant(window.get());
}

void AutomatedWindows::closeOwnedBy(const AutomationObject* owner)
{
    for (const auto& window : open())
        if (window->owner == owner)
            window->close();
}

} // namespace velk::devkit
