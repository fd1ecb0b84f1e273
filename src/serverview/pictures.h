#pragma once

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

// The picture keys of the server view, in the order of the pictures in the bitmap resource.
std::vector<std::wstring> imageKeys();

} // namespace velk
