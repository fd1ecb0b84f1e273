#pragma once

namespace velk::check {

// What stands before the memory's handle on the command line of a child.
inline constexpr wchar_t hiddenArgument[] = L"--velkcheck-child=";

} // namespace velk::check
