#pragma once

#include <string>

namespace velk {

// Pictures of the doctor's window, with a report that is made up: in the usual font and in a large one.
void doctorWindows(const std::wstring& folder);

} // namespace velk
