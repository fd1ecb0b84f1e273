#include "checkerRun.h"

#include "checker/files.h"

namespace velk::test {
namespace {

constexpr DWORD longestRun = 280'000; // milliseconds

std::string between(const std::string& text, const std::string& from, const std::string& to)
{
    const size_t begin = text.find(from);
    const size_t end = begin == std::string::npos ? begin : text.find(to, begin);
    return begin == std::string::npos ? std::string() : text.substr(begin, end - begin);
}

// What follows each "name": " in a text.
std::set<std::string> values(const std::string& text, const std::string& before)
{
    std::set<std::string> found;
    for (size_t at = text.find(before); at != std::string::npos; at = text.find(before, at + 1)) {
        const size_t begin = at + before.size();
        found.insert(text.substr(begin, text.find('"', begin) - begin));
    }
    return found;
}

} // namespace

std::wstring fullPath(const std::wstring& path)
{
    return check::wholePath(path);
}

CheckerRun::CheckerRun(const std::wstring& name, const std::wstring& arguments) : m_output(fullPath(name + L".json"))
{
    SECURITY_ATTRIBUTES inherited{sizeof inherited, nullptr, TRUE};
    const unique_kernel_handle out(CreateFileW(m_output.c_str(), GENERIC_WRITE, FILE_SHARE_READ | FILE_SHARE_WRITE,
                                               &inherited, CREATE_ALWAYS, 0, nullptr));
    std::wstring command = L"\"" + fullPath(VELK_BIN) + L"\\velkcheck.exe\" --json --quiet " + arguments;
    STARTUPINFOW start{};
    start.cb = sizeof start;
    start.dwFlags = STARTF_USESTDHANDLES;
    start.hStdOutput = start.hStdError = out.get();
    PROCESS_INFORMATION process{};
    if (CreateProcessW(nullptr, command.data(), nullptr, nullptr, TRUE, 0, nullptr, nullptr, &start, &process))
        CloseHandle(process.hThread);
    m_process.reset(process.hProcess);
    m_id = process.dwProcessId;
}

DWORD CheckerRun::exitCode()
{
    DWORD code = MAXDWORD;
    if (WaitForSingleObject(m_process.get(), longestRun) == WAIT_OBJECT_0)
        GetExitCodeProcess(m_process.get(), &code);
    else
        TerminateProcess(m_process.get(), 1);
    return code;
}

std::string CheckerRun::report()
{
    exitCode();
    const auto bytes = check::readFile(m_output);
    return bytes ? std::string(bytes->begin(), bytes->end()) : std::string();
}

void CheckerRun::end() noexcept
{
    TerminateProcess(m_process.get(), 1);
    WaitForSingleObject(m_process.get(), longestRun);
}

bool CheckerRun::isRunning() const
{
    return WaitForSingleObject(m_process.get(), 0) == WAIT_TIMEOUT;
}

std::set<std::string> foundRules(const std::string& report)
{
    return values(between(report, "\"findings\": [", "\"slowest\""), "{\"rule\": \"");
}

std::set<std::string> rulesThat(const std::string& report, const std::string& outcome)
{
    std::set<std::string> rules;
    const std::string part = between(report, "\"rules\": [", "\"findings\"");
    for (size_t at = part.find("{\"rule\""); at != std::string::npos; at = part.find("{\"rule\"", at + 1)) {
        const std::string one = part.substr(at, part.find('\n', at) - at);
        if (one.find("\"outcome\": \"" + outcome + "\"") != std::string::npos)
            rules.merge(values(one, "{\"rule\": \""));
    }
    return rules;
}

} // namespace velk::test
