// Tested in tests/forms/serverview/viewAPIsTest.cpp.
#include "window/image_list.h"

#include "base/error.h"
#include "com/picture.h"

#include <algorithm>

namespace velk {

ImageList::ImageList(int bitmapResource, int size, COLORREF mask, std::vector<std::wstring> keys)
    : m_images(ImageList_Create(size, size, ILC_COLOR24 | ILC_MASK, static_cast<int>(keys.size()), 0)),
      m_keys(std::move(keys))
{
    throwLastErrorUnless(static_cast<bool>(m_images));
    const unique_bitmap strip = loadBitmap(bitmapResource);
    throwLastErrorUnless(ImageList_AddMasked(m_images.get(), strip.get(), mask) != -1);
    if (ImageList_GetImageCount(m_images.get()) != static_cast<int>(m_keys.size()))
        throw Error(errorInvalidProperty);
}

int ImageList::indexOf(std::wstring_view key) const
{
    const auto found = std::find(m_keys.begin(), m_keys.end(), key);
    if (found == m_keys.end())
        throw Error(errorElementNotFound);
    return static_cast<int>(found - m_keys.begin());
}

} // namespace velk
