#pragma once

#include "serverview/Row.h"

#include <array>
#include <memory>
#include <string_view>
#include <vector>

namespace velk {

// A cell that is a whole number orders by its value where all cells of its column are such.
bool isWholeNumber(std::wstring_view text) noexcept;

// Gives the bytes by which the rows are ordered in one column. Comparing them is many times faster than comparing the
// texts themselves by language.
class OrderKeys {
public:
    OrderKeys(size_t column, bool areNumbers) noexcept : m_column(column), m_areNumbers(areNumbers) {}

    // The bytes live as long as this object.
    std::string_view keyOf(const Row& row);
    // For a comparison only: the bytes live until the next call.
    std::string_view passingKeyOf(const Row& row);

private:
    std::string_view make(std::wstring_view text);
    char* room(size_t size);

    // Columns often have few different texts: those that came last are not made again.
    struct Known {
        const wchar_t* place = nullptr;
        size_t length = 0;
        std::string_view key;
    };
    Known& knownLike(std::wstring_view text) noexcept;

    const size_t m_column;
    const bool m_areNumbers;
    std::array<Known, 256> m_known;
    std::vector<std::unique_ptr<char[]>> m_blocks;
    size_t m_used = 0;
    size_t m_size = 0; // of the last block
};

} // namespace velk
