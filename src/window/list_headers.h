#pragma once

#include "window/list_view.h"

#include <string>
#include <vector>

namespace velk {

// The numbers of a list's columns, as they stand from left to right; and the text of a column's header.
std::vector<int> columnsFromLeft(const ListView& list);
std::wstring headerOf(const ListView& list, int column);

} // namespace velk
