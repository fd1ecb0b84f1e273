#pragma once

#include "base/win32.h"

#include <string>

namespace velk::module {

// The module (DLL, or test program) that this code is linked into.
HINSTANCE instance() noexcept;
// Full path of that module, and its folder without a trailing backslash.
std::wstring path();
std::wstring folder();

// What keeps the DLL loaded: one lock for each living COM object, server lock, and message being handled.
void lock() noexcept;
void unlock() noexcept;
long lockCount() noexcept;

// Whether this thread is the one on which the module's objects live: the first that asks while nothing is locked, until
// nothing is locked any more. Asked with a lock held.
bool isOwnThread() noexcept;

// Keeps the module locked for a scope, for code that may outlive the object that it runs in.
class keep_loaded {
public:
    keep_loaded() noexcept { lock(); }
    keep_loaded(const keep_loaded&) = delete;
    keep_loaded& operator=(const keep_loaded&) = delete;
    ~keep_loaded() { unlock(); }
};

} // namespace velk::module
