#pragma once

#include <string>
#include <string_view>

namespace velk::trace {

// The add-in's own log: a text file that is off unless the user switched it on. It is how a user finds out why the
// add-in did not load. Lines name functions, members, error numbers and a failure's own words, never what was passed to
// them: no password and no row of the user's data can get into it.
// clang-format off
enum class Level { off = 0, failures = 1, calls = 2 };
// clang-format on

// Begins the log with a first line; nothing when the file cannot be written. One for the process.
void open(const std::wstring& path, Level level, std::wstring_view firstLine) noexcept;
void close() noexcept;
bool isOn(Level level) noexcept;

// Appends a line with the time, if the log is that fine. A file that has grown to a megabyte becomes "<file>.old" and
// is begun anew, so that the log never takes more than two.
void write(Level level, std::wstring_view line) noexcept;

} // namespace velk::trace
