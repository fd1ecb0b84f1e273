#pragma once

#include "serverview/RowModel.h"

#include <gmock/gmock.h>

#include <string>
#include <vector>

namespace velk::test {

using Handles = std::vector<int32_t>;
using Texts = std::vector<std::wstring>;

inline Row::Owner row(int32_t handle, const Texts& cells, const std::wstring& tag = {}, RowLooks looks = {})
{
    const std::vector<std::wstring_view> views(cells.begin(), cells.end());
    return Row::make(handle, views, tag, looks);
}

inline Handles handlesOf(const RowModel& rows)
{
    Handles handles;
    for (size_t place = 0; place < rows.size(); ++place)
        handles.push_back(rows.at(place).handle());
    return handles;
}

// Puts rows behind the others that are there.
inline void addRows(RowModel& rows, const Handles& handles)
{
    for (const int32_t handle : handles)
        rows.add(row(handle, {L"name of " + std::to_wstring(handle)}));
    rows.placeAddedLast();
}

} // namespace velk::test
