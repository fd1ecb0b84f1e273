#include "serverview/rowTexts.h"

namespace velk {

void RowTexts::addLine(std::span<const std::wstring> cells)
{
    if (m_hasLine)
        m_text += L"\r\n";
    m_hasLine = true;
    for (size_t column = 0; column < cells.size(); ++column) {
        if (column > 0)
            m_text += L'\t';
        addCell(cells[column]);
    }
}

void RowTexts::addCell(std::wstring_view cell)
{
    for (size_t place = 0; place < cell.size(); ++place) {
        const bool isPair = cell[place] == L'\r' && place + 1 < cell.size() && cell[place + 1] == L'\n';
        if (isPair)
            continue; // one line break, one blank
        const bool breaks = cell[place] == L'\t' || cell[place] == L'\r' || cell[place] == L'\n';
        m_text += breaks ? L' ' : cell[place];
    }
}

} // namespace velk
