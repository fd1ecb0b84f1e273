#include "serverview/DetailsList.h"

#include "base/boundary.h"

#include <algorithm>

namespace velk {
namespace {

// A place that a hidden row has goes to its neighbour.
std::optional<int32_t> shownInstead(const RowModel& rows, const std::optional<int32_t>& handle) noexcept
{
    const Row* row = handle ? rows.find(*handle) : nullptr;
    if (row && row->isHidden())
        row = rows.neighbourOf(*row);
    return row ? std::optional(row->handle()) : std::nullopt;
}

} // namespace

DetailsList::DetailsList(HWND parent) : m_view(parent), m_columns(m_view)
{
    m_view.watch().setListener([this] { show(); });
}

DetailsList::~DetailsList()
{
    m_view.watch().setListener({});
}

void DetailsList::setFont(HFONT font)
{
    LOGFONTW description{};
    GetObjectW(font, sizeof description, &description);
    description.lfWeight = FW_BOLD;
    unique_font boldFont(CreateFontIndirectW(&description));
    m_columns.setFonts(font, boldFont.get());
    m_boldFont = std::move(boldFont);
}

void DetailsList::showColumns(int32_t folderKind, const std::vector<std::wstring>& headers)
{
    clear();
    m_placeBeforeClear = {}; // another folder's rows may come
    m_placeBeforeFilter = {};
    m_columns.show(folderKind, headers);
    m_filter.showColumns(folderKind, headers);
    if (m_filter.text().empty())
        m_rows.setFilter({});
    m_filter.tell();
}

const RowModel& DetailsList::rows() noexcept
{
    placeRows();
    return m_rows;
}

void DetailsList::add(Row::Owner row)
{
    m_rows.add(std::move(row));
    if (m_contents->fillings == 0)
        beginChange();
}

void DetailsList::update(int32_t handle, const RowModel::Dress& dress)
{
    const bool hidesOrShows = m_rows.hidesOrShows(handle, dress);
    if (hidesOrShows)
        beginChange(); // while the rows stand as the control shows them
    const Row* changed = m_rows.change(handle, dress);
    if (hidesOrShows)
        leaveHiddenRows();
    else if (changed)
        draw(*changed);
}

void DetailsList::remove(int32_t handle)
{
    const Row* row = m_rows.find(handle);
    if (!row)
        throw Error(errorElementNotFound);
    Place& place = beginChange().place;
    const auto leave = [&](std::optional<int32_t>& left) {
        const Row* heir = left == handle ? m_rows.neighbourOf(*row) : nullptr;
        if (left == handle)
            left = heir ? std::optional(heir->handle()) : std::nullopt;
    };
    leave(place.focused);
    leave(place.top);
    place.selected.remove(handle);
    m_rows.remove(handle);
}

void DetailsList::clear()
{
    if (m_contents->fillings != 0)
        m_contents = std::make_shared<Contents>(); // whoever fills the list is overtaken
    Unshown& changes = beginChange();
    Place place = std::exchange(changes.place, {});
    if (m_rows.size() > 0)
        m_placeBeforeClear = std::move(place);
    changes.isCleared = true;
    m_rows.clear();
    m_isOrderLost = false;
}

const Row* DetailsList::selected() noexcept
{
    const int row = m_view.selectedRow();
    return row >= 0 && static_cast<size_t>(row) < rows().size() ? &m_rows.at(static_cast<size_t>(row)) : nullptr;
}

std::vector<const Row*> DetailsList::selectedRows()
{
    std::vector<const Row*> selected;
    for (const int row : m_selection.rows())
        if (static_cast<size_t>(row) < rows().size())
            selected.push_back(&m_rows.at(static_cast<size_t>(row)));
    return selected;
}

void DetailsList::sortBy(std::optional<size_t> column)
{
    show();
    const RowOrder order{column, column && this->order().column == column && !this->order().isDescending};
    beginChange().place.top.reset();
    m_rows.sort(order);
    m_columns.setOrder(order); // by messages, before which the rows are shown
}

void DetailsList::setFilter(const std::wstring& text)
{
    RowFilter filter(text, m_filter.headers());
    std::wstring kept = text;
    show();
    const bool isFirst = m_filter.text().empty();
    const bool isSelected = m_view.selectedRow() >= 0;
    Place& place = beginChange().place;
    m_rows.setFilter(std::move(filter));
    m_filter.setText(std::move(kept));
    if (isFirst)
        m_placeBeforeFilter = place;
    else if (text.empty() && !isSelected)
        place = std::exchange(m_placeBeforeFilter, {});
    leaveHiddenRows();
    show();
    // Who has found a row wants to see it among the others.
    if (const int row = m_view.selectedRow(); row >= 0)
        m_view.bringIntoView(row);
}

DetailsList::Place DetailsList::placeOfUser() noexcept
{
    const auto handleAt = [this](int row) {
        return row >= 0 && static_cast<size_t>(row) < m_rows.size()
                   ? std::optional(m_rows.at(static_cast<size_t>(row)).handle())
                   : std::nullopt;
    };
    return {KeptSelection(m_selection, m_rows), handleAt(m_view.focusedRow()), handleAt(m_view.topRow())};
}

// From here on to the control's next message, rows come, go and move.
DetailsList::Unshown& DetailsList::beginChange()
{
    if (!m_unshown || !m_unshown->areRowsOthers) {
        Place place = placeOfUser(); // by messages, before which changes of looks are shown
        m_unshown = Unshown{.place = std::move(place), .areRowsOthers = true};
        m_view.askForMessage();
    }
    return *m_unshown;
}

void DetailsList::leaveHiddenRows() noexcept
{
    Place& place = m_unshown->place;
    place.focused = shownInstead(m_rows, place.focused);
    place.top = shownInstead(m_rows, place.top);
}

void DetailsList::draw(const Row& changed)
{
    if (!m_unshown) {
        const int top = m_view.topRow();
        m_unshown = Unshown{.top = top, .bottom = top + m_view.rowsOnAPage()};
    }
    const std::optional<size_t> found = m_unshown->areRowsOthers ? std::nullopt : m_rows.placeOf(changed);
    const int row = found ? static_cast<int>(*found) : -1;
    if (row < m_unshown->top || row > m_unshown->bottom)
        return;
    if (m_unshown->lastStale < 0)
        m_view.askForMessage();
    m_unshown->firstStale = std::min(m_unshown->firstStale, row);
    m_unshown->lastStale = std::max(m_unshown->lastStale, row);
}

void DetailsList::show() noexcept
{
    if (!m_unshown)
        return;
    const Unshown changes = *std::exchange(m_unshown, std::nullopt);
    if (changes.areRowsOthers)
        showRows(changes);
    else if (changes.lastStale >= 0)
        m_view.redrawRows(changes.firstStale, changes.lastStale);
}

void DetailsList::showRows(const Unshown& changes) noexcept
{
    placeRows();
    const int count = static_cast<int>(m_rows.size());
    swallow(L"DetailsList", L"the columns keep the widths of their headers", [this] { m_columns.fit(m_rows); });
    if (changes.isCleared || m_view.rowCount() != count) {
        const ListView::Redraw together(m_view);
        if (changes.isCleared)
            m_view.setRowCount(0);
        m_view.setRowCount(m_rows.size());
    }
    m_view.redraw();
    goTo(changes.place, changes.isCleared ? 0 : m_view.topRow());
    m_filter.tell();
}

int DetailsList::rowOf(const std::optional<int32_t>& handle) const noexcept
{
    const Row* row = handle ? m_rows.find(*handle) : nullptr;
    const std::optional<size_t> place = row ? m_rows.placeOf(*row) : std::nullopt;
    return place ? static_cast<int>(*place) : -1;
}

void DetailsList::goTo(const Place& place, int otherwiseTop) noexcept
{
    const int top = rowOf(place.top);
    m_view.scrollToTop(top >= 0 ? top : otherwiseTop);
    place.selected.restore(m_view, m_selection, m_rows);
    if (const int focused = rowOf(place.focused); focused >= 0)
        m_view.focusRow(focused);
}

void DetailsList::placeRows() noexcept
{
    if (m_contents->fillings != 0)
        return;
    const bool all = std::exchange(m_isOrderLost, false) && order().column;
    if (!swallow(L"DetailsList", L"the rows are there, in another order",
                 [&] { all ? m_rows.sort(order()) : m_rows.placeAdded(order()); }))
        m_rows.placeAddedLast();
}

void DetailsList::endFilling() noexcept
{
    swallow(L"DetailsList", L"the rows are there, in another order or place", [this] {
        m_isOrderLost = true;
        m_rows.giveBackRoom(); // not after a single row, for which all would be copied
        beginChange().place = std::exchange(m_placeBeforeClear, {});
    });
}

void DetailsList::onGetDispInfo(NMLVDISPINFOW& question) noexcept
{
    const auto index = static_cast<size_t>(question.item.iItem);
    if (index >= rows().size())
        return;
    const Row& row = m_rows.at(index);
    if (question.item.mask & LVIF_IMAGE)
        question.item.iImage = row.looks().image;
    if (!(question.item.mask & LVIF_TEXT) || question.item.cchTextMax <= 0)
        return;
    const std::wstring_view text = row.cell(m_columns.columnAt(question.item.iSubItem));
    const size_t copied = text.copy(question.item.pszText, static_cast<size_t>(question.item.cchTextMax) - 1);
    question.item.pszText[copied] = L'\0';
}

LRESULT DetailsList::onCustomDraw(NMLVCUSTOMDRAW& draw) noexcept
{
    if (draw.nmcd.dwDrawStage == CDDS_PREPAINT)
        return CDRF_NOTIFYITEMDRAW;
    const size_t index = draw.nmcd.dwItemSpec;
    if (draw.nmcd.dwDrawStage != CDDS_ITEMPREPAINT || index >= rows().size() || !m_rows.at(index).looks().bold)
        return CDRF_DODEFAULT;
    SelectObject(draw.nmcd.hdc, m_boldFont.get());
    return CDRF_NEWFONT;
}

LRESULT DetailsList::onFindItem(const NMLVFINDITEMW& question) noexcept
{
    if (!(question.lvfi.flags & (LVFI_STRING | LVFI_PARTIAL)) || !question.lvfi.psz)
        return -1;
    const size_t start = question.iStart > 0 ? static_cast<size_t>(question.iStart) : 0;
    std::optional<size_t> found = rows().findName(question.lvfi.psz, start);
    if (!found && (question.lvfi.flags & LVFI_WRAP))
        found = m_rows.findName(question.lvfi.psz, 0);
    return found ? static_cast<LRESULT>(*found) : -1;
}

} // namespace velk
