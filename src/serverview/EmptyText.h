#pragma once

#include <cstddef>
#include <cstdint>

namespace velk {

// How far the contents of the selected folder are.
enum class FolderContents { awaited, read, unreadable };

// What decides about the text in the list's area.
struct ListSituation {
    int32_t kind;     // of the selected node
    bool isConnected; // the connection that the node is, or stands below
    FolderContents contents;
    size_t rows;  // all
    size_t shown; // those that a filter leaves
};

// Why the list shows no rows; null when it shows some.
const wchar_t* emptyText(const ListSituation& situation) noexcept;

} // namespace velk
