// The log, and the IDEs that are running.
// Tested in tests/tools/doctor/machine/surroundingsTest.cpp.
#include "addin/traceTarget.h"
#include "base/paths.h"
#include "base/text.h"
#include "base/unique_any.h"
#include "files.h"
#include "gather.h"
#include "judgements.h"
#include "logLines.h"

#include <tlhelp32.h>

#include <array>
#include <product.h>

namespace velk::doctor {
namespace {

constexpr size_t settingRoom = 1024; // characters, as the add-in has it
constexpr size_t readOfLog = 256 * 1024;
constexpr size_t mostFailures = 5;
constexpr UINT answerTime = 3000;     // milliseconds
constexpr size_t longestPath = 32768; // characters

struct snapshot_traits {
    using Handle = HANDLE;
    static Handle empty() noexcept { return INVALID_HANDLE_VALUE; }
    static void close(Handle snapshot) noexcept { CloseHandle(snapshot); }
};
using Snapshot = unique_any<snapshot_traits>;
struct file_traits : snapshot_traits {};

// "2026-11-22 08:00:00.000 where: 53 (0x800A0035) File not found": what tells a failure has a result in brackets.
bool tellsFailure(const std::wstring& line)
{
    constexpr size_t digits = 8;
    const size_t mark = line.find(L" (0x");
    return mark != std::wstring::npos && line.size() > mark + 4 + digits && line[mark + 4 + digits] == L')' &&
           line.substr(mark + 4, digits).find_first_not_of(L"0123456789ABCDEF") == std::wstring::npos;
}

std::vector<std::wstring> lastFailures(const std::wstring& path)
{
    std::vector<std::wstring> failures;
    for (std::wstring& line : logLines(path, readOfLog))
        if (tellsFailure(line))
            failures.push_back(std::move(line));
    if (failures.size() > mostFailures)
        failures.erase(failures.begin(), failures.end() - mostFailures);
    return failures;
}

// Why the log cannot be written; a file that is not there is tried by another one, which goes at once.
DWORD writeCode(const LogFacts& log)
{
    constexpr DWORD everybody = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;
    const std::wstring trial = log.path + L".velkdoctor";
    const unique_any<file_traits> file(
        log.isThere || isFolder(log.path)
            ? CreateFileW(log.path.c_str(), FILE_APPEND_DATA, everybody, nullptr, OPEN_EXISTING, 0, nullptr)
            : CreateFileW(trial.c_str(), FILE_APPEND_DATA | DELETE, everybody, nullptr, CREATE_NEW,
                          FILE_FLAG_DELETE_ON_CLOSE, nullptr));
    return file ? 0 : GetLastError();
}

// A process that loads a library just then is to be asked again.
Snapshot modulesOf(DWORD process)
{
    constexpr int mostTries = 20;
    Snapshot snapshot;
    for (int tries = 0; tries < mostTries; ++tries) {
        snapshot.reset(CreateToolhelp32Snapshot(TH32CS_SNAPMODULE, process));
        if (snapshot || GetLastError() != ERROR_BAD_LENGTH)
            break;
        Sleep(10);
    }
    return snapshot;
}

// The path of a program that does not let itself be looked into, such as one for 64 bits; Windows XP does not tell it.
void readPath(IdeProcess& process)
{
    constexpr DWORD limitedInformation = 0x1000;
    using Routine = BOOL(WINAPI*)(HANDLE, DWORD, wchar_t*, DWORD*);
    const auto query = reinterpret_cast<Routine>(
        reinterpret_cast<void*>(GetProcAddress(GetModuleHandleW(L"kernel32.dll"), "QueryFullProcessImageNameW")));
    const unique_kernel_handle opened(OpenProcess(limitedInformation, FALSE, process.id));
    std::wstring path(longestPath, L'\0');
    auto length = static_cast<DWORD>(path.size());
    if (query && opened && query(opened.get(), 0, path.data(), &length))
        process.path = path.substr(0, length);
}

void readModules(IdeProcess& process)
{
    const Snapshot snapshot = modulesOf(process.id);
    MODULEENTRY32W module{};
    module.dwSize = sizeof module;
    if (!snapshot || !Module32FirstW(snapshot.get(), &module))
        return;
    process.areModulesKnown = true;
    process.path = module.szExePath;
    while (Module32NextW(snapshot.get(), &module)) {
        if (isSameText(module.szModule, L"" VELK_PRODUCT_FILE))
            process.addins.push_back(plainPath(module.szExePath));
        if (isSameText(module.szModule, backendName))
            process.libraries.push_back(plainPath(module.szExePath));
    }
}

struct MainWindow {
    DWORD process;
    HWND found;
};

BOOL CALLBACK findMainWindow(HWND window, LPARAM search) noexcept
{
    auto& wanted = *reinterpret_cast<MainWindow*>(search);
    DWORD process = 0;
    GetWindowThreadProcessId(window, &process);
    if (process != wanted.process || !IsWindowVisible(window) || GetWindow(window, GW_OWNER))
        return TRUE;
    wanted.found = window;
    return FALSE;
}

void askWindow(IdeProcess& process)
{
    MainWindow search{process.id, nullptr};
    EnumWindows(findMainWindow, reinterpret_cast<LPARAM>(&search));
    process.hasWindow = search.found != nullptr;
    DWORD_PTR result = 0;
    process.answers = process.hasWindow &&
                      SendMessageTimeoutW(search.found, WM_NULL, 0, 0, SMTO_ABORTIFHUNG, answerTime, &result) != 0;
}

} // namespace

bool isIdeProgram(const std::wstring& path, const Options& options)
{
    return options.isIdeNamed || fileVersion(path).starts_with(L"6.");
}

void gatherLog(Facts& facts, const Options&)
{
    LogFacts& log = facts.log;
    std::array<wchar_t, settingRoom> variable{};
    log.isFromEnvironment =
        GetEnvironmentVariableW(traceVariable, variable.data(), static_cast<DWORD>(variable.size())) != 0;
    log.setting = readValue(HKEY_CURRENT_USER, traceKey, traceValue);
    // The add-in does not put variables in.
    const std::wstring setting = log.isFromEnvironment ? std::wstring(variable.data()) : log.setting.written;
    const TraceTarget target = traceTarget(setting);
    log.path = target.path;
    log.isFiner = target.isFiner;
    log.isFullPath = isFullyQualified(log.path);
    log.hasFolder = isFolder(parentDir(log.path) + L"\\");
    log.isThere = isFile(log.path);
    if (!log.isFullPath || !log.hasFolder)
        return;
    log.writeCode = writeCode(log);
    if (!log.isThere)
        return;
    log.failures = lastFailures(log.path);
    log.host = lastReportOfHost(log.path);
}

void gatherRunning(Facts& facts, const Options& options)
{
    facts.running.program = options.ide;
    const Snapshot snapshot(CreateToolhelp32Snapshot(TH32CS_SNAPPROCESS, 0));
    PROCESSENTRY32W entry{};
    entry.dwSize = sizeof entry;
    for (BOOL isMore = snapshot ? Process32FirstW(snapshot.get(), &entry) : FALSE; isMore;
         isMore = Process32NextW(snapshot.get(), &entry)) {
        if (!isSameText(entry.szExeFile, options.ide))
            continue;
        IdeProcess process;
        process.id = entry.th32ProcessID;
        process.path = entry.szExeFile;
        readModules(process);
        if (!process.areModulesKnown)
            readPath(process);
        if (isFullyQualified(process.path) && !isIdeProgram(process.path, options))
            continue;
        askWindow(process);
        facts.running.processes.push_back(std::move(process));
    }
}

} // namespace velk::doctor
