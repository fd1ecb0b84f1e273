#pragma once

#include <span>
#include <string>
#include <vector>

namespace velk {

// The keys of pictures that are not those of a folder's objects.
inline constexpr wchar_t folderPicture[] = L"RZFolder";
inline constexpr wchar_t filteredFolderPicture[] = L"FilteredRZFolder";
inline constexpr wchar_t connectedPicture[] = L"ConnectedConnection";
inline constexpr wchar_t disconnectedPicture[] = L"DisconnectedConnection";

// The keys of the pictures of a kind of objects.
struct ObjectPictures {
    const wchar_t* plain;
    const wchar_t* dirty = nullptr; // null for a kind whose objects cannot be dirty
};

// The picture keys of the server view, in the order of the pictures in the bitmap resources.
std::vector<std::wstring> imageKeys();

// The pictures of one size, in pixels, side by side.
struct PictureStrip {
    int size;
    int resource; // a bitmap
};

// From the smallest on.
std::span<const PictureStrip> pictureStrips() noexcept;
// The pictures beside texts that stand beside the system's small icons of a width: the largest that are no wider.
const PictureStrip& pictureStripFor(int smallIconWidth) noexcept;

} // namespace velk
