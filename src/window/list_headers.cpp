// Tested in tests/forms/serverview/copyRowsTest.cpp.
#include "window/list_headers.h"

namespace velk {

std::vector<int> columnsFromLeft(const ListView& list)
{
    std::vector<int> columns(static_cast<size_t>(list.columnCount()));
    if (!columns.empty() &&
        !list.send(LVM_GETCOLUMNORDERARRAY, columns.size(), reinterpret_cast<LPARAM>(columns.data())))
        columns.clear();
    return columns;
}

std::wstring headerOf(const ListView& list, int column)
{
    std::wstring text(1024, L'\0');
    LVCOLUMNW asked{};
    asked.mask = LVCF_TEXT;
    asked.pszText = text.data();
    asked.cchTextMax = static_cast<int>(text.size());
    list.send(LVM_GETCOLUMNW, static_cast<WPARAM>(column), reinterpret_cast<LPARAM>(&asked));
    return text.c_str();
}

} // namespace velk
