#include "serverview/RowModel.h"

#include "base/error.h"

#include <algorithm>
#include <cwchar>
#include <cwctype>

namespace velk {

std::optional<size_t> RowModel::find(const std::wstring& key) const
{
    const auto found = m_index.find(key);
    if (found == m_index.end())
        return std::nullopt;
    return found->second;
}

std::optional<size_t> RowModel::findName(const std::wstring& beginning, size_t from) const
{
    for (size_t index = from; index < m_rows.size(); ++index)
        if (_wcsnicmp(m_rows[index].cells.at(0).c_str(), beginning.c_str(), beginning.size()) == 0)
            return index;
    return std::nullopt;
}

void RowModel::add(Row row)
{
    if (!m_index.try_emplace(row.key, m_rows.size()).second)
        throw Error(errorKeyNotUnique);
    row.arrival = ++m_lastArrival;
    m_rows.push_back(std::move(row));
}

size_t RowModel::remove(const std::wstring& key)
{
    const auto found = m_index.find(key);
    if (found == m_index.end())
        throw Error(errorElementNotFound);
    const size_t place = found->second;
    m_index.erase(found);
    m_rows.erase(m_rows.begin() + static_cast<std::ptrdiff_t>(place));
    renumber(place);
    return place;
}

void RowModel::clear() noexcept
{
    m_rows.clear();
    m_index.clear();
}

void RowModel::renumber(size_t from)
{
    for (size_t index = from; index < m_rows.size(); ++index)
        m_index.find(m_rows[index].key)->second = index;
}

} // namespace velk
