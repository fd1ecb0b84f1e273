#pragma once

#include "base/unique_any.h"

#include <string>
#include <string_view>
#include <vector>

namespace velk {

// Pictures of one size that are named by keys.
class ImageList {
public:
    // The pictures stand side by side in a bitmap resource, in the order of the keys; the mask colour is transparent.
    // Size in pixels.
    ImageList(int bitmapResource, int size, COLORREF mask, std::vector<std::wstring> keys);

    HIMAGELIST get() const noexcept { return m_images.get(); }
    // The picture's number; error 35601 for a key that names none.
    int indexOf(std::wstring_view key) const;
    const std::wstring& keyOf(int index) const { return m_keys.at(static_cast<size_t>(index)); }

private:
    unique_image_list m_images;
    std::vector<std::wstring> m_keys;
};

} // namespace velk
