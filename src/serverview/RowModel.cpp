#include "serverview/RowModel.h"

#include "platform/error.h"

namespace velk {

std::optional<size_t> RowModel::find(const std::wstring& key) const
{
    const auto found = m_index.find(key);
    if (found == m_index.end())
        return std::nullopt;
    return found->second;
}

void RowModel::add(Row row)
{
    if (!m_index.try_emplace(row.key, m_rows.size()).second)
        throw Error(errorKeyNotUnique);
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
    for (size_t index = place; index < m_rows.size(); ++index)
        m_index[m_rows[index].key] = index;
    return place;
}

void RowModel::clear() noexcept
{
    m_rows.clear();
    m_index.clear();
}

} // namespace velk
