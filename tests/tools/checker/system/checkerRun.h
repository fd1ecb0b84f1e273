#pragma once

#include "base/unique_any.h"

#include <set>
#include <string>

namespace velk::test {

std::wstring fullPath(const std::wstring& path);

// One run of the checker, which goes on while others do.
class CheckerRun {
public:
    // Begins it; the report is JSON, and what it says goes into a file of that name.
    CheckerRun(const std::wstring& name, const std::wstring& arguments);
    CheckerRun(const CheckerRun&) = delete;
    CheckerRun& operator=(const CheckerRun&) = delete;

    // Waits until it has ended.
    DWORD exitCode();
    std::string report();
    bool isRunning() const;
    void end() noexcept;                       // before its time
    DWORD id() const noexcept { return m_id; } // of its process

private:
    std::wstring m_output;
    unique_kernel_handle m_process;
    DWORD m_id = 0;
};

// The numbers of the rules that a report has findings of.
std::set<std::string> foundRules(const std::string& report);
// Those of an outcome: "holds", "not checked".
std::set<std::string> rulesThat(const std::string& report, const std::string& outcome);

} // namespace velk::test
