#pragma once

#include "window/list_view.h"

#include <optional>
#include <vector>

// The header of a list in report mode.
namespace velk {

HWND headerOf(const ListView& list) noexcept;
// The columns from left to right.
std::vector<int> columnOrder(const ListView& list);
void setColumnOrder(const ListView& list, const std::vector<int>& columns);
// The column at a place of the screen (pixels); -1 for none.
int columnAt(const ListView& list, POINT place) noexcept;

// What the header says to its list, if a message to the list is that. Of what all controls say only the kind is there.
std::optional<NMHEADERW> headerNotification(const ListView& list, UINT message, LPARAM lParam) noexcept;

} // namespace velk
