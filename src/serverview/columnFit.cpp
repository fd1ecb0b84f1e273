#include "serverview/columnFit.h"

#include <algorithm>
#include <array>

namespace velk {
namespace {

// The widest of the rows that it was shown.
class Widest {
public:
    void look(const Row& row, int width) noexcept
    {
        if (width <= m_rows.back().width)
            return;
        const auto place =
            std::find_if(m_rows.begin(), m_rows.end(), [width](const Found& found) { return found.width < width; });
        std::move_backward(place, m_rows.end() - 1, m_rows.end());
        *place = {&row, width};
    }
    void addTo(std::vector<const Row*>& rows) const
    {
        for (const Found& found : m_rows)
            if (found.row)
                rows.push_back(found.row);
    }

private:
    // Characters that make each other narrower, or come from another font, are passed over by as many others.
    static constexpr size_t count = 32;
    struct Found {
        const Row* row = nullptr;
        int width = 0;
    };
    std::array<Found, count> m_rows; // the widest first
};

} // namespace

std::vector<const Row*> widestRows(const RowModel& rows, size_t column, const TextWidths& plain, const TextWidths& bold)
{
    Widest widestPlain;
    Widest widestBold;
    const size_t count = rows.size();
    for (size_t place = 0; place < count; ++place) {
        const Row& row = rows.at(place);
        const std::wstring_view text = shownTextOf(row, column);
        if (row.looks().bold)
            widestBold.look(row, bold.of(text));
        else
            widestPlain.look(row, plain.of(text));
    }
    std::vector<const Row*> found;
    widestPlain.addTo(found);
    widestBold.addTo(found);
    return found;
}

} // namespace velk
