// Tested in tests/forms/window/cueBannerTest.cpp.
#include "window/cue_banner.h"

#include "base/module.h"

#include <bit>
#include <utility>

namespace velk {
namespace {

// Not by a message to the window: whoever watches the window's messages would watch this one.
bool isEmpty(WNDPROC own, HWND edit) noexcept
{
    return CallWindowProcW(own, edit, WM_GETTEXTLENGTH, 0, 0) == 0;
}

} // namespace

CueBanner::CueBanner(HWND edit, std::wstring text) : m_edit(edit), m_text(std::move(text))
{
    if (SendMessageW(edit, EM_SETCUEBANNER, TRUE, reinterpret_cast<LPARAM>(m_text.c_str())))
        return;
    SetWindowLongPtrW(edit, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
    m_procedure = std::bit_cast<WNDPROC>(
        SetWindowLongPtrW(edit, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&CueBanner::procedure)));
}

CueBanner::~CueBanner()
{
    end();
}

void CueBanner::end() noexcept
{
    const HWND edit = std::exchange(m_edit, nullptr);
    if (!edit || !m_procedure)
        return;
    SetWindowLongPtrW(edit, GWLP_USERDATA, 0);
    // Somebody else may have come between meanwhile, and calls the procedure here from his own.
    if (GetWindowLongPtrW(edit, GWLP_WNDPROC) == reinterpret_cast<LONG_PTR>(&CueBanner::procedure))
        SetWindowLongPtrW(edit, GWLP_WNDPROC, std::bit_cast<LONG_PTR>(m_procedure));
}

void CueBanner::paint(HDC given) const noexcept
{
    RECT area{};
    SendMessageW(m_edit, EM_GETRECT, 0, reinterpret_cast<LPARAM>(&area));
    const HDC dc = given ? given : GetDC(m_edit);
    const auto font = reinterpret_cast<HGDIOBJ>(SendMessageW(m_edit, WM_GETFONT, 0, 0));
    const HGDIOBJ before = SelectObject(dc, font ? font : GetStockObject(SYSTEM_FONT));
    const COLORREF colour = SetTextColor(dc, GetSysColor(COLOR_GRAYTEXT));
    const int background = SetBkMode(dc, TRANSPARENT);
    HideCaret(m_edit);
    DrawTextW(dc, m_text.c_str(), static_cast<int>(m_text.size()), &area, DT_SINGLELINE | DT_NOPREFIX);
    ShowCaret(m_edit);
    SetBkMode(dc, background);
    SetTextColor(dc, colour);
    SelectObject(dc, before);
    if (!given)
        ReleaseDC(m_edit, dc);
}

LRESULT CALLBACK CueBanner::procedure(HWND edit, UINT message, WPARAM wParam, LPARAM lParam) noexcept
{
    const module::keep_loaded untilAnswered;
    auto* const banner = reinterpret_cast<CueBanner*>(GetWindowLongPtrW(edit, GWLP_USERDATA));
    const WNDPROC own = banner ? banner->m_procedure : std::bit_cast<WNDPROC>(GetClassLongPtrW(edit, GCLP_WNDPROC));
    if (banner && message == WM_NCDESTROY)
        banner->end();
    const bool wasEmpty = isEmpty(own, edit);
    const LRESULT answer = CallWindowProcW(own, edit, message, wParam, lParam);
    // The answer may have ended the one or the other.
    const auto* const left = reinterpret_cast<const CueBanner*>(GetWindowLongPtrW(edit, GWLP_USERDATA));
    if (!left || left != banner)
        return answer;
    const bool isStillEmpty = isEmpty(own, edit);
    if (isStillEmpty != wasEmpty)
        InvalidateRect(edit, nullptr, TRUE); // an edit draws only what changed of its own text
    if (isStillEmpty && (message == WM_PAINT || message == WM_PRINTCLIENT))
        left->paint(reinterpret_cast<HDC>(wParam));
    return answer;
}

} // namespace velk
