#pragma once

#include "screen.h"

#include <array>
#include <string>
#include <vector>

namespace velk::bench {

// What somebody would write who is in a hurry: the system's list, which keeps the same cells itself, of the size,
// columns, font and pictures of the server view's, beside it on the screen.
class PlainList {
public:
    static constexpr size_t columns = 9;

    PlainList(Screen& screen, int32_t most);
    PlainList(const PlainList&) = delete;
    PlainList& operator=(const PlainList&) = delete;
    ~PlainList();

    // Without drawing, the count given first; then painted.
    void fill(int32_t objects);
    void clear() { send(LVM_DELETEALLITEMS); }
    void paint() const { RedrawWindow(m_list, nullptr, nullptr, RDW_INVALIDATE | RDW_UPDATENOW); }

    // Orders by the texts of a column, or as the rows came.
    void orderBy(size_t column, bool isDescending);
    void orderAsFilled();

private:
    LRESULT send(UINT message, WPARAM wParam = 0, LPARAM lParam = 0) const
    {
        return SendMessageW(m_list, message, wParam, lParam);
    }
    const wchar_t* cell(int32_t object, size_t column) const;
    void copyLooks(HWND list) const;

    const QuickTool& m_tool;
    std::vector<std::array<wchar_t, 24>> m_names;
    std::array<std::wstring, QuickTool::textCount> m_texts;
    HWND m_host = nullptr;
    HWND m_list = nullptr;
};

} // namespace velk::bench
