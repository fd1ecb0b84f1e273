#pragma once

#include "checker/functions.h"
#include "checker/wireRecord.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <span>

namespace velk::check {

// Types of notifications, kinds of things and codes of actions, by their numbers in the contract.
// clang-format off
enum Type : int32_t {
    typeText = 2, typeSqlText = 3, typeAdoText = 4, typeContents = 5, typeChanged = 6, typeRemoved = 7, typeAdded = 8,
    typeConnectionDe = 9, typeCommandDe = 10,
};
enum Kind : int32_t { kindProject = 5, kindConnection = 6, kindFirstFolder = 7, kindLast = 16 };
enum Action : int32_t {
    actionSave = 3, actionConnect = 7, actionDisconnect = 8, actionNew = 9, actionRefresh = 10, actionFilter = 11,
    actionProperties = 13, actionClose = 21, actionCopy = 24, actionPaste = 23, actionViewSource = 25,
};
enum Mode : int32_t { modeOpen = 2, modeSaveAs = 4 };
enum Answer : int32_t { answerOk = 1, answerCancel = 2, answerYes = 6, answerNo = 7 };
// clang-format on

constexpr bool isFolder(int32_t kind) noexcept
{
    return kind >= kindFirstFolder && kind < kindLast && kind % 2 == 1;
}
constexpr bool isObject(int32_t kind) noexcept
{
    return kind > kindFirstFolder && kind <= kindLast && kind % 2 == 0;
}

// A kind of folder and what is in it.
struct FolderKind {
    int32_t folder;
    Fn begin, next, end, get;
    const char* field; // of a connection's record, with the folder's handle
    WireRecord (*record)();
    int32_t object() const noexcept { return folder + 1; }
};
inline constexpr size_t folderKindCount = 5;
std::span<const FolderKind> folderKinds() noexcept;
const FolderKind& folderKindOf(int32_t kind) noexcept; // of a folder, or of an object

// What a thing or a payload is fetched with: by the kind of the thing, or by the type of the notification. Null: by
// nothing.
struct Fetch {
    Fn function;
    WireRecord (*record)();
};
const Fetch* fetchOfKind(int32_t kind) noexcept;
const Fetch* fetchOfType(int32_t type) noexcept;

} // namespace velk::check
