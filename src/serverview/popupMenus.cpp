#include "serverview/popupMenus.h"

#include "backend/texts.h"
#include "com/variant.h"
#include "serverview/folderKinds.h"

namespace velk {
namespace {

using enum MenuItem;

constexpr int32_t ideTypeWithDataEnvironment = 1;
constexpr int32_t ideTypeWithoutAdo = 2;

// clang-format off
constexpr MenuItem sourceSafeItems[]   = {scmPropsMnuItem, devObjScmMnuItem, devObjChkInMnuItem, devObjChkOutMnuItem, devObjAddFileMnuItem};
constexpr MenuItem dataEnvironmentItems[] = {adoConObjMnuItem, addCmdObjMnuItem};
constexpr MenuItem adoItems[]          = {dbConSep, devObjSep, adoConCodeMnuItem, addCmdCodeMnuItem};
constexpr MenuItem debugItems[]        = {devObjBuildWDebugMnuItem, devObjRunWDebugMnuItem};
constexpr MenuItem sourceItems[]       = {devObjViewSrcMnuItem, devObjEditSrcMnuItem, devObjBuildMnuItem, devObjBuildWDebugMnuItem};
constexpr MenuItem databaseItems[]     = {devObjDropMnuItem, devObjCopyMnuItem};
constexpr MenuItem fileItems[]         = {devObjScmMnuItem, devObjChkInMnuItem, devObjChkOutMnuItem, devObjAddFileMnuItem};
// clang-format on

// Whether one of the comparisons with "COMPJAVA", "Java" and "SQL" finds a difference: no text equals all three words.
// Kept so, because objects of other languages can be worked on, too.
bool isWorkableLanguage(const std::wstring&)
{
    return true;
}

// Running with the debugger depends on the whole tag as a variant: a text is never the Boolean False, whatever it says.
bool isFalse(const variant& tag)
{
    return tag.type() == VT_BOOL && !tag.asBool();
}

} // namespace

PopupMenus::PopupMenus()
{
    for (const MenuRow& row : menuRows())
        (*this)[row.item].caption = row.caption;
}

void PopupMenus::setUp(bool isSourceSafeAvailable, int32_t ideType)
{
    for (const MenuRow& row : menuRows()) {
        (*this)[row.item].tag = row.code;
        if (row.text != noText)
            (*this)[row.item].caption = getRZString(row.text);
    }
    m_isSourceSafeAvailable = isSourceSafeAvailable;
    for (const MenuItem item : sourceSafeItems)
        (*this)[item].enabled = isSourceSafeAvailable;
    for (const MenuItem item : dataEnvironmentItems)
        (*this)[item].visible = ideType == ideTypeWithDataEnvironment;
    for (const MenuItem item : adoItems)
        (*this)[item].visible = ideType != ideTypeWithoutAdo;
}

PopupMenu PopupMenus::menuOfNode(int32_t kind) noexcept
{
    if (kind == kindProject)
        return PopupMenu::conFolderMnu;
    if (kind == kindConnection)
        return PopupMenu::dbConMnu;
    const FolderKindRow* folder = folderKindRow(kind);
    return folder ? folder->nodeMenu : PopupMenu::dbObjFolderMnu;
}

std::optional<PopupMenu> PopupMenus::menuOfRow(int32_t folderKind, const std::wstring& language,
                                               const std::wstring& tag)
{
    const FolderKindRow* folder = folderKindRow(folderKind);
    if (!folder)
        return std::nullopt;
    if (folder->rowMenu == PopupMenu::devObjMnu)
        prepareRoutineMenu(folder->isDebuggingOffered, language, tag);
    return folder->rowMenu;
}

void PopupMenus::prepareRoutineMenu(bool isDebuggingOffered, const std::wstring& language, const std::wstring& tag)
{
    for (const MenuItem item : debugItems)
        (*this)[item].visible = isDebuggingOffered;
    const bool isWorkable = isWorkableLanguage(language);
    for (const MenuItem item : sourceItems)
        (*this)[item].enabled = isWorkable;
    (*this)[devObjRunWDebugMnuItem].enabled = isWorkable && !isFalse(variant(tag));
    for (const MenuItem item : databaseItems)
        (*this)[item].enabled = isWorkable;
    // Without SourceSafe these four keep the state that they had.
    if (m_isSourceSafeAvailable)
        for (const MenuItem item : fileItems)
            (*this)[item].enabled = isWorkable;
}

std::optional<MenuItem> PopupMenus::show(PopupMenu shown, HWND owner, POINT place, bool areMany) const
{
    const auto linesOf = [this, areMany](PopupMenu menu, const auto& self) -> std::vector<MenuLine> {
        std::vector<MenuLine> lines;
        for (const MenuRow& row : menuRows()) {
            const MenuItemState& state = (*this)[row.item];
            if (row.menu != menu || !state.visible)
                continue;
            const bool isOffered = state.enabled && (!areMany || isForMany(row.item));
            lines.push_back({static_cast<int>(row.item) + 1, state.caption, isOffered, {}});
            if (row.item == devObjScmMnuItem)
                lines.back().submenu = self(PopupMenu::devObjScmMnuItem, self);
        }
        return lines;
    };
    const int chosen = showPopupMenu(linesOf(shown, linesOf), owner, place);
    return chosen > 0 ? std::optional(static_cast<MenuItem>(chosen - 1)) : std::nullopt;
}

std::optional<MenuItem> PopupMenus::firstEnabled(PopupMenu menu, bool areMany) const noexcept
{
    for (const MenuRow& row : menuRows())
        if (row.menu == menu && (*this)[row.item].visible && (*this)[row.item].enabled &&
            (!areMany || isForMany(row.item)))
            return row.item;
    return std::nullopt;
}

} // namespace velk
