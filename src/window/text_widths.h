#pragma once

#include "base/unique_any.h"

#include <array>
#include <memory>
#include <string_view>

namespace velk {

// About how wide texts are in a font, without a call of the system for each: the widths of their characters added up.
// What is drawn differs where characters change each other's shape, or come from another font.
class TextWidths {
public:
    // The font must outlive this.
    explicit TextWidths(HFONT font);

    int of(std::wstring_view text) const noexcept; // pixels

private:
    static constexpr size_t pageSize = 256;
    using Page = std::array<uint16_t, pageSize>; // pixels
    const Page& page(size_t number) const noexcept;

    unique_memory_dc m_dc;
    // Of characters that share their upper byte; null for those that did not occur yet.
    mutable std::array<std::unique_ptr<Page>, pageSize> m_pages;
};

} // namespace velk
