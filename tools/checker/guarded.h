#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace velk::check {

// Memory that ends where a page ends behind which nothing may be read or written, at a multiple of four; what is left
// between its end and that page, and what stands before it, is a pattern.
class GuardedBytes {
public:
    // The name is for the report, should the page behind be touched.
    GuardedBytes(std::string name, size_t size, bool isString = false);
    GuardedBytes(const GuardedBytes&) = delete;
    GuardedBytes& operator=(const GuardedBytes&) = delete;
    ~GuardedBytes();

    char* data() const noexcept { return m_bytes; }
    size_t size() const noexcept { return m_size; }
    const std::string& name() const noexcept { return m_name; }
    bool isString() const noexcept { return m_isString; }
    bool isFrontIntact() const noexcept;
    bool isBackIntact() const noexcept;
    void mendAround() noexcept;

    // Whose page behind it holds an address; null: nobody's.
    static const GuardedBytes* behindWhich(const void* address) noexcept;

private:
    std::string m_name;
    bool m_isString;
    size_t m_size;
    size_t m_room; // in whole pages, without the page behind
    char* m_pages;
    char* m_bytes;
    GuardedBytes* m_next; // those that live make a chain
    GuardedBytes* m_previous = nullptr;
};

// What the library did to a counted string besides writing into it.
enum class Harm { none, before, prefix, behind };

// A counted string with such memory around it.
class CountedBuffer {
public:
    CountedBuffer(std::string name, size_t capacity); // that many NULs
    CountedBuffer(std::string name, std::string_view text);

    char* characters() const noexcept { return m_bytes.data() + prefix; }
    size_t capacity() const noexcept { return m_bytes.size() - prefix - 1; }
    const std::string& name() const noexcept { return m_bytes.name(); }
    void clear() noexcept; // NULs, and what stands around them as it was
    Harm harm() const noexcept;
    // Whether there is a NUL among its characters, and what stands before the first one, or all of it.
    bool hasNul() const noexcept;
    std::string_view text() const noexcept;

private:
    void writeLength() noexcept;

    static constexpr size_t prefix = sizeof(uint32_t);
    GuardedBytes m_bytes;
};

} // namespace velk::check
