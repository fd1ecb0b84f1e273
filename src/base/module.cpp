// Tested in tests/system/unloadTest.cpp.
#include "base/module.h"

#include "base/error.h"
#include "base/paths.h"

#include <atomic>

namespace velk::module {
namespace {

std::atomic<long> locks{0};
std::atomic<DWORD> owner{0}; // a thread; 0: none yet

} // namespace

HINSTANCE instance() noexcept
{
    HMODULE found = nullptr;
    GetModuleHandleExW(GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT,
                       reinterpret_cast<LPCWSTR>(&locks), &found);
    return found;
}

std::wstring path()
{
    std::wstring text(MAX_PATH, L'\0');
    for (;;) {
        const DWORD length = GetModuleFileNameW(instance(), text.data(), static_cast<DWORD>(text.size()));
        throwLastErrorUnless(length != 0);
        if (length < text.size()) {
            text.resize(length);
            return text;
        }
        text.resize(text.size() * 2);
    }
}

std::wstring folder()
{
    return parentDir(path());
}

void lock() noexcept
{
    ++locks;
}

void unlock() noexcept
{
    --locks;
}

bool isOwnThread() noexcept
{
    if (locks == 1) // the asker's own
        owner = GetCurrentThreadId();
    return owner == GetCurrentThreadId();
}

long lockCount() noexcept
{
    return locks;
}

} // namespace velk::module
