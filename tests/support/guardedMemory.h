#pragma once

#include "base/win32.h"

#include <cstring>
#include <span>
#include <string_view>

namespace velk::test {

// Bytes that end where a page ends, behind which nothing may be read or written.
class GuardedMemory {
public:
    explicit GuardedMemory(std::string_view bytes)
        : m_pages(static_cast<char*>(VirtualAlloc(nullptr, 2 * page, MEM_RESERVE | MEM_COMMIT, PAGE_READWRITE))),
          m_bytes(m_pages + page - bytes.size(), bytes.size())
    {
        DWORD before = 0;
        VirtualProtect(m_pages + page, page, PAGE_NOACCESS, &before);
        std::memcpy(m_bytes.data(), bytes.data(), bytes.size());
    }
    GuardedMemory(const GuardedMemory&) = delete;
    GuardedMemory& operator=(const GuardedMemory&) = delete;
    ~GuardedMemory() { VirtualFree(m_pages, 0, MEM_RELEASE); }

    std::span<char> bytes() const noexcept { return m_bytes; }

private:
    static constexpr size_t page = 4096;
    char* m_pages;
    std::span<char> m_bytes;
};

} // namespace velk::test
