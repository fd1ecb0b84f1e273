// Tested in tests/forms/serverview/columnFitTest.cpp.
#include "window/text_widths.h"

#include <algorithm>
#include <new>

namespace velk {

TextWidths::TextWidths(HFONT font) : m_dc(CreateCompatibleDC(nullptr))
{
    SelectObject(m_dc.get(), font);
}

int TextWidths::of(std::wstring_view text) const noexcept
{
    int width = 0;
    for (const wchar_t character : text) {
        const auto code = static_cast<uint16_t>(character);
        const std::unique_ptr<Page>& known = m_pages[code / pageSize];
        width += (known ? *known : page(code / pageSize))[code % pageSize];
    }
    return width;
}

const TextWidths::Page& TextWidths::page(size_t number) const noexcept
{
    static constexpr Page unknown{};
    std::unique_ptr<Page> made(new (std::nothrow) Page{});
    if (!made)
        return unknown;
    std::array<INT, pageSize> widths{};
    const auto first = static_cast<UINT>(number * pageSize);
    GetCharWidth32W(m_dc.get(), first, first + pageSize - 1, widths.data());
    std::transform(widths.begin(), widths.end(), made->begin(),
                   [](INT width) { return static_cast<uint16_t>(std::clamp<INT>(width, 0, UINT16_MAX)); });
    m_pages[number] = std::move(made);
    return *m_pages[number];
}

} // namespace velk
