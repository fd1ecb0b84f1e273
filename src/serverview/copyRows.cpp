#include "serverview/copyRows.h"

#include "serverview/rowTexts.h"
#include "ui/messageBox.h"
#include "ui/ownTexts.h"
#include "window/clipboard_text.h"
#include "window/list_headers.h"

namespace velk {
namespace {

// What the list shows in a cell, however its columns are numbered.
std::wstring shownCell(DetailsList& list, int row, int column)
{
    std::wstring text(256, L'\0');
    for (;; text.resize(2 * text.size())) {
        text[0] = L'\0';
        NMLVDISPINFOW question{};
        question.item.mask = LVIF_TEXT;
        question.item.iItem = row;
        question.item.iSubItem = column;
        question.item.pszText = text.data();
        question.item.cchTextMax = static_cast<int>(text.size());
        list.onGetDispInfo(question);
        if (const size_t length = wcslen(text.c_str()); length + 1 < text.size()) {
            text.resize(length);
            return text;
        }
    }
}

void copy(const ViewParts& parts, const std::wstring& text)
{
    if (!putOnClipboard(parts.list().hwnd(), text) && !parts.life.isOver())
        showMessage(ownTexts::clipboardIsHeld);
}

} // namespace

bool copySelectedNames(const ViewParts& parts)
{
    RowTexts names;
    const std::vector<const Row*> rows = parts.serverDetailsView->selectedRows();
    for (const Row* row : rows) {
        const std::wstring name(row->name());
        names.addLine({&name, 1});
    }
    if (!rows.empty())
        copy(parts, names.text());
    return !rows.empty();
}

bool copySelectedTable(const ViewParts& parts)
{
    DetailsList& list = *parts.serverDetailsView;
    const std::vector<int> rows = list.selection().rows();
    const std::vector<int> columns = columnsFromLeft(list.view());
    if (rows.empty() || columns.empty())
        return false;
    RowTexts table;
    std::vector<std::wstring> cells;
    for (const int column : columns)
        cells.push_back(headerOf(list.view(), column));
    table.addLine(cells);
    for (const int row : rows) {
        cells.clear();
        for (const int column : columns)
            cells.push_back(shownCell(list, row, column));
        table.addLine(cells);
    }
    copy(parts, table.text());
    return true;
}

} // namespace velk
