#pragma once

#include "window/list_view.h"

#include <vector>

namespace velk {

// The selected rows of a list that takes several. Where a message would walk all rows of the list, another one is asked
// first, and what was found of several is remembered.
class ListSelection {
public:
    explicit ListSelection(const ListView& list) noexcept : m_list(list) {}

    int count() const noexcept;
    // Of a list that has one: the focused row if it is among them, or else the first.
    int first() const noexcept;
    // Their numbers from above, which hold until the next call.
    const std::vector<int>& rows();
    bool has(int row) const noexcept;
    // The list tells of changes, LVN_ITEMCHANGED and LVN_ODSTATECHANGED: what is remembered may not be true any more.
    void rowChanged(const NMLISTVIEW& change) noexcept
    {
        if ((change.uOldState ^ change.uNewState) & LVIS_SELECTED)
            forget();
    }
    void forget() noexcept { m_several.clear(); }

    // These leave the focus where it is.
    void add(int row) const noexcept;
    void remove(int row) const noexcept;
    void addAll() const noexcept;
    void clear() const noexcept;
    // Selects those of the numbers, which come from above, and no others, with few messages.
    void change(const std::vector<int>& wanted);
    // Takes a row out of the list. The others stay selected or not, although the numbers of those below it become less:
    // the control moves them on as a whole, which is much less work than telling it each one.
    void removeRow(int row);

    // The row from which Shift selects; -1 for none.
    int anchor() const noexcept;
    void setAnchor(int row) const noexcept;

private:
    int next(int row) const noexcept; // of the selected rows; -1: none
    bool isRemembered(int selected) noexcept;
    void readSeveral(int selected);
    void setState(int row, UINT state) const noexcept;

    const ListView& m_list;
    std::vector<int> m_several; // more than one, as they were last found
    std::vector<int> m_few;
};

} // namespace velk
