#pragma once

#include "backend/records.h"
#include "base/session.h"
#include "serverview/menuRows.h"
#include "serverview/pictures.h"

#include <cstdint>
#include <span>

namespace velk {

// The kinds of the tree's nodes that are no folders, and what stands for the kind of no node at all.
inline constexpr int32_t kindProject = 5;
inline constexpr int32_t kindConnection = 6;
inline constexpr int32_t kindNone = -1;

// All that is known of a kind of folder: where it stands, what its list shows, and what becomes of its objects.
struct FolderKindRow {
    // Called with the row that it stands in.
    using Deed = void (*)(const FolderKindRow& folder, const Session& session, int32_t handle);

    int32_t folderKind;
    int32_t nameText;                 // message number
    int32_t trzConnection::* handle;  // of the folder, among its connection's
    std::span<const int32_t> headers; // message numbers in column order
    ObjectPictures pictures;          // of its objects
    PopupMenu nodeMenu;               // of the folder
    PopupMenu rowMenu;                // of its objects
    bool isDebuggingOffered;          // in the objects' menu
    Deed addIfShown;                  // of an object; fetches always, shows it only while its folder is selected
    Deed updateIfShown;               // likewise; null: a change of such an object changes nothing on screen
    Deed fill;                        // of the folder: adds a row for each object that the Backend enumerates

    // Of what is in the folder.
    int32_t objectKind() const noexcept { return folderKind + 1; }
};

// All kinds, in the order in which the folders stand below their connection.
std::span<const FolderKindRow> folderKindRows() noexcept;

// Null for a kind that is no folder's, and no object's in one.
const FolderKindRow* folderKindRow(int32_t folderKind) noexcept;
const FolderKindRow* folderKindRowOfObjects(int32_t objectKind) noexcept;

} // namespace velk
