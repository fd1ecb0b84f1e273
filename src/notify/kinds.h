#pragma once

#include "backend/records.h"
#include "base/session.h"

#include <cstdint>

namespace velk {

// Kinds that are not objects in a folder.
inline constexpr int32_t kindProject = 5;
inline constexpr int32_t kindConnection = 6;

// What the pump does for a kind of database object, chosen by the object's kind or by that of its folder.
struct ObjectKindRow {
    int32_t objectKind;
    using Deed = void (*)(const Session& session, int32_t handle);
    Deed addIfShown;    // fetches always, shows it only while its folder is selected
    Deed updateIfShown; // null: a change of this kind changes nothing on screen
    Deed fill;          // of the folder's handle: adds a row for each object that the Backend enumerates
    int32_t folderKind() const noexcept { return objectKind - 1; }
};

// Null for other kinds.
const ObjectKindRow* rowOfObjectKind(int32_t objectKind) noexcept;
const ObjectKindRow* rowOfFolderKind(int32_t folderKind) noexcept;

} // namespace velk
