// The order of the rows: by a column, or as the Backend gave them.
#include "serverview/RowModel.h"

#include "serverview/orderKeys.h"

#include <algorithm>

namespace velk {
namespace {

// A row with what it is ordered by.
struct Entry {
    uint64_t head = 0; // the first bytes of the key that not all keys have in common
    std::string_view key;
    uint32_t arrival = 0;
    Row* row = nullptr;
};

bool isSame(const Entry& left, const Entry& right)
{
    return left.head == right.head && left.key == right.key;
}

size_t commonBeginning(const std::vector<Entry>& entries)
{
    const std::string_view first = entries.front().key;
    size_t length = first.size();
    for (const Entry& entry : entries) {
        const auto end = first.begin() + static_cast<std::ptrdiff_t>(std::min(length, entry.key.size()));
        length = static_cast<size_t>(std::mismatch(first.begin(), end, entry.key.begin()).first - first.begin());
    }
    return length;
}

void setHeads(std::vector<Entry>& entries)
{
    const size_t common = commonBeginning(entries);
    for (Entry& entry : entries)
        for (size_t place = common; place < common + sizeof entry.head; ++place)
            entry.head =
                entry.head << 8 | (place < entry.key.size() ? static_cast<unsigned char>(entry.key[place]) : 0);
}

void sortEntries(std::vector<Entry>& entries, bool isDescending)
{
    if (entries.empty())
        return;
    setHeads(entries);
    std::sort(entries.begin(), entries.end(), [isDescending](const Entry& left, const Entry& right) {
        if (left.head != right.head)
            return (left.head < right.head) != isDescending;
        if (left.key.data() != right.key.data())
            if (const int compared = left.key.compare(right.key); compared != 0)
                return (compared < 0) != isDescending;
        return left.arrival < right.arrival;
    });
}

// The first place from a given one before which a new row has to stand; not far from there as a rule.
template <class IsBefore>
size_t placeFor(size_t from, size_t end, const IsBefore& isBefore)
{
    size_t low = from;
    size_t step = 1;
    for (; low + step <= end && !isBefore(low + step - 1); step *= 2)
        low += step;
    size_t high = std::min(low + step - 1, end);
    while (low < high) {
        const size_t middle = low + (high - low) / 2;
        if (isBefore(middle))
            high = middle;
        else
            low = middle + 1;
    }
    return low;
}

} // namespace

bool RowModel::areNumbers(size_t column) const noexcept
{
    return std::all_of(m_rows.begin(), m_rows.end(),
                       [column](const Row* row) { return isWholeNumber(row->cell(column)); });
}

bool RowModel::isReverseOf(const RowOrder& order) const noexcept
{
    return m_order && !hasAdded() && m_order->column == order.column && m_order->isDescending != order.isDescending;
}

// Groups of rows that do not differ keep their order in themselves.
void RowModel::reverse() noexcept
{
    std::reverse(m_rows.begin(), m_rows.end());
    if (m_rows.size() > 1)
        std::reverse(m_differs.begin() + 1, m_differs.end());
    for (size_t begin = 0, end = 0; begin < m_rows.size(); begin = end) {
        for (end = begin + 1; end < m_rows.size() && !m_differs[end];)
            ++end;
        if (end - begin > 1)
            std::reverse(m_rows.begin() + static_cast<std::ptrdiff_t>(begin),
                         m_rows.begin() + static_cast<std::ptrdiff_t>(end));
    }
}

void RowModel::sort(const RowOrder& order)
{
    closeGaps();
    if (isReverseOf(order)) {
        reverse();
        m_order = order;
        m_movedUp = anywhere;
        m_filtered.forget();
        return;
    }
    const bool byNumbers = order.column && areNumbers(*order.column);
    OrderKeys keys(order.column.value_or(0), byNumbers);
    std::vector<Entry> entries;
    entries.reserve(m_rows.size());
    for (Row* const row : m_rows)
        entries.push_back({0, order.column ? keys.keyOf(*row) : std::string_view(), row->m_arrival, row});
    sortEntries(entries, order.isDescending);
    std::vector<bool> differs(entries.size(), true);
    for (size_t place = 0; place < entries.size(); ++place)
        differs[place] = place == 0 || !isSame(entries[place - 1], entries[place]);
    for (size_t place = 0; place < entries.size(); ++place)
        m_rows[place] = entries[place].row;
    m_placed = m_rows.size();
    m_movedUp = anywhere;
    m_differs = std::move(differs);
    m_order = order;
    m_areNumbers = byNumbers;
    m_filtered.forget();
}

void RowModel::placeAddedLast() noexcept
{
    m_placed = m_rows.size();
    m_order.reset();
    m_filtered.forget();
}

void RowModel::placeAdded(const RowOrder& order)
{
    closeGaps();
    if (!hasAdded())
        return;
    if (!order.column) {
        placeAddedLast();
        m_order.reset();
        return;
    }
    const bool byNumbers = areNumbers(*order.column);
    if (m_placed == 0 || byNumbers != m_areNumbers)
        return sort(order); // those that are there stand in no such order
    OrderKeys keys(*order.column, byNumbers);
    std::vector<Entry> added;
    added.reserve(m_rows.size() - m_placed);
    for (size_t slot = m_placed; slot < m_rows.size(); ++slot)
        added.push_back({0, keys.keyOf(*m_rows[slot]), m_rows[slot]->m_arrival, m_rows[slot]});
    sortEntries(added, order.isDescending);
    std::vector<size_t> places;
    places.reserve(added.size());
    for (const Entry& entry : added)
        places.push_back(placeFor(places.empty() ? 0 : places.back(), m_placed, [&](size_t place) {
            const int compared = entry.key.compare(keys.passingKeyOf(*m_rows[place]));
            return order.isDescending ? compared > 0 : compared < 0;
        }));
    // From the end on, so that each row moves once.
    auto end = m_rows.begin() + static_cast<std::ptrdiff_t>(m_placed);
    for (size_t number = added.size(); number-- > 0;) {
        const auto place = m_rows.begin() + static_cast<std::ptrdiff_t>(places[number]);
        const auto movedTo = std::move_backward(place, end, end + static_cast<std::ptrdiff_t>(number + 1));
        *(movedTo - 1) = added[number].row;
        added[number].row->m_slot = static_cast<uint32_t>(places[number] + number);
        end = place;
    }
    m_movedDown += added.size();
    placeAddedLast();
    m_order.reset();
}

} // namespace velk
