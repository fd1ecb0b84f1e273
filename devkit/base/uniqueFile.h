#pragma once

#include "base/unique_any.h"

namespace velk::devkit {

struct file_traits {
    using Handle = HANDLE;
    static HANDLE empty() noexcept { return INVALID_HANDLE_VALUE; }
    static void close(HANDLE file) noexcept { CloseHandle(file); }
};
struct search_traits : file_traits {
    static void close(HANDLE search) noexcept { FindClose(search); }
};

// An open file; empty when it could not be opened.
using unique_file = unique_any<file_traits>;
// A search for files by a pattern.
using unique_search = unique_any<search_traits>;

} // namespace velk::devkit
