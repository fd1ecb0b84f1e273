#include "serverview/DetailsList.h"

#include "base/boundary.h"

#include <algorithm>

namespace velk {
namespace {

// A first fill looks at that many rows to find the widths of the columns, and keeps them within bounds (dialog units).
constexpr size_t measuredRows = 200;
constexpr int widestColumn = 220;

} // namespace

DetailsList::DetailsList(HWND parent) : m_view(parent)
{
    m_view.setListener([this] { show(); });
}

DetailsList::~DetailsList()
{
    m_view.setListener({});
}

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
    if (const Row* changed = m_rows.change(handle, dress))
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
    if (place.selected == handle)
        place.selected.reset();
    m_rows.remove(handle);
}

void DetailsList::clear()
{
    if (m_contents->fillings != 0)
        m_contents = std::make_shared<Contents>(); // whoever fills the list is overtaken
    Unshown& changes = beginChange();
    if (m_rows.size() > 0)
        m_placeBeforeClear = changes.place;
    changes.place = {};
    changes.isCleared = true;
    m_rows.clear();
    m_isOrderLost = false;
}

const Row* DetailsList::selected() noexcept
{
    const int row = m_view.selectedRow();
    return row >= 0 && static_cast<size_t>(row) < rows().size() ? &m_rows.at(static_cast<size_t>(row)) : nullptr;
}

void DetailsList::sortBy(size_t column)
{
    show();
    const RowOrder order{column, m_order.column == column && !m_order.isDescending};
    Place& place = beginChange().place;
    m_rows.sort(order);
    m_order = order;
    place.top.reset();
    showOrder();
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

DetailsList::Place DetailsList::placeOfUser() const
{
    const auto handleAt = [this](int row) {
        return row >= 0 && static_cast<size_t>(row) < m_rows.size()
                   ? std::optional(m_rows.at(static_cast<size_t>(row)).handle())
                   : std::nullopt;
    };
    return {handleAt(m_view.selectedRow()), handleAt(m_view.focusedRow()), handleAt(m_view.topRow())};
}

// From here on to the control's next message, rows come, go and move.
DetailsList::Unshown& DetailsList::beginChange()
{
    if (!m_unshown || !m_unshown->areRowsOthers) {
        const Place place = placeOfUser(); // by messages, before which changes of looks are shown
        m_unshown = Unshown{.place = place, .areRowsOthers = true};
        m_view.askForMessage();
    }
    return *m_unshown;
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
    if (!m_areWidthsKnown && count > 0)
        swallow(L"DetailsList", L"the columns keep the widths of their headers", [this] { fitColumns(); });
    if (changes.isCleared || m_view.rowCount() != count) {
        const ListView::Redraw together(m_view);
        if (changes.isCleared)
            m_view.setRowCount(0);
        m_view.setRowCount(m_rows.size());
    }
    m_view.redraw();
    goTo(changes.place, changes.isCleared ? 0 : m_view.topRow());
}

int DetailsList::rowOf(const std::optional<int32_t>& handle) const noexcept
{
    const Row* row = handle ? m_rows.find(*handle) : nullptr;
    const std::optional<size_t> place = row ? m_rows.placeOf(*row) : std::nullopt;
    return place ? static_cast<int>(*place) : -1;
}

void DetailsList::goTo(const Place& place, int otherwiseTop) const noexcept
{
    const int top = rowOf(place.top);
    m_view.scrollToTop(top >= 0 ? top : otherwiseTop);
    m_view.selectRow(rowOf(place.selected));
    if (const int focused = rowOf(place.focused); focused >= 0)
        m_view.focusRow(focused);
}

void DetailsList::placeRows() noexcept
{
    if (m_contents->fillings != 0)
        return;
    const bool all = std::exchange(m_isOrderLost, false) && m_order.column;
    if (!swallow(L"DetailsList", L"the rows are there, in another order",
                 [&] { all ? m_rows.sort(m_order) : m_rows.placeAdded(m_order); }))
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

int DetailsList::widthOfCell(const Row& row, int column) const
{
    const auto cell = static_cast<size_t>(column);
    const std::wstring text(row.cell(cell));
    const int width = row.looks().bold ? m_view.widthOf(text, m_boldFont.get()) : m_view.widthOf(text);
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
    const std::wstring_view text = row.cell(static_cast<size_t>(question.item.iSubItem));
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
