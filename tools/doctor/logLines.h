#pragma once

#include <string>
#include <vector>

namespace velk::doctor {

// The lines of a log of the add-in's, or of so many bytes at its end; none of a file that cannot be read.
std::vector<std::wstring> logLines(const std::wstring& path, size_t mostBytes);

// What the log, or the one before it, tells last of the host's members and command bars: the lines from their own words
// on, without the times. Empty where the log was not that fine.
std::vector<std::wstring> lastReportOfHost(const std::wstring& path);

} // namespace velk::doctor
