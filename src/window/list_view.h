#pragma once

#include "base/unique_any.h"
#include "window/control.h"
#include "window/message_watch.h"

#include <string>
#include <vector>

namespace velk {

// A list in report mode that takes several selected rows and keeps no texts: the owner answers what is asked for the
// rows on screen.
class ListView : public Control {
public:
    explicit ListView(HWND parent);

    // Hears of every message before the control gets it, whoever sends it: what its owner has not yet told it can be
    // told then.
    MessageWatch& watch() noexcept { return m_watch; }
    // Makes sure that a message comes when there is nothing else to do, if the control can be seen.
    void askForMessage() const noexcept;

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

    // While one of these lives, the control takes changes without showing them; at its end it is drawn anew.
    class Redraw {
    public:
        explicit Redraw(const ListView& list) noexcept : m_list(list) { m_list.send(WM_SETREDRAW, FALSE); }
        Redraw(const Redraw&) = delete;
        Redraw& operator=(const Redraw&) = delete;
        ~Redraw();

    private:
        const ListView& m_list;
    };

    // The number of rows; keeps scroll position and selection by their numbers.
    void setRowCount(size_t rows) const noexcept;
    int rowCount() const noexcept;
    void redraw() const noexcept;
    void redrawRows(int first, int last) const noexcept;

    // Row numbers; -1 for none. Of several selected rows the focused one is meant, or else the first.
    int selectedRow() const noexcept;
    int focusedRow() const noexcept;
    int topRow() const noexcept;
    int rowsOnAPage() const noexcept;
    void selectRow(int row) const noexcept; // and no other, and focuses it; -1 takes selection and focus away
    void focusRow(int row) const noexcept;
    void bringIntoView(int row) const noexcept;
    void scrollToTop(int row) const noexcept;
    // The row at a place of the control (pixels); -1 for none.
    int rowAt(POINT place) const noexcept;
    // Where a row's text stands in the control.
    RECT placeOf(int row) const noexcept;

private:
    void measure(HFONT font) noexcept;

    MessageWatch m_watch{hwnd()};
    int m_columns = 0;
    int m_characterWidth = 0; // average of the font, pixels
    int m_characterHeight = 0;
    unique_bitmap m_upArrow;
    unique_bitmap m_downArrow;
};

// The system's colours are others: a list keeps the one of its background from the time it was made.
void followColours(const ListView& list) noexcept;

} // namespace velk
