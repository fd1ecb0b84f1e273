// Tested in tests/tools/doctor/machine/programTest.cpp.
#include "output.h"

#include "base/boundary.h"
#include "utf8.h"

#include <algorithm>

namespace velk::doctor {
namespace {

bool isUsable(HANDLE handle) noexcept
{
    return handle && handle != INVALID_HANDLE_VALUE && GetFileType(handle) != FILE_TYPE_UNKNOWN;
}

bool isConsole(HANDLE handle) noexcept
{
    DWORD mode = 0;
    return GetConsoleMode(handle, &mode) != FALSE;
}

// A console of an older Windows takes some ten thousand characters at once.
void writeToConsole(HANDLE console, std::wstring_view text)
{
    constexpr size_t most = 8000;
    while (!text.empty()) {
        const size_t lineEnd = text.substr(0, most).rfind(L'\n');
        const size_t length = lineEnd == std::wstring_view::npos ? std::min(text.size(), most) : lineEnd + 1;
        DWORD written = 0;
        throwLastErrorUnless(WriteConsoleW(console, text.data(), static_cast<DWORD>(length), &written, nullptr) !=
                             FALSE);
        text.remove_prefix(length);
    }
}

void writeToStream(HANDLE stream, const std::wstring& text)
{
    const std::string bytes = toUtf8(text);
    std::string_view rest = bytes;
    while (!rest.empty()) {
        DWORD written = 0;
        throwLastErrorUnless(WriteFile(stream, rest.data(), static_cast<DWORD>(rest.size()), &written, nullptr) !=
                             FALSE);
        if (written == 0)
            throw Error::fromWin32(ERROR_DISK_FULL);
        rest.remove_prefix(written);
    }
}

} // namespace

Output::Output() noexcept
{
    // A window program gets no console of its own; what its output was directed to it has from the beginning.
    m_handle = GetStdHandle(STD_OUTPUT_HANDLE);
    if (isUsable(m_handle)) {
        m_kind = isConsole(m_handle) ? Kind::console : Kind::stream;
        return;
    }
    if (!AttachConsole(ATTACH_PARENT_PROCESS))
        return;
    m_handle = CreateFileW(L"CONOUT$", GENERIC_READ | GENERIC_WRITE, FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr,
                           OPEN_EXISTING, 0, nullptr);
    m_kind = isUsable(m_handle) ? Kind::console : Kind::none;
    // The prompt stands there already.
    if (isThere())
        swallow(L"Output", L"what is written next tells whether it can be", [this] { write(L"\r\n"); });
}

void Output::write(const std::wstring& text) const
{
    if (m_kind == Kind::console)
        writeToConsole(m_handle, text);
    else if (m_kind == Kind::stream)
        writeToStream(m_handle, text);
}

} // namespace velk::doctor
