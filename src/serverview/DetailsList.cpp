#include "serverview/DetailsList.h"

#include "base/boundary.h"

#include <algorithm>

namespace velk {
DetailsList::DetailsList(HWND parent) : m_view(parent), m_columns(m_view)
{
    m_view.watch().setListener([this] { m_shown.show(); });
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

HFONT DetailsList::fontOf(const Row& row) const noexcept
{
    return row.looks().bold ? m_boldFont.get() : reinterpret_cast<HFONT>(m_view.send(WM_GETFONT));
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
    m_shown.placeRows();
    return m_rows;
}

void DetailsList::add(Row::Owner row)
{
    m_rows.add(std::move(row));
    if (m_contents->fillings == 0)
        m_shown.beginChange();
}

void DetailsList::update(int32_t handle, const RowModel::Dress& dress)
{
    const bool hidesOrShows = m_rows.hidesOrShows(handle, dress);
    if (hidesOrShows)
        m_shown.beginChange(); // while the rows stand as the control shows them
    const Row* changed = m_rows.change(handle, dress);
    if (hidesOrShows)
        m_shown.leaveHiddenRows();
    else if (changed)
        m_shown.draw(*changed);
}

void DetailsList::remove(int32_t handle)
{
    const Row* row = m_rows.find(handle);
    if (!row)
        throw Error(errorElementNotFound);
    const auto leave = [&](std::optional<int32_t>& left) {
        const Row* heir = left == handle ? m_rows.neighbourOf(*row) : nullptr;
        if (left == handle)
            left = heir ? std::optional(heir->handle()) : std::nullopt;
    };
    // What may come with its handle is another object.
    for (ShownRows::Place* const place : {&m_shown.beginChange(), &m_placeBeforeFilter}) {
        leave(place->focused);
        leave(place->top);
        place->selected.remove(handle);
    }
    m_shown.leave(*row);
    m_rows.remove(handle);
}

void DetailsList::clear()
{
    if (m_contents->fillings != 0)
        m_contents = std::make_shared<Contents>(); // whoever fills the list is overtaken
    ShownRows::Place place = m_shown.beginAnew();
    if (m_rows.size() > 0)
        m_placeBeforeClear = std::move(place);
    m_rows.clear();
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
    m_shown.show();
    const RowOrder order{column, column && this->order().column == column && !this->order().isDescending};
    m_shown.beginChange().top.reset();
    m_rows.sort(order);
    m_columns.setOrder(order); // by messages, before which the rows are shown
}

void DetailsList::setFilter(const std::wstring& text)
{
    RowFilter filter(text, m_filter.headers());
    std::wstring kept = text;
    m_shown.show();
    const bool isFirst = m_filter.text().empty();
    const bool isSelected = m_view.selectedRow() >= 0;
    ShownRows::Place& place = m_shown.beginChange();
    ShownRows::Place before = isFirst ? place : ShownRows::Place();
    m_rows.setFilter(std::move(filter));
    m_filter.setText(std::move(kept));
    if (isFirst)
        m_placeBeforeFilter = std::move(before);
    else if (text.empty() && !isSelected)
        place = std::exchange(m_placeBeforeFilter, {});
    m_shown.leaveHiddenRows();
    m_shown.show();
    // Who has found a row wants to see it among the others.
    if (const int row = m_view.selectedRow(); row >= 0)
        m_view.bringIntoView(row);
}

void DetailsList::endFilling() noexcept
{
    swallow(L"DetailsList", L"the rows are there, in another order or place", [this] {
        m_shown.letGo();
        m_rows.giveBackRoom(); // not after a single row, for which all would be copied
        m_shown.beginChange() = std::exchange(m_placeBeforeClear, {});
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
