#pragma once

#include "window/list_view.h"

#include <optional>
#include <string>
#include <vector>

namespace velk {

// The numbers of a list's columns, as they stand from left to right; and the text of a column's header.
std::vector<int> columnsFromLeft(const ListView& list);
std::wstring headerOf(const ListView& list, int column);
void setColumnsFromLeft(const ListView& list, const std::vector<int>& columns);
// The width of the arrow in a column's header, with the room beside it, in pixels; 0 without one.
int headerMarkWidth(const ListView& list, int column) noexcept;
// The column at a place of the screen (pixels); -1 for none.
int columnAt(const ListView& list, POINT place) noexcept;

// The header's window, and what it says to its list, if a message to the list is that. Of what all controls say only
// the kind is there.
HWND headerOf(const ListView& list) noexcept;
std::optional<NMHEADERW> headerNotification(const ListView& list, UINT message, LPARAM lParam) noexcept;

} // namespace velk
