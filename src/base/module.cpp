// Tested in tests/system/unloadTest.cpp.
#include "base/module.h"

#include "base/error.h"
#include "base/paths.h"

#include <atomic>

namespace velk::module {
namespace {

std::atomic<long> locks{0};

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

long lockCount() noexcept
{
    return locks;
}

} // namespace velk::module
