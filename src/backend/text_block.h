#pragma once

#include <cstddef>
#include <memory>

namespace velk::ansi {

// Zeroed memory for what one call of the Backend writes into. One block is kept for all calls and taken while a call
// lasts; the Backend may let another call begin inside of it, and that one has memory of its own, as has one that needs
// more than any usual call.
class TextBlock {
public:
    // Room for the largest record but the one with client code.
    static constexpr size_t keptSize = 5632;

    // Behind each block there is room that nobody asked for: a Backend that writes a little too far spoils nothing.
    static constexpr size_t slack = 256;

    explicit TextBlock(size_t size);
    TextBlock(const TextBlock&) = delete;
    TextBlock& operator=(const TextBlock&) = delete;
    ~TextBlock();

    char* get() const noexcept { return m_block; }

private:
    std::unique_ptr<char[]> m_own; // null when the kept block serves
    char* m_block;
};

} // namespace velk::ansi
