#pragma once

#include "serverview/Row.h"

#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace velk {

// What a user writes to see only some rows: words and phrases, each of which a row must have in any cell, or must not
// have. Capitals and small letters are alike.
//
//   order              a word; blanks part words
//   "of the orders"    a phrase, which may hold blanks; its end may be missing
//   schema:sales       only in the column of that header ("sql package":p); with another word before it the colon is a
//                      character like others
//   -draft             not that; -schema:sales, -"of the orders" likewise
//
// In quotes, the minus and the colon are characters, too. What is not finished (a minus, a header with its colon, a
// quote, and nothing behind it) says nothing yet, and leaves the rows as they are without it.
class RowFilter {
public:
    // Lets every row through.
    RowFilter() noexcept = default;
    RowFilter(std::wstring_view text, std::span<const std::wstring> headers);

    bool isEmpty() const noexcept { return m_terms.empty(); }
    bool matches(const Row& row) const noexcept;
    // Whether it is known to let nothing through that the other one does not: a user who writes on looks for less and
    // less.
    bool isWithin(const RowFilter& other) const noexcept;

private:
    struct Term {
        std::wstring word; // as the table folds it
        std::optional<size_t> column;
        bool isExcluded = false;
        bool implies(const Term& other) const noexcept;
    };
    struct Scanned;
    void add(const Scanned& scanned, std::span<const std::wstring> headers);
    std::optional<size_t> columnOf(std::wstring_view header, std::span<const std::wstring> headers) const;
    std::wstring folded(std::wstring_view text) const;
    bool begins(const wchar_t* place, std::wstring_view word) const noexcept;
    size_t find(std::wstring_view text, std::wstring_view word, size_t from) const noexcept;
    bool isInACell(const Row& row, std::wstring_view word) const noexcept;

    std::vector<Term> m_terms;
    std::vector<wchar_t> m_folds; // for each character the one that stands for all its like
};

} // namespace velk
