#pragma once

#include "serverview/RowFilter.h"

#include <memory>
#include <span>
#include <vector>

namespace velk {

// What a filter leaves of a model's rows, in their order; a row knows whether it is hidden. Without a filter all are
// left, and it costs nothing. It owns no rows.
class FilteredRows {
public:
    using Rows = std::span<Row* const>;

    bool isOn() const noexcept { return m_filtered != nullptr; }
    // Those of the rows that have a place.
    Rows of(Rows placed) const noexcept { return m_filtered ? m_filtered->refreshed(placed) : placed; }

    // Another filter, or none, for all rows of a model. What throws has changed nothing.
    void set(RowFilter filter, Rows placed, Rows added);

    // Makes room for so many rows; what throws has changed nothing.
    void makeRoom(size_t rows);
    // Hides a row that came or changed, or not.
    void judge(Row& row) const noexcept { row.m_isHidden = m_filtered && !m_filtered->filter.matches(row); }
    // Rows came, went or moved: what is left is found anew when somebody looks.
    void forget() noexcept
    {
        if (m_filtered)
            m_filtered->isStale = true;
    }
    // What is left, as long as it is as somebody saw it the last time; none otherwise.
    Rows known() const noexcept { return m_filtered && !m_filtered->isStale ? Rows(m_filtered->shown) : Rows(); }
    // In the place of a row that is left, and has changed.
    void replace(size_t place, Row& changed) noexcept { m_filtered->shown[place] = &changed; }
    // Whether a row would be hidden and is not, or the other way round.
    bool misjudges(const Row& row, bool isHidden) const noexcept
    {
        return m_filtered && m_filtered->filter.matches(row) == isHidden;
    }

private:
    struct Filtered {
        RowFilter filter{};
        std::vector<Row*> shown{}; // room for all rows
        bool isStale = true;
        Rows refreshed(Rows placed) noexcept;
        void narrow(const RowFilter& narrower, Rows added) noexcept;
    };

    std::unique_ptr<Filtered> m_filtered; // none without a filter
};

} // namespace velk
