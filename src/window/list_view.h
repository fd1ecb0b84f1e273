#pragma once

#include "base/unique_any.h"
#include "window/control.h"

#include <string>
#include <vector>

namespace velk {

// A list in report mode that keeps no texts: the owner answers what is asked for the rows on screen.
class ListView : public Control {
public:
    explicit ListView(HWND parent);

    void setImages(HIMAGELIST images) const noexcept;
    // Sort marks are of the font's size; those that are shown have to be set again.
    void setFont(HFONT font) noexcept;

    void setColumns(const std::vector<std::wstring>& headers);
    void removeColumns();
    int columnCount() const noexcept { return m_columns; }
    int columnWidth(int column) const noexcept; // pixels
    void setColumnWidth(int column, int pixels) const noexcept;
    // Pixels that a text needs in a column, in the list's font or in another one; that a row's picture needs beside
    // it; and of horizontal dialog units, which are quarters of the average character of the list's font.
    int widthOf(const std::wstring& text) const noexcept;
    int widthOf(const std::wstring& text, HFONT font) const noexcept;
    int pictureWidth() const noexcept;
    int dialogUnits(int units) const noexcept;

    // The arrow in a column's header.
    enum class SortMark { none, up, down };
    void setSortMark(int column, SortMark mark) noexcept;

    // The number of rows, and that their contents may have changed; keeps scroll position and selection.
    void setRowCount(size_t rows) const noexcept;
    void redrawRow(size_t row) const noexcept;
    // One row less: selection, focus and first visible row stay with their rows.
    void removeRow(size_t row) const noexcept;

    // Row numbers; -1 for none.
    int selectedRow() const noexcept;
    int focusedRow() const noexcept;
    int topRow() const noexcept;
    void selectRow(int row) const noexcept; // and focuses it; -1 takes the selection away
    void focusRow(int row) const noexcept;
    void bringIntoView(int row) const noexcept;
    void scrollToTop(int row) const noexcept;
    // The row at a place of the control (pixels); -1 for none.
    int rowAt(POINT place) const noexcept;
    // Where a row's text stands in the control.
    RECT placeOf(int row) const noexcept;

private:
    void measure(HFONT font) noexcept;

    int m_columns = 0;
    int m_characterWidth = 0; // average of the font, pixels
    int m_characterHeight = 0;
    unique_bitmap m_upArrow;
    unique_bitmap m_downArrow;
};

} // namespace velk
