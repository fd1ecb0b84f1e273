#pragma once

namespace velk::doctor {

enum ExitCode : int { exitGood, exitWarning, exitWrong, exitNotFixed, exitUsage, exitFailed };

struct ExitCodeRow {
    ExitCode code;
    const wchar_t* help;
};
// clang-format off
inline constexpr ExitCodeRow exitCodeRows[] = {
    {exitGood,     L"nothing to complain of"},
    {exitWarning,  L"warnings: the add-in can work"},
    {exitWrong,    L"something is wrong: the add-in cannot work as it is"},
    {exitNotFixed, L"--fix could not do all that it may do"},
    {exitUsage,    L"the command line is not understood"},
    {exitFailed,   L"the doctor itself failed"},
};
// clang-format on

} // namespace velk::doctor
