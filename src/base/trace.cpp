#include "base/trace.h"

#include "base/boundary.h"
#include "base/never_destroyed.h"
#include "base/unique_any.h"

#include <cstdio>

namespace velk::trace {
namespace {

// Two hosts may write to one log, and either may begin it anew.
constexpr DWORD everybody = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;
constexpr DWORD mostBytes = 1024 * 1024;

struct file_traits {
    using Handle = HANDLE;
    static Handle empty() noexcept { return INVALID_HANDLE_VALUE; }
    static void close(Handle file) noexcept { CloseHandle(file); }
};

struct Log {
    std::wstring path;
    Level level = Level::off;
    unique_any<file_traits> file;
};

Log& log()
{
    static never_destroyed<Log> only;
    return only.get();
}

void openFile()
{
    log().file.reset(CreateFileW(log().path.c_str(), FILE_APPEND_DATA, everybody, nullptr, OPEN_ALWAYS,
                                 FILE_ATTRIBUTE_NORMAL, nullptr));
}

void makeRoom()
{
    if (GetFileSize(log().file.get(), nullptr) < mostBytes)
        return;
    log().file.reset();
    // A log that cannot be put aside ends here: it must not grow without bound.
    if (MoveFileExW(log().path.c_str(), (log().path + L".old").c_str(), MOVEFILE_REPLACE_EXISTING))
        openFile();
    if (!log().file)
        log().level = Level::off;
}

std::wstring timeText()
{
    SYSTEMTIME now{};
    GetLocalTime(&now);
    wchar_t text[40];
    wsprintfW(text, L"%04u-%02u-%02u %02u:%02u:%02u.%03u ", now.wYear, now.wMonth, now.wDay, now.wHour, now.wMinute,
              now.wSecond, now.wMilliseconds);
    return text;
}

void append(const std::wstring& line)
{
    const int length = static_cast<int>(line.size());
    std::string bytes(line.size() * 3, '\0');
    const int size = WideCharToMultiByte(CP_UTF8, 0, line.data(), length, bytes.data(), static_cast<int>(bytes.size()),
                                         nullptr, nullptr);
    DWORD written = 0;
    WriteFile(log().file.get(), bytes.data(), static_cast<DWORD>(size), &written, nullptr);
}

} // namespace

void open(const std::wstring& path, Level level, std::wstring_view firstLine) noexcept
{
    close();
    if (path.empty() || level == Level::off)
        return;
    swallow(L"trace", L"the add-in works without its log", [&] {
        log().path = path;
        openFile();
        log().level = log().file ? level : Level::off;
    });
    write(Level::failures, firstLine);
}

void close() noexcept
{
    log().level = Level::off;
    log().file.reset();
    log().path = std::wstring();
}

bool isOn(Level level) noexcept
{
    return log().level >= level;
}

void write(Level level, std::wstring_view line) noexcept
{
    if (!isOn(level))
        return;
    try {
        makeRoom();
        append(timeText() + std::wstring(line) + L"\r\n");
    } catch (const std::exception&) {
        // A line that does not fit into memory is not worth more: telling of it would come back here.
        return;
    }
}

} // namespace velk::trace
