#pragma once

#include "checks.h"
#include "exitCodes.h"
#include "mend.h"

#include <string>
#include <vector>

namespace velk::doctor {

// All that one run has to say.
struct Report {
    std::vector<Mended> mended; // what --fix did
    std::vector<Finding> findings;
    bool isAdministrator = false;
};

ExitCode exitCodeOf(const Report& report) noexcept;
// One line a check, and the last sentence. What stands behind a line follows it, indented: of complaints, or of all.
enum class Details { ofComplaints, ofAll };
std::wstring linesOf(const Report& report, Details details);
// One object.
std::wstring jsonOf(const Report& report);

} // namespace velk::doctor
