#include "serverview/kinds.h"

namespace velk {
namespace {

// clang-format off
constexpr const wchar_t* pictureKeys[] = {
    L"RZFolder",
    L"FilteredRZFolder",
    L"ConnectedConnection",
    L"DisconnectedConnection",
    L"StoredProcedure",
    L"DirtyStoredProcedure",
    L"UserFunction",
    L"DirtyUserFunction",
    L"Trigger",
    L"VelkTable",
    L"VelkView",
};

constexpr int32_t procedureHeaders[] = {500, 501, 506, 507, 504, 503, 508, 505, 502};
constexpr int32_t functionHeaders[]  = {500, 501, 509, 510, 504, 503, 505, 502};
constexpr int32_t triggerHeaders[]   = {500, 501, 511, 512, 502};
constexpr int32_t tableHeaders[]     = {500, 501, 513, 514, 502};
constexpr int32_t viewHeaders[]      = {500, 501, 502};

constexpr FolderKindRow folderKinds[] = {
    { 7,  8, procedureHeaders},
    { 9, 10, functionHeaders},
    {11, 12, triggerHeaders},
    {13, 14, tableHeaders},
    {15, 16, viewHeaders},
};
// clang-format on

constexpr bool objectsFollowTheirFolders()
{
    for (const FolderKindRow& row : folderKinds)
        if (row.objectKind != row.folderKind + 1)
            return false;
    return true;
}
static_assert(objectsFollowTheirFolders());

} // namespace

std::vector<std::wstring> imageKeys()
{
    return {std::begin(pictureKeys), std::end(pictureKeys)};
}

const FolderKindRow* folderKindRow(int32_t folderKind) noexcept
{
    for (const FolderKindRow& row : folderKinds)
        if (row.folderKind == folderKind)
            return &row;
    return nullptr;
}

std::span<const FolderKindRow> folderKindRows() noexcept
{
    return folderKinds;
}

} // namespace velk
