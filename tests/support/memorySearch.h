#pragma once

#include "base/win32.h"

#include <string_view>

namespace velk::test {

// How often a text stands in the memory that this process may write to. The text is given veiled, each character with
// its lowest bit turned over, so that the search does not find itself.
inline size_t copiesInMemory(std::wstring_view veiled)
{
    size_t copies = 0;
    MEMORY_BASIC_INFORMATION region{};
    for (const char* place = nullptr; VirtualQuery(place, &region, sizeof region) != 0;
         place = static_cast<const char*>(region.BaseAddress) + region.RegionSize) {
        if (region.State != MEM_COMMIT || region.Type != MEM_PRIVATE || region.Protect != PAGE_READWRITE)
            continue;
        const auto* characters = static_cast<const wchar_t*>(region.BaseAddress);
        const size_t count = region.RegionSize / sizeof(wchar_t);
        for (size_t first = 0; first + veiled.size() <= count; ++first) {
            size_t same = 0;
            while (same < veiled.size() && characters[first + same] == static_cast<wchar_t>(veiled[same] ^ 1))
                ++same;
            copies += same == veiled.size();
        }
    }
    return copies;
}

} // namespace velk::test
