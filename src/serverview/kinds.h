#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <vector>

namespace velk {

// The picture keys of the server view, in the order of the pictures in the bitmap resource.
std::vector<std::wstring> imageKeys();

// A kind of folder: what it holds, and the texts over the columns of its list.
struct FolderKindRow {
    int32_t folderKind;
    int32_t objectKind;
    std::span<const int32_t> headers; // message numbers in column order
};

// Null for a kind that is no folder.
const FolderKindRow* folderKindRow(int32_t folderKind) noexcept;
std::span<const FolderKindRow> folderKindRows() noexcept;

} // namespace velk
