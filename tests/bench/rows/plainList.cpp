#include "plainList.h"

#include "base/text.h"

#include <algorithm>

namespace velk::bench {
namespace {

struct Ordering {
    const PlainList* list;
    const std::vector<std::array<wchar_t, 24>>* names;
    const wchar_t* shared; // the text that all rows have in the column; null for the names
    bool isDescending;
};

int CALLBACK compareTexts(LPARAM one, LPARAM other, LPARAM ordering) noexcept
{
    const auto& how = *reinterpret_cast<const Ordering*>(ordering);
    const auto text = [&how](LPARAM row) {
        return how.shared ? how.shared : (*how.names)[static_cast<size_t>(row)].data();
    };
    const int order = lstrcmpiW(text(one), text(other));
    return how.isDescending ? -order : order;
}

int CALLBACK compareNumbers(LPARAM one, LPARAM other, LPARAM) noexcept
{
    return one < other ? -1 : one > other ? 1 : 0;
}

// The place of a column's text in the record, in the columns' order; the numbers and flags have none.
constexpr std::array<size_t, PlainList::columns> textOfColumn = {1, 0, 3, 99, 4, 2, 5, 98, 6};

} // namespace

PlainList::PlainList(Screen& screen, int32_t most) : m_tool(screen.tool()), m_names(static_cast<size_t>(most))
{
    for (int32_t number = 0; number < most; ++number) {
        const std::string_view name = m_tool.text(QuickTool::firstObject + number, QuickTool::name);
        *std::copy(name.begin(), name.end(), m_names[static_cast<size_t>(number)].begin()) = L'\0';
    }
    for (size_t index = 0; index < m_texts.size(); ++index)
        if (index != QuickTool::name)
            m_texts[index] = toWide(m_tool.text(QuickTool::firstObject, index));
    RECT place{};
    GetClientRect(screen.list(), &place);
    m_host = CreateWindowExW(0, L"STATIC", L"", WS_POPUP | WS_VISIBLE, 0, 300, place.right + 10, place.bottom + 10,
                             nullptr, nullptr, nullptr, nullptr);
    m_list = CreateWindowExW(WS_EX_CLIENTEDGE, WC_LISTVIEWW, L"",
                             WS_CHILD | WS_VISIBLE | LVS_REPORT | LVS_SINGLESEL | LVS_SHAREIMAGELISTS, 0, 0,
                             place.right, place.bottom, m_host, nullptr, nullptr, nullptr);
    copyLooks(screen.list());
}

PlainList::~PlainList()
{
    DestroyWindow(m_host);
}

// The other list has its columns by then.
void PlainList::copyLooks(HWND list) const
{
    send(WM_SETFONT, static_cast<WPARAM>(SendMessageW(list, WM_GETFONT, 0, 0)));
    send(LVM_SETIMAGELIST, LVSIL_SMALL, SendMessageW(list, LVM_GETIMAGELIST, LVSIL_SMALL, 0));
    send(LVM_SETEXTENDEDLISTVIEWSTYLE, 0, SendMessageW(list, LVM_GETEXTENDEDLISTVIEWSTYLE, 0, 0));
    for (int index = 0; index < static_cast<int>(columns); ++index) {
        wchar_t header[] = L"column";
        LVCOLUMNW column{};
        column.mask = LVCF_TEXT | LVCF_WIDTH;
        column.cx = static_cast<int>(SendMessageW(list, LVM_GETCOLUMNWIDTH, static_cast<WPARAM>(index), 0));
        column.pszText = header;
        send(LVM_INSERTCOLUMNW, static_cast<WPARAM>(index), reinterpret_cast<LPARAM>(&column));
    }
}

const wchar_t* PlainList::cell(int32_t object, size_t column) const
{
    static constexpr const wchar_t* numbers[] = {L"0", L"1", L"2", L"3", L"4", L"5", L"6"};
    const size_t text = textOfColumn[column];
    if (text == QuickTool::name)
        return m_names[static_cast<size_t>(object)].data();
    if (text < m_texts.size())
        return m_texts[text].c_str();
    return column == 3 ? numbers[m_tool.resultSets(QuickTool::firstObject + object)] : L"False";
}

void PlainList::fill(int32_t objects)
{
    send(WM_SETREDRAW, FALSE);
    send(LVM_SETITEMCOUNT, static_cast<WPARAM>(objects));
    for (int32_t object = 0; object < objects; ++object) {
        LVITEMW item{};
        item.mask = LVIF_TEXT | LVIF_IMAGE | LVIF_PARAM;
        item.iItem = object;
        item.pszText = const_cast<wchar_t*>(cell(object, 0));
        item.lParam = object;
        send(LVM_INSERTITEMW, 0, reinterpret_cast<LPARAM>(&item));
        for (size_t column = 1; column < columns; ++column) {
            item.iSubItem = static_cast<int>(column);
            item.pszText = const_cast<wchar_t*>(cell(object, column));
            send(LVM_SETITEMTEXTW, static_cast<WPARAM>(object), reinterpret_cast<LPARAM>(&item));
        }
    }
    send(WM_SETREDRAW, TRUE);
    paint();
}

void PlainList::orderBy(size_t column, bool isDescending)
{
    const size_t text = textOfColumn[column];
    const Ordering ordering{this, &m_names, text == QuickTool::name ? nullptr : m_texts[text].c_str(), isDescending};
    send(LVM_SORTITEMS, reinterpret_cast<WPARAM>(&ordering), reinterpret_cast<LPARAM>(compareTexts));
}

void PlainList::orderAsFilled()
{
    send(LVM_SORTITEMS, 0, reinterpret_cast<LPARAM>(compareNumbers));
}

} // namespace velk::bench
