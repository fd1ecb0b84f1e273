#pragma once

#include <optional>

namespace velk::check {

// What a child ends with when it has written down itself what ended it, and when there is nothing to be said.
inline constexpr unsigned long childTold = 0x0EC0;
inline constexpr unsigned long childDone = 0;

// A program that lets libraries be checked calls this first. In the process that was started to hold a library it does
// that work, and gives the exit code; in any other nothing.
std::optional<int> runAsChild();

} // namespace velk::check
