// Tested in tests/tools/doctor/machine/programTest.cpp.
#include "output.h"

#include "base/win32.h"

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
        write(L"\r\n");
}

void Output::write(const std::wstring& text) const
{
    const auto length = static_cast<DWORD>(text.size());
    DWORD written = 0;
    if (m_kind == Kind::console) {
        WriteConsoleW(m_handle, text.data(), length, &written, nullptr);
    } else if (m_kind == Kind::stream) {
        std::string bytes(text.size() * 3, '\0');
        const int size = WideCharToMultiByte(CP_UTF8, 0, text.data(), static_cast<int>(length), bytes.data(),
                                             static_cast<int>(bytes.size()), nullptr, nullptr);
        WriteFile(m_handle, bytes.data(), static_cast<DWORD>(size), &written, nullptr);
    }
}

} // namespace velk::doctor
