#include "serverview/FilterStrip.h"

#include "base/boundary.h"
#include "base/grouped_number.h"
#include "ui/ownTexts.h"
#include "window/line_height.h"

#include <product.h>

#include <algorithm>
#include <utility>

namespace velk {
namespace {

constexpr wchar_t where[] = L"filter strip";
constexpr wchar_t closeSign[] = L"\u00d7";
constexpr WPARAM longestText = 1000;

// Dialog units: the heights of an edit and of the room around it, and the width that an edit keeps for as long as it
// can.
constexpr int editHeight = 12;
constexpr int margin = 2;
constexpr int leastEditWidth = 60;

std::wstring foundText(const std::wstring& found, const std::wstring& all)
{
    std::wstring text = ownTexts::filterFound;
    text.replace(text.find(L"%1"), 2, found);
    return text.replace(text.find(L"%2"), 2, all);
}

bool isHeld(int key) noexcept
{
    return GetKeyState(key) < 0;
}

// Keys by which a text is written, and those that an edit knows with Ctrl.
bool isEditKey(WPARAM key) noexcept
{
    constexpr WPARAM withControl[] = {L'A', L'C', L'V', L'X', L'Z', VK_BACK, VK_DELETE, VK_INSERT};
    const bool moves = key >= VK_PRIOR && key <= VK_DOWN;
    if (isHeld(VK_MENU))
        return isHeld(VK_CONTROL) && key != VK_CONTROL && key != VK_MENU; // AltGr: a character
    if (isHeld(VK_CONTROL))
        return moves || std::find(std::begin(withControl), std::end(withControl), key) != std::end(withControl);
    const bool isHosts = (key >= VK_F1 && key <= VK_F24) || key == VK_TAB || key == VK_RETURN || key == VK_ESCAPE;
    return !isHosts;
}

void place(const Control& control, int left, int top, int width, int height) noexcept
{
    SetWindowPos(control.hwnd(), nullptr, left, top, width, height, SWP_NOZORDER | SWP_NOACTIVATE);
}

// In the system's colours, whatever they are.
void drawButton(const DRAWITEMSTRUCT& asked) noexcept
{
    RECT area = asked.rcItem;
    const bool isPressed = (asked.itemState & ODS_SELECTED) != 0;
    DrawFrameControl(asked.hDC, &area, DFC_BUTTON, DFCS_BUTTONPUSH | (isPressed ? DFCS_PUSHED : 0));
    SetTextColor(asked.hDC, GetSysColor(COLOR_BTNTEXT));
    SetBkMode(asked.hDC, TRANSPARENT);
    DrawTextW(asked.hDC, closeSign, 1, &area, DT_SINGLELINE | DT_CENTER | DT_VCENTER | DT_NOPREFIX);
    InflateRect(&area, -2 * GetSystemMetrics(SM_CXBORDER), -2 * GetSystemMetrics(SM_CYBORDER));
    if (asked.itemState & ODS_FOCUS)
        DrawFocusRect(asked.hDC, &area);
}

} // namespace

FilterStrip::Parts::Parts(HWND strip)
    : label(L"STATIC", strip, SS_NOPREFIX), edit(L"EDIT", strip, WS_TABSTOP | ES_AUTOHSCROLL, WS_EX_CLIENTEDGE),
      cue(edit.hwnd(), ownTexts::filterCue),
      found(L"STATIC", strip, SS_RIGHT | SS_CENTERIMAGE | SS_NOPREFIX | SS_ENDELLIPSIS),
      button(L"BUTTON", strip, WS_TABSTOP | BS_OWNERDRAW), stops{edit.hwnd(), button.hwnd()}
{
    label.setName(ownTexts::filterCue);
    button.setName(ownTexts::filterClose);
    edit.send(EM_LIMITTEXT, longestText);
}

FilterStrip::FilterStrip(HWND owner, DetailsList& list, Splitter& splitter)
    : Window(VELK_OWN_NAME("filterStrip"), GetSysColorBrush(COLOR_BTNFACE)), m_owner(owner), m_list(list),
      m_splitter(splitter)
{
    m_list.filter().setListener([this] { tell(); });
}

FilterStrip::~FilterStrip()
{
    m_list.filter().setListener({});
    destroy();
}

bool FilterStrip::hasFocus() const noexcept
{
    const HWND focused = GetFocus();
    return isOpen() && focused && (focused == hwnd() || IsChild(hwnd(), focused));
}

std::span<const HWND> FilterStrip::stops() const noexcept
{
    return isOpen() ? std::span<const HWND>(m_parts->stops) : std::span<const HWND>();
}

void FilterStrip::makeParts()
{
    if (!hwnd())
        create({m_owner, WS_CHILD | WS_CLIPCHILDREN | WS_CLIPSIBLINGS, WS_EX_CONTROLPARENT, 0, 0, 0, 0, L""});
    if (!m_parts)
        m_parts.emplace(hwnd());
    // Between what stands before the list, and the list.
    SetWindowPos(hwnd(), GetWindow(m_list.view().hwnd(), GW_HWNDPREV), 0, 0, 0, 0,
                 SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
    setFont(reinterpret_cast<HFONT>(m_list.view().send(WM_GETFONT)));
}

void FilterStrip::setFont(HFONT font)
{
    if (!m_parts)
        return;
    for (const Control* part : {&m_parts->edit, &m_parts->found, &m_parts->button})
        part->setFont(font);
    m_lineHeight = lineHeightOf(font);
    if (isOpen())
        takeRoom();
}

void FilterStrip::takeRoom()
{
    m_splitter.setHead(hwnd(), units(editHeight + 2 * margin));
    layOut();
}

int FilterStrip::units(int vertical) const noexcept
{
    return verticalUnits(vertical, m_lineHeight);
}

void FilterStrip::layOut() const noexcept
{
    RECT inner{};
    GetClientRect(hwnd(), &inner);
    const int gap = units(margin);
    const int height = units(editHeight);
    const int room = std::max<int>(0, inner.right - 4 * gap - height);
    const int foundWidth = std::clamp(m_foundWidth, 0, std::max(0, room - m_list.view().dialogUnits(leastEditWidth)));
    place(m_parts->edit, gap, gap, room - foundWidth, height);
    place(m_parts->found, 2 * gap + room - foundWidth, gap, foundWidth, height);
    // In a strip that is too narrow for both the button is cut off, not drawn over.
    place(m_parts->button, std::max<int>(inner.right - gap - height, 2 * gap + room), gap, height, height);
}

void FilterStrip::show()
{
    if (isOpen())
        return;
    makeParts();
    m_isOpen = true;
    tell();
    takeRoom();
    ShowWindow(hwnd(), SW_SHOWNA);
    if (m_listener)
        m_listener();
}

void FilterStrip::open()
{
    show();
    SetFocus(m_parts->edit.hwnd());
    m_parts->edit.send(EM_SETSEL, 0, -1);
}

void FilterStrip::close()
{
    if (!isOpen())
        return;
    setText({});
    onText();
    if (!m_list.filter().text().empty())
        return; // no filter without the strip that tells it
    const bool hadFocus = hasFocus();
    m_isOpen = false;
    if (m_listener)
        m_listener();
    m_splitter.setHead(nullptr, 0);
    // Last: a tree that gets the focus may select a node, and the tool be called; this may be gone when it comes back.
    const HWND strip = hwnd();
    if (hadFocus)
        SetFocus(m_owner);
    ShowWindow(strip, SW_HIDE);
}

void FilterStrip::clearOrClose()
{
    if (text().empty())
        return close();
    setText({});
    onText();
}

std::wstring FilterStrip::text() const
{
    std::wstring text(static_cast<size_t>(GetWindowTextLengthW(m_parts->edit.hwnd())), L'\0');
    text.resize(
        static_cast<size_t>(GetWindowTextW(m_parts->edit.hwnd(), text.data(), static_cast<int>(text.size() + 1))));
    return text;
}

void FilterStrip::setText(const std::wstring& text)
{
    if (text != this->text())
        SetWindowTextW(m_parts->edit.hwnd(), text.c_str());
}

// The list obeys at once. When it cannot, the edit says what the list shows.
void FilterStrip::onText()
{
    if (m_isTelling || text() == m_list.filter().text())
        return;
    swallow(where, L"the list shows what it showed, and the strip tells that", [this] { m_list.setFilter(text()); });
    tell();
}

// The list has other rows or another filter.
void FilterStrip::tell()
{
    if (!isOpen() || m_isTelling)
        return;
    m_isTelling = true;
    const scope_exit told([this] { m_isTelling = false; });
    setText(m_list.filter().text());
    const RowModel& rows = m_list.rows();
    const std::wstring all = groupedNumber(rows.sizeUnfiltered());
    const std::wstring found =
        m_list.filter().text().empty() ? std::wstring() : foundText(groupedNumber(rows.size()), all);
    if (found != std::exchange(m_found, found))
        m_parts->found.setName(found);
    const int width = m_list.view().widthOf(foundText(all, all));
    if (width != std::exchange(m_foundWidth, width))
        layOut();
}

void FilterStrip::onCommand(WORD code, HWND sender)
{
    if (!m_parts)
        return; // they tell things while they are being made
    if (code == EN_SETFOCUS && sender == m_parts->edit.hwnd())
        m_hadFocusLast = true;
    if (code == EN_CHANGE && sender == m_parts->edit.hwnd())
        onText();
    if (code == BN_CLICKED && sender == m_parts->button.hwnd())
        close();
}

bool FilterStrip::useKey(const MSG& message)
{
    if (!hasFocus())
        return false;
    if (isButtonFocused() ? message.wParam != VK_SPACE : !isEditKey(message.wParam))
        return false;
    if (isHeld(VK_CONTROL) && !isHeld(VK_MENU)) {
        // The oldest edits do not know the first, and make a character of the second.
        if (message.wParam == L'A')
            m_parts->edit.send(EM_SETSEL, 0, -1);
        if (message.wParam == L'A' || message.wParam == VK_BACK)
            return true;
    }
    TranslateMessage(&message);
    DispatchMessageW(&message);
    return true;
}

LRESULT FilterStrip::handle(UINT message, WPARAM wParam, LPARAM lParam)
{
    switch (message) {
    case WM_COMMAND:
        onCommand(HIWORD(wParam), reinterpret_cast<HWND>(lParam));
        return 0;
    case WM_DRAWITEM:
        drawButton(*reinterpret_cast<const DRAWITEMSTRUCT*>(lParam));
        return TRUE;
    case WM_SIZE:
        if (m_parts)
            layOut();
        return 0;
    default:
        return handleDefault(message, wParam, lParam);
    }
}

} // namespace velk
