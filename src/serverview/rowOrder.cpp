// The order of the rows: by a column, or as the Backend gave them.
// Tested in tests/unit/serverview/RowModelTest.cpp.

#include "base/text.h"
#include "serverview/RowModel.h"

#include "base/win32.h"

#include <algorithm>
#include <numeric>

namespace velk {
namespace {

bool isWholeNumber(const std::wstring& text)
{
    const size_t sign = text.starts_with(L'-') ? 1 : 0;
    constexpr size_t mostDigits = 10;
    return text.size() > sign && text.size() <= sign + mostDigits &&
           text.find_first_not_of(L"0123456789", sign) == std::wstring::npos;
}

const std::wstring& cellOf(const Row& row, size_t column)
{
    static const std::wstring nothing;
    return column < row.cells.size() ? row.cells[column] : nothing;
}

// Comparing precomputed keys is many times faster than comparing the texts themselves by language.
std::string sortKeyOf(const std::wstring& text)
{
    constexpr DWORD flags = LCMAP_SORTKEY | NORM_IGNORECASE;
    const int length = static_cast<int>(text.size());
    // The length of the result counts bytes here, although its type is a text's.
    const int size = LCMapStringW(LOCALE_USER_DEFAULT, flags, text.c_str(), length, nullptr, 0);
    std::string key(static_cast<size_t>(size), '\0');
    LCMapStringW(LOCALE_USER_DEFAULT, flags, text.c_str(), length, reinterpret_cast<wchar_t*>(key.data()), size);
    return key;
}

// What a row is ordered by.
struct OrderKey {
    double number = 0;
    std::string text;
    uint32_t arrival = 0;
};

// Gives the keys of rows for one order; numbers are numbers only if all cells of the column are.
class KeyMaker {
public:
    KeyMaker(const std::vector<Row>& rows, const RowOrder& order) : m_order(order)
    {
        m_areNumbers = order.column && std::all_of(rows.begin(), rows.end(), [&](const Row& row) {
                           return isWholeNumber(cellOf(row, *order.column));
                       });
    }
    OrderKey operator()(const Row& row) const
    {
        OrderKey key;
        key.arrival = row.arrival;
        if (m_areNumbers)
            key.number = leadingNumber(cellOf(row, *m_order.column));
        else if (m_order.column)
            key.text = sortKeyOf(cellOf(row, *m_order.column));
        return key;
    }
    bool isBefore(const OrderKey& left, const OrderKey& right) const
    {
        if (left.number != right.number)
            return (left.number < right.number) != m_order.isDescending;
        if (const int compared = left.text.compare(right.text); compared != 0)
            return (compared < 0) != m_order.isDescending;
        return left.arrival < right.arrival;
    }

private:
    const RowOrder m_order;
    bool m_areNumbers = false;
};

} // namespace

void RowModel::sort(const RowOrder& order)
{
    const KeyMaker keyOf(m_rows, order);
    std::vector<OrderKey> keys;
    keys.reserve(m_rows.size());
    for (const Row& row : m_rows)
        keys.push_back(keyOf(row));
    std::vector<size_t> places(m_rows.size());
    std::iota(places.begin(), places.end(), size_t{0});
    std::sort(places.begin(), places.end(),
              [&](size_t left, size_t right) { return keyOf.isBefore(keys[left], keys[right]); });
    std::vector<Row> sorted;
    sorted.reserve(m_rows.size());
    for (const size_t place : places)
        sorted.push_back(std::move(m_rows[place]));
    m_rows = std::move(sorted);
    renumber(0);
}

size_t RowModel::placeLast(const RowOrder& order)
{
    if (!order.column || m_rows.size() < 2)
        return m_rows.size() - 1;
    const KeyMaker keyOf(m_rows, order);
    const OrderKey added = keyOf(m_rows.back());
    const auto last = m_rows.end() - 1;
    const auto place = std::upper_bound(m_rows.begin(), last, added, [&](const OrderKey& key, const Row& row) {
        return keyOf.isBefore(key, keyOf(row));
    });
    const auto index = static_cast<size_t>(place - m_rows.begin());
    std::rotate(place, last, m_rows.end());
    renumber(index);
    return index;
}

} // namespace velk
