#include "serverview/EmptyText.h"

#include "serverview/folderKinds.h"
#include "ui/ownTexts.h"

namespace velk {
namespace {

const wchar_t* folderText(const ListSituation& situation) noexcept
{
    // A connection that is gone explains it, whatever came or did not come before it went.
    if (!situation.isConnected)
        return ownTexts::notConnected;
    switch (situation.contents) {
    case FolderContents::awaited:
        return ownTexts::loading;
    case FolderContents::unreadable:
        return ownTexts::unreadable;
    default:
        return ownTexts::noObjects;
    }
}

} // namespace

const wchar_t* emptyText(const ListSituation& situation) noexcept
{
    if (situation.shown > 0)
        return nullptr;
    if (situation.rows > 0)
        return ownTexts::noMatches;
    if (situation.kind == kindNone)
        return ownTexts::nothingSelected;
    if (situation.kind == kindConnection)
        return situation.isConnected ? ownTexts::connectionSelected : ownTexts::notConnected;
    return folderKindRow(situation.kind) ? folderText(situation) : ownTexts::projectSelected;
}

} // namespace velk
