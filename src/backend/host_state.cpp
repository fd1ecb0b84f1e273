// Tested in tests/unit/backend/callsHostileTest.cpp.
#include "backend/host_state.h"

#include <algorithm>
#include <clocale>
#include <cstring>
#include <cwchar>

namespace velk {
namespace {

std::array<wchar_t, MAX_PATH> currentFolder() noexcept
{
    std::array<wchar_t, MAX_PATH> folder{};
    if (GetCurrentDirectoryW(MAX_PATH, folder.data()) >= MAX_PATH)
        folder[0] = L'\0';
    return folder;
}

std::array<char, 256> runTimeLocale() noexcept
{
    std::array<char, 256> locale{};
    const char* const name = std::setlocale(LC_ALL, nullptr);
    if (name && std::strlen(name) < locale.size())
        std::copy_n(name, std::strlen(name), locale.begin());
    return locale;
}

// Windows XP can only set it, and tells what it was.
UINT errorMode() noexcept
{
    const UINT mode = SetErrorMode(SEM_FAILCRITICALERRORS);
    SetErrorMode(mode);
    return mode;
}

} // namespace

HostState::HostState() noexcept
    : m_folder(currentFolder()), m_runTimeLocale(runTimeLocale()), m_errorMode(errorMode()),
      m_threadLocale(GetThreadLocale())
{
}

HostState::~HostState()
{
    if (m_folder[0] && std::wcscmp(currentFolder().data(), m_folder.data()) != 0)
        SetCurrentDirectoryW(m_folder.data());
    SetErrorMode(m_errorMode);
    if (GetThreadLocale() != m_threadLocale)
        SetThreadLocale(m_threadLocale);
    if (m_runTimeLocale[0] && std::strcmp(runTimeLocale().data(), m_runTimeLocale.data()) != 0)
        std::setlocale(LC_ALL, m_runTimeLocale.data());
}

} // namespace velk
