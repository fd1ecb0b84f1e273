// Tested in tests/forms/serverview/FolderReadingTest.cpp.
#include "serverview/ListFoot.h"

#include "window/line_height.h"

namespace velk {

void ListFoot::say(const std::wstring& text)
{
    if (text.empty() && !m_isShown)
        return;
    if (!m_line)
        m_line = std::make_unique<Control>(L"STATIC", GetParent(m_list.hwnd()),
                                           WS_CLIPSIBLINGS | SS_NOPREFIX | SS_CENTERIMAGE | SS_ENDELLIPSIS);
    m_isShown = !text.empty();
    m_line->setName(text);
    followFont();
    ShowWindow(m_line->hwnd(), m_isShown ? SW_SHOWNA : SW_HIDE);
}

void ListFoot::followFont() noexcept
{
    if (!m_line)
        return;
    const auto font = reinterpret_cast<HFONT>(m_list.send(WM_GETFONT));
    m_line->setFont(font);
    constexpr int height = 11; // a line, and some room
    m_splitter.setFoot(m_isShown ? m_line->hwnd() : nullptr, verticalUnits(height, lineHeightOf(font)));
}

} // namespace velk
