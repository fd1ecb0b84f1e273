#pragma once

#include "serverview/RowModel.h"
#include "window/list_selection.h"

#include <optional>
#include <vector>

namespace velk {

// The selected rows of the details list by the handles of their objects, while the rows come, go and move. None or one
// as a rule, which takes no memory.
class KeptSelection {
public:
    KeptSelection() = default;
    // Those of a list whose rows stand as the control shows them. Without memory for several there is none.
    KeptSelection(ListSelection& selection, const RowModel& rows) noexcept;

    bool areSeveral() const noexcept { return !m_several.empty(); }
    // A row goes, and what may come with its handle is another object.
    void remove(int32_t handle) noexcept;
    // Selects the rows that are there in the list as it is now; several leave its focus to the caller.
    void restore(const ListView& list, ListSelection& selection, const RowModel& rows) const noexcept;

private:
    struct Kept {
        int32_t handle;
        bool isGone = false;
    };
    void keepSeveral(ListSelection& selection, const RowModel& rows);
    void restoreSeveral(ListSelection& selection, const RowModel& rows) const;

    std::optional<int32_t> m_one; // the only one
    std::optional<int32_t> m_anchor;
    std::vector<Kept> m_several; // by handle
};

} // namespace velk
