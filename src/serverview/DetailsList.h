#pragma once

#include "base/unique_any.h"
#include "serverview/ShownRows.h"

#include <memory>

namespace velk {

// The list of a folder's objects: the rows stand in the model, the control shows those that are on screen.
class DetailsList {
    struct Contents;

public:
    explicit DetailsList(HWND parent);
    DetailsList(const DetailsList&) = delete;
    DetailsList& operator=(const DetailsList&) = delete;
    ~DetailsList();

    ListView& view() noexcept { return m_view; }
    // All rows have their places, but for those of a filling that is under way.
    const RowModel& rows() noexcept;
    void setFont(HFONT font);
    HFONT fontOf(const Row& row) const noexcept;

    // Empties the list and gives it the columns of a folder kind; a kind without columns gets none.
    void showColumns(int32_t folderKind, const std::vector<std::wstring>& headers);

    // What is added, changed, removed or taken away is shown together, when the control gets its next message: there is
    // none that does not find it up to date.
    void add(Row::Owner row);
    // Changes a row in place; nothing when no row has the handle.
    void update(int32_t handle, const RowModel::Dress& dress);
    void remove(int32_t handle);
    // Takes all rows away. If the next filling brings them back (a refresh of the folder), selection, focus and first
    // visible row are found again by their handles.
    void clear();

    // Orders by a column; by the same column again reverses the order. By none the rows stand as they came.
    void sortBy(std::optional<size_t> column);
    const RowOrder& order() const noexcept { return m_columns.order(); }

    // Cells and columns have the same numbers, hidden columns included; the control has other ones.
    ListColumns& columns() noexcept { return m_columns; }

    // Shows only the rows that match what the user wrote, as RowFilter reads it. What throws has changed nothing.
    void setFilter(const std::wstring& text);
    ListFilter& filter() noexcept { return m_filter; }

    // The selected row; null when none is. Of several it is the focused one, or else the first.
    const Row* selected() noexcept;
    ListSelection& selection() noexcept { return m_selection; }
    size_t selectedCount() const noexcept { return static_cast<size_t>(m_selection.count()); }
    // All of them in the order shown. The rows are gone or others with the next message.
    std::vector<const Row*> selectedRows();

    // While one of these lives, added rows are not shown one by one but all together at its end. The list may be
    // emptied for other rows, or go, while it lives; it is overtaken then, and its end does nothing.
    class Filling {
    public:
        explicit Filling(DetailsList* list) noexcept : m_list(list)
        {
            if (!m_list)
                return;
            m_contents = m_list->m_contents;
            ++m_list->m_contents->fillings;
            m_list->m_shown.hold();
        }
        Filling(const Filling&) = delete;
        Filling& operator=(const Filling&) = delete;
        ~Filling()
        {
            const std::shared_ptr<Contents> contents = m_contents.lock();
            if (contents && --contents->fillings == 0)
                m_list->endFilling();
        }
        bool isOvertaken() const noexcept { return m_contents.expired(); }

    private:
        DetailsList* m_list;
        std::weak_ptr<Contents> m_contents;
    };

    // The control's questions, handed on by its parent window.
    void onGetDispInfo(NMLVDISPINFOW& question) noexcept;
    LRESULT onCustomDraw(NMLVCUSTOMDRAW& draw) noexcept;
    // The row whose name begins with what the user typed; -1 for none.
    LRESULT onFindItem(const NMLVFINDITEMW& question) noexcept;

private:
    // What the list holds from one emptying to the next.
    struct Contents {
        int fillings = 0; // that are under way
    };
    void endFilling() noexcept;

    ListView m_view;
    ListSelection m_selection{m_view};
    ListColumns m_columns;
    ListFilter m_filter;
    RowModel m_rows;
    ShownRows m_shown{m_view, m_selection, m_columns, m_filter, m_rows};
    unique_font m_boldFont;
    ShownRows::Place m_placeBeforeClear;
    ShownRows::Place m_placeBeforeFilter;
    std::shared_ptr<Contents> m_contents = std::make_shared<Contents>();
};

} // namespace velk
