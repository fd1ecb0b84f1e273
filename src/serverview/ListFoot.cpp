// Tested in tests/forms/serverview/FolderReadingTest.cpp.
#include "serverview/ListFoot.h"

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
    m_line->setFont(reinterpret_cast<HFONT>(m_list.send(WM_GETFONT)));
    constexpr int unitsOfALine = 6; // half as much again as its characters are wide, and some room
    m_splitter.setFoot(m_isShown ? m_line->hwnd() : nullptr, m_list.dialogUnits(2 * unitsOfALine));
}

} // namespace velk
