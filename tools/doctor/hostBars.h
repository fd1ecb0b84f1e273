#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace velk::doctor {

// What the log's line of the command bars tells (src/com/host_report.h writes it).
struct HostBar {
    std::wstring number;
    bool hasName = false;
    std::wstring words; // its name, or why that could not be had
};
struct HostBars {
    std::vector<HostBar> bars;
    std::wstring entry; // the number of the one that gets the entry
};
// Nothing for a line that is not wholly one.
std::optional<HostBars> readHostBars(std::wstring_view line);

} // namespace velk::doctor
