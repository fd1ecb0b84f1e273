#include "serverview/DetailsList.h"

#include "base/boundary.h"

#include <algorithm>

namespace velk {
namespace {

// A first fill looks at that many rows to find the widths of the columns, and keeps them within bounds (dialog units).
constexpr size_t measuredRows = 200;
constexpr int widestColumn = 220;

} // namespace

void DetailsList::setFont(HFONT font)
{
    m_view.setFont(font);
    LOGFONTW description{};
    GetObjectW(font, sizeof description, &description);
    description.lfWeight = FW_BOLD;
    m_boldFont.reset(CreateFontIndirectW(&description));
    showOrder();
}

void DetailsList::showColumns(int32_t folderKind, const std::vector<std::wstring>& headers)
{
    keepLooks();
    clear();
    m_placeBeforeClear = {}; // another folder's rows may come
    m_folderKind = folderKind;
    m_view.setColumns(headers);
    const auto known = m_looks.find(folderKind);
    m_areWidthsKnown = known != m_looks.end();
    m_order = m_areWidthsKnown ? known->second.order : RowOrder();
    showOrder();
    if (!m_areWidthsKnown)
        return;
    for (int column = 0; column < m_view.columnCount(); ++column)
        m_view.setColumnWidth(column, known->second.widths.at(static_cast<size_t>(column)));
}

void DetailsList::keepLooks()
{
    if (!m_areWidthsKnown)
        return;
    Looks& looks = m_looks[m_folderKind];
    looks.order = m_order;
    looks.widths.clear();
    for (int column = 0; column < m_view.columnCount(); ++column)
        looks.widths.push_back(m_view.columnWidth(column));
}

void DetailsList::add(Row row)
{
    m_rows.add(std::move(row));
    if (m_contents->fillings != 0)
        return;
    const Place place = placeNow();
    m_rows.placeLast(m_order);
    showRows();
    goTo(place);
}

void DetailsList::update(const std::wstring& key, const std::function<void(Row&)>& change)
{
    const std::optional<size_t> place = m_rows.find(key);
    if (!place)
        return;
    change(m_rows.at(*place));
    m_view.redrawRow(*place);
}

void DetailsList::remove(const std::wstring& key)
{
    m_view.removeRow(m_rows.remove(key));
}

void DetailsList::clear()
{
    if (m_rows.size() > 0)
        m_placeBeforeClear = placeNow();
    if (m_contents->fillings != 0)
        m_contents = std::make_shared<Contents>(); // whoever fills the list is overtaken
    m_rows.clear();
    m_view.selectRow(-1);
    m_view.setRowCount(0);
}

const Row* DetailsList::selected() const noexcept
{
    const int row = m_view.selectedRow();
    return row >= 0 && static_cast<size_t>(row) < m_rows.size() ? &m_rows.at(static_cast<size_t>(row)) : nullptr;
}

void DetailsList::sortBy(size_t column)
{
    m_order = {column, m_order.column == column && !m_order.isDescending};
    const Place place = placeNow();
    m_rows.sort(m_order);
    showOrder();
    m_view.setRowCount(m_rows.size());
    goTo({place.selected, place.focused, {}});
}

void DetailsList::showOrder()
{
    for (int column = 0; column < m_view.columnCount(); ++column) {
        const bool isOrdered = m_order.column == static_cast<size_t>(column);
        m_view.setSortMark(column, !isOrdered             ? ListView::SortMark::none
                                   : m_order.isDescending ? ListView::SortMark::down
                                                          : ListView::SortMark::up);
    }
}

DetailsList::Place DetailsList::placeNow() const
{
    const auto keyAt = [this](int row) {
        return row >= 0 && static_cast<size_t>(row) < m_rows.size() ? m_rows.at(static_cast<size_t>(row)).key
                                                                    : std::wstring();
    };
    return {keyAt(m_view.selectedRow()), keyAt(m_view.focusedRow()), keyAt(m_view.topRow())};
}

void DetailsList::goTo(const Place& place) const
{
    const auto rowOf = [this](const std::wstring& key) {
        const std::optional<size_t> found = m_rows.find(key);
        return found ? static_cast<int>(*found) : -1;
    };
    if (const int top = rowOf(place.top); top >= 0)
        m_view.scrollToTop(top);
    m_view.selectRow(rowOf(place.selected));
    if (const int focused = rowOf(place.focused); focused >= 0)
        m_view.focusRow(focused);
}

void DetailsList::endFilling() noexcept
{
    swallow(L"DetailsList", L"the rows are there, in another order or place", [this] {
        if (m_order.column)
            m_rows.sort(m_order);
        showRows();
        const Place place = std::exchange(m_placeBeforeClear, {});
        goTo(place);
    });
}

void DetailsList::showRows()
{
    if (!m_areWidthsKnown && m_rows.size() > 0)
        fitColumns();
    m_view.setRowCount(m_rows.size());
}

int DetailsList::widthOfCell(const Row& row, int column) const
{
    const auto cell = static_cast<size_t>(column);
    const std::wstring text = cell < row.cells.size() ? row.cells[cell] : std::wstring();
    const int width = row.bold ? m_view.widthOf(text, m_boldFont.get()) : m_view.widthOf(text);
    return column == 0 ? width + m_view.pictureWidth() : width;
}

void DetailsList::fitColumns()
{
    const size_t looked = std::min(m_rows.size(), measuredRows);
    for (int column = 0; column < m_view.columnCount(); ++column) {
        int width = m_view.columnWidth(column);
        for (size_t row = 0; row < looked; ++row)
            width = std::max(width, widthOfCell(m_rows.at(row), column));
        m_view.setColumnWidth(column, std::min(width, m_view.dialogUnits(widestColumn)));
    }
    m_areWidthsKnown = true;
}

void DetailsList::onGetDispInfo(NMLVDISPINFOW& question) const noexcept
{
    const auto index = static_cast<size_t>(question.item.iItem);
    if (index >= m_rows.size())
        return;
    const Row& row = m_rows.at(index);
    if (question.item.mask & LVIF_IMAGE)
        question.item.iImage = row.image;
    const auto cell = static_cast<size_t>(question.item.iSubItem);
    if (!(question.item.mask & LVIF_TEXT) || question.item.cchTextMax <= 0)
        return;
    const std::wstring_view text = cell < row.cells.size() ? std::wstring_view(row.cells[cell]) : std::wstring_view();
    const size_t copied = text.copy(question.item.pszText, static_cast<size_t>(question.item.cchTextMax) - 1);
    question.item.pszText[copied] = L'\0';
}

LRESULT DetailsList::onCustomDraw(NMLVCUSTOMDRAW& draw) const noexcept
{
    if (draw.nmcd.dwDrawStage == CDDS_PREPAINT)
        return CDRF_NOTIFYITEMDRAW;
    const size_t index = draw.nmcd.dwItemSpec;
    if (draw.nmcd.dwDrawStage != CDDS_ITEMPREPAINT || index >= m_rows.size() || !m_rows.at(index).bold)
        return CDRF_DODEFAULT;
    SelectObject(draw.nmcd.hdc, m_boldFont.get());
    return CDRF_NEWFONT;
}

LRESULT DetailsList::onFindItem(const NMLVFINDITEMW& question) const
{
    if (!(question.lvfi.flags & (LVFI_STRING | LVFI_PARTIAL)) || !question.lvfi.psz)
        return -1;
    const size_t start = question.iStart > 0 ? static_cast<size_t>(question.iStart) : 0;
    std::optional<size_t> found = m_rows.findName(question.lvfi.psz, start);
    if (!found && (question.lvfi.flags & LVFI_WRAP))
        found = m_rows.findName(question.lvfi.psz, 0);
    return found ? static_cast<LRESULT>(*found) : -1;
}

} // namespace velk
