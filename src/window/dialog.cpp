#include "window/dialog.h"

#include "base/boundary.h"
#include "base/module.h"
#include "base/never_destroyed.h"
#include "window/dialog_fit.h"
#include "window/dialog_template.h"

#include <algorithm>

namespace velk {
namespace {

std::vector<Dialog*>& shownDialogs()
{
    static never_destroyed<std::vector<Dialog*>> shown;
    return shown.get();
}

uint32_t leavings = 0; // of the add-in's

// The control keeps the memory of a longer text for a shorter one, and what was deleted last to bring it back. Both are
// written over before they are given up; what stands there first, while it needs no more room than it has.
void wipe(HWND field) noexcept
{
    static constexpr int usual = 255; // characters; more than anybody types
    swallow(L"Dialog.wipe", L"the field stays as it is", [field] {
        for (const int length : {GetWindowTextLengthW(field), usual})
            SetWindowTextW(field, std::wstring(static_cast<size_t>(length), L'*').c_str());
        SendMessageW(field, EM_SETSEL, 0, -1);
        SendMessageW(field, EM_REPLACESEL, TRUE, reinterpret_cast<LPARAM>(L""));
    });
}

} // namespace

Dialog::~Dialog()
{
    unload();
}

void Dialog::load(HWND owner, const DialogLayout& layout, const DialogFont& font)
{
    if (m_hwnd)
        return;
    m_owner = owner;
    m_layout = layout;
    m_leavings = leavings;
    const std::vector<WORD> bytes = dialogTemplate(layout, font);
    auto wait = std::make_shared<Wait>(); // before the window: a form has both or neither
    m_hwnd = CreateDialogIndirectParamW(module::instance(), reinterpret_cast<const DLGTEMPLATE*>(bytes.data()), owner,
                                        &Dialog::procedure, reinterpret_cast<LPARAM>(this));
    throwLastErrorUnless(m_hwnd != nullptr);
    m_wait = std::move(wait);
}

void Dialog::unload() noexcept
{
    if (!m_hwnd)
        return;
    hide();
    m_wait->isGone = true;
    m_wait.reset();
    const HWND old = std::exchange(m_hwnd, nullptr);
    SetWindowLongPtrW(old, DWLP_USER, 0);
    wipePasswords(old);
    DestroyWindow(old);
}

void Dialog::wipePasswords(HWND form) const noexcept
{
    for (const DialogRow& row : m_layout.rows)
        if (row.kind == DialogControl::password)
            wipe(GetDlgItem(form, row.id));
}

void Dialog::fit() noexcept
{
    if (m_hwnd)
        swallow(L"Dialog.fit", L"the form keeps the width it has", [this] { fitToTexts(m_hwnd, m_layout); });
}

void Dialog::showModal()
{
    const module::keep_loaded untilAnswered;
    const std::shared_ptr<Wait> wait = m_wait; // outlives the form, whatever happens in the loop
    if (!wait || wait->isShown || m_leavings != leavings)
        return;
    fit();
    placeOnOwner();
    m_blocked.reserve(shownDialogs().size() + 1);
    shownDialogs().push_back(this);
    wait->isShown = true; // from here on hide() puts everything back
    block(m_owner);
    for (const Dialog* shown : shownDialogs())
        if (shown != this)
            block(shown->hwnd());
    ShowWindow(m_hwnd, SW_SHOW);
    MSG message{};
    while (wait->isShown) {
        const BOOL received = GetMessageW(&message, nullptr, 0, 0);
        if (received == 0)
            PostQuitMessage(static_cast<int>(message.wParam)); // the host ends: its own loop has to hear of it
        if (received <= 0)
            break;
        if (wait->isGone || !IsDialogMessageW(m_hwnd, &message)) {
            TranslateMessage(&message);
            DispatchMessageW(&message);
        }
    }
    if (!wait->isGone)
        hide();
}

void Dialog::block(HWND window)
{
    if (!IsWindowEnabled(window))
        return; // by another one, which frees it again
    m_blocked.push_back(window);
    EnableWindow(window, FALSE);
}

void Dialog::hide() noexcept
{
    if (!m_hwnd || !std::exchange(m_wait->isShown, false))
        return;
    std::erase(shownDialogs(), this);
    if (shownDialogs().empty())
        std::vector<Dialog*>().swap(shownDialogs());
    // In this order, or the system makes another program's window the active one.
    for (const HWND window : std::exchange(m_blocked, {}))
        EnableWindow(window, TRUE);
    ShowWindow(m_hwnd, SW_HIDE);
    PostMessageW(m_owner, WM_NULL, 0, 0);
}

HWND Dialog::topmost() noexcept
{
    return shownDialogs().empty() ? nullptr : shownDialogs().back()->hwnd();
}

void Dialog::hideAll() noexcept
{
    ++leavings;
    while (!shownDialogs().empty())
        shownDialogs().back()->hide();
}

void Dialog::placeOnOwner() const noexcept
{
    RECT form{};
    GetWindowRect(m_hwnd, &form);
    const int width = form.right - form.left;
    const int height = form.bottom - form.top;
    MONITORINFO screen{};
    screen.cbSize = sizeof screen;
    GetMonitorInfoW(MonitorFromWindow(m_owner ? m_owner : m_hwnd, MONITOR_DEFAULTTONEAREST), &screen);
    RECT middle = screen.rcWork;
    if (m_owner && IsWindowVisible(m_owner) && !IsIconic(m_owner))
        GetWindowRect(m_owner, &middle);
    const auto within = [](int wanted, LONG low, LONG high) { return std::max<int>(low, std::min<int>(wanted, high)); };
    const int left = within((middle.left + middle.right - width) / 2, screen.rcWork.left, screen.rcWork.right - width);
    const int top = within((middle.top + middle.bottom - height) / 2, screen.rcWork.top, screen.rcWork.bottom - height);
    SetWindowPos(m_hwnd, nullptr, left, top, 0, 0, SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
}

std::wstring Dialog::textOf(HWND window)
{
    std::wstring text(static_cast<size_t>(GetWindowTextLengthW(window)) + 1, L'\0');
    text.resize(static_cast<size_t>(GetWindowTextW(window, text.data(), static_cast<int>(text.size()))));
    return text;
}

secret_text Dialog::secret(int id) const
{
    secret_text text(static_cast<size_t>(GetWindowTextLengthW(item(id))));
    GetWindowTextW(item(id), text.data(), static_cast<int>(text.capacity()) + 1);
    return text;
}

void Dialog::setIcon(int resource) const
{
    // Shared icons belong to the system.
    const HANDLE icon =
        LoadImageW(module::instance(), MAKEINTRESOURCEW(resource), IMAGE_ICON, 0, 0, LR_DEFAULTSIZE | LR_SHARED);
    throwLastErrorUnless(icon != nullptr);
    SendMessageW(m_hwnd, WM_SETICON, ICON_BIG, reinterpret_cast<LPARAM>(icon));
    SendMessageW(m_hwnd, WM_SETICON, ICON_SMALL, reinterpret_cast<LPARAM>(icon));
}

void Dialog::fillList(int id, const std::vector<std::wstring>& texts) const noexcept
{
    SendMessageW(item(id), CB_RESETCONTENT, 0, 0);
    for (const std::wstring& text : texts)
        SendMessageW(item(id), CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(text.c_str()));
}

void Dialog::selectInList(int id, int index) const noexcept
{
    SendMessageW(item(id), CB_SETCURSEL, static_cast<WPARAM>(index), 0);
}

int Dialog::listCount(int id) const noexcept
{
    return static_cast<int>(SendMessageW(item(id), CB_GETCOUNT, 0, 0));
}

std::wstring Dialog::selectedInList(int id) const
{
    const LRESULT index = SendMessageW(item(id), CB_GETCURSEL, 0, 0);
    const LRESULT length = SendMessageW(item(id), CB_GETLBTEXTLEN, static_cast<WPARAM>(index), 0);
    if (index == CB_ERR || length == CB_ERR)
        return {};
    std::wstring text(static_cast<size_t>(length) + 1, L'\0');
    SendMessageW(item(id), CB_GETLBTEXT, static_cast<WPARAM>(index), reinterpret_cast<LPARAM>(text.data()));
    text.resize(static_cast<size_t>(length));
    return text;
}

INT_PTR CALLBACK Dialog::procedure(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam) noexcept
{
    if (message == WM_INITDIALOG) {
        SetWindowLongPtrW(hwnd, DWLP_USER, lParam);
        return TRUE; // the focus goes to the first control
    }
    auto* form = reinterpret_cast<Dialog*>(GetWindowLongPtrW(hwnd, DWLP_USER));
    if (!form)
        return FALSE;
    const module::keep_loaded untilAnswered;
    if (message == WM_CLOSE) {
        SendMessageW(hwnd, WM_COMMAND, IDCANCEL, 0);
        return TRUE;
    }
    if (message == WM_DESTROY) {
        // The owner takes the window with it.
        SetWindowLongPtrW(hwnd, DWLP_USER, 0);
        form->wipePasswords(hwnd);
        std::erase(shownDialogs(), form);
        for (const HWND window : std::exchange(form->m_blocked, {}))
            EnableWindow(window, TRUE);
        form->m_hwnd = nullptr;
        form->m_wait->isShown = false;
        form->m_wait->isGone = true;
        form->m_wait.reset();
        return FALSE;
    }
    if (message != WM_COMMAND)
        return FALSE;
    swallow(L"dialog procedure", L"the form stays as it is", [&] { form->onCommand(LOWORD(wParam), HIWORD(wParam)); });
    return TRUE;
}

} // namespace velk
