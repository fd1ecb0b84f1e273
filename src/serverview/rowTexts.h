#pragma once

#include <span>
#include <string>

namespace velk {

// Rows as a text for other programs: a line for each, its cells separated by tabs. Tabs and line breaks in a cell
// become blanks, so that lines and cells stay what they are. No line break follows the last line.
class RowTexts {
public:
    void addLine(std::span<const std::wstring> cells);
    const std::wstring& text() const noexcept { return m_text; }

private:
    void addCell(std::wstring_view cell);

    std::wstring m_text;
    bool m_hasLine = false;
};

} // namespace velk
