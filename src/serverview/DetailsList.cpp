#include "serverview/DetailsList.h"

#include <algorithm>

namespace velk {
namespace {

// A first fill looks at that many rows to find the widths of the columns, and keeps them within bounds (pixels).
constexpr size_t measuredRows = 200;
constexpr int widestColumn = 320;
constexpr int pictureWidth = 20;

} // namespace

void DetailsList::setFont(HFONT font)
{
    m_view.setFont(font);
    LOGFONTW description{};
    GetObjectW(font, sizeof description, &description);
    description.lfWeight = FW_BOLD;
    m_boldFont.reset(CreateFontIndirectW(&description));
}

void DetailsList::showColumns(int32_t folderKind, const std::vector<std::wstring>& headers)
{
    clear();
    keepWidths();
    m_folderKind = folderKind;
    m_view.setColumns(headers);
    const auto known = m_widths.find(folderKind);
    m_areWidthsKnown = known != m_widths.end();
    if (!m_areWidthsKnown)
        return;
    for (int column = 0; column < m_view.columnCount(); ++column)
        m_view.setColumnWidth(column, known->second.at(static_cast<size_t>(column)));
}

void DetailsList::keepWidths()
{
    if (!m_areWidthsKnown)
        return;
    std::vector<int>& widths = m_widths[m_folderKind];
    widths.clear();
    for (int column = 0; column < m_view.columnCount(); ++column)
        widths.push_back(m_view.columnWidth(column));
}

void DetailsList::add(Row row)
{
    m_rows.add(std::move(row));
    if (m_fillings == 0)
        showRows();
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
    m_rows.clear();
    m_view.selectRow(-1);
    m_view.setRowCount(0);
}

void DetailsList::showRows()
{
    if (!m_areWidthsKnown && m_rows.size() > 0)
        fitColumns();
    m_view.setRowCount(m_rows.size());
}

int DetailsList::widthOfCell(const Row& row, int column) const
{
    const std::wstring& text = row.cells.at(static_cast<size_t>(column));
    const int width = row.bold ? m_view.widthOf(text, m_boldFont.get()) : m_view.widthOf(text);
    return column == 0 ? width + pictureWidth : width;
}

void DetailsList::fitColumns()
{
    const size_t looked = std::min(m_rows.size(), measuredRows);
    for (int column = 0; column < m_view.columnCount(); ++column) {
        int width = m_view.columnWidth(column);
        for (size_t row = 0; row < looked; ++row)
            width = std::max(width, widthOfCell(m_rows.at(row), column));
        m_view.setColumnWidth(column, std::min(width, widestColumn));
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

} // namespace velk
