#include "serverview/pictures.h"

#include "serverview/folderKinds.h"

namespace velk {
namespace {

// clang-format off
constexpr PictureStrip strips[] = {
    {16, 120},
    {20, 121},
    {24, 122},
};
// clang-format on

} // namespace

std::vector<std::wstring> imageKeys()
{
    std::vector<std::wstring> keys{folderPicture, filteredFolderPicture, connectedPicture, disconnectedPicture};
    for (const FolderKindRow& row : folderKindRows())
        for (const wchar_t* key : {row.pictures.plain, row.pictures.dirty})
            if (key)
                keys.emplace_back(key);
    return keys;
}

std::span<const PictureStrip> pictureStrips() noexcept
{
    return strips;
}

const PictureStrip& pictureStripFor(int smallIconWidth) noexcept
{
    const PictureStrip* chosen = strips;
    for (const PictureStrip& strip : strips)
        if (strip.size <= smallIconWidth)
            chosen = &strip;
    return *chosen;
}

} // namespace velk
