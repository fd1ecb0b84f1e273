#pragma once

#include "platform/list_view.h"
#include "platform/unique_any.h"
#include "serverview/RowModel.h"

#include <functional>
#include <map>

namespace velk {

// The list of a folder's objects: the rows stand in the model, the control shows those that are on screen. Columns
// keep the width that the user gave them, for each kind of folder, for the life of the list.
class DetailsList {
public:
    explicit DetailsList(HWND parent) : m_view(parent) {}

    list_view& view() noexcept { return m_view; }
    const RowModel& rows() const noexcept { return m_rows; }
    void setFont(HFONT font);

    // Empties the list and gives it the columns of a folder kind; a kind without columns gets none.
    void showColumns(int32_t folderKind, const std::vector<std::wstring>& headers);

    void add(Row row);
    // Changes a row in place and shows the change; nothing when no row has the key.
    void update(const std::wstring& key, const std::function<void(Row&)>& change);
    void remove(const std::wstring& key);
    void clear();

    // While one of these lives, added rows are not shown one by one but all together at its end.
    class Filling {
    public:
        explicit Filling(DetailsList* list) noexcept : m_list(list)
        {
            if (m_list)
                ++m_list->m_fillings;
        }
        Filling(const Filling&) = delete;
        Filling& operator=(const Filling&) = delete;
        ~Filling()
        {
            if (m_list && --m_list->m_fillings == 0)
                m_list->showRows();
        }

    private:
        DetailsList* m_list;
    };

    // The control's questions, handed on by its parent window.
    void onGetDispInfo(NMLVDISPINFOW& question) const noexcept;
    LRESULT onCustomDraw(NMLVCUSTOMDRAW& draw) const noexcept;

private:
    void showRows();
    void keepWidths();
    void fitColumns();
    int widthOfCell(const Row& row, int column) const; // pixels

    list_view m_view;
    RowModel m_rows;
    unique_font m_boldFont;
    std::map<int32_t, std::vector<int>> m_widths; // pixels, by folder kind
    int32_t m_folderKind = 0;
    int m_fillings = 0;
    bool m_areWidthsKnown = false;
};

} // namespace velk
