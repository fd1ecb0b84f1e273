#include "serverview/popupMenus.h"

#include "backend/texts.h"
#include "base/text.h"
#include "com/variant.h"

#include <algorithm>

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
constexpr const wchar_t* languages[]   = {L"COMPJAVA", L"Java", L"SQL"};
// clang-format on

// -1, 0 or 1, without regard to case, as Basic's text comparison gives it.
int compareTexts(const std::wstring& left, const wchar_t* right)
{
    return CompareStringW(LOCALE_USER_DEFAULT, NORM_IGNORECASE, left.c_str(), -1, right, -1) - CSTR_EQUAL;
}

// The three comparisons have always been joined by a bitwise Or. No text equals all three words, so the result is never
// zero and every language counts; kept so, because objects of other languages can be worked on, too.
bool isWorkableLanguage(const std::wstring& language)
{
    int joined = 0;
    for (const wchar_t* known : languages)
        joined |= compareTexts(language, known);
    return joined != 0;
}

// The whole tag has always been compared with the Boolean False as variants, and among variants a text never equals a
// Boolean, whatever it says. So running with the debugger is offered in practice; kept so.
bool areEqual(const variant& left, const variant& right)
{
    return left.type() == right.type() && left.asText() == right.asText();
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
        if (row.code != noCode)
            (*this)[row.item].tag = numberText(row.code);
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
    switch (kind) {
    case 5:
        return PopupMenu::conFolderMnu;
    case 6:
        return PopupMenu::dbConMnu;
    case 7:
    case 9:
        return PopupMenu::devObjFolderMnu;
    default:
        return PopupMenu::dbObjFolderMnu;
    }
}

std::optional<PopupMenu> PopupMenus::menuOfRow(int32_t folderKind, const std::wstring& language,
                                               const std::wstring& tag)
{
    switch (folderKind) {
    case 7:
    case 9:
        prepareRoutineMenu(folderKind, language, tag);
        return PopupMenu::devObjMnu;
    case 11:
        return PopupMenu::trigObjMnu;
    case 13:
    case 15:
        return PopupMenu::dbTableObjMnu;
    default:
        return std::nullopt;
    }
}

void PopupMenus::prepareRoutineMenu(int32_t folderKind, const std::wstring& language, const std::wstring& tag)
{
    for (const MenuItem item : debugItems)
        (*this)[item].visible = folderKind != 9;
    const bool isWorkable = isWorkableLanguage(language);
    for (const MenuItem item : sourceItems)
        (*this)[item].enabled = isWorkable;
    (*this)[devObjRunWDebugMnuItem].enabled = isWorkable && !areEqual(variant(tag), variant(false));
    for (const MenuItem item : databaseItems)
        (*this)[item].enabled = isWorkable;
    // Without SourceSafe these four keep the state that they had.
    if (m_isSourceSafeAvailable)
        for (const MenuItem item : fileItems)
            (*this)[item].enabled = isWorkable;
}

std::optional<MenuItem> PopupMenus::show(PopupMenu shown, HWND owner, POINT place) const
{
    const auto linesOf = [this](PopupMenu menu, const auto& self) -> std::vector<MenuLine> {
        std::vector<MenuLine> lines;
        for (const MenuRow& row : menuRows()) {
            const MenuItemState& state = (*this)[row.item];
            if (row.menu != menu || !state.visible)
                continue;
            lines.push_back({static_cast<int>(row.item) + 1, state.caption, state.enabled, {}});
            if (row.item == devObjScmMnuItem)
                lines.back().submenu = self(PopupMenu::devObjScmMnuItem, self);
        }
        return lines;
    };
    const int chosen = showPopupMenu(linesOf(shown, linesOf), owner, place);
    return chosen > 0 ? std::optional(static_cast<MenuItem>(chosen - 1)) : std::nullopt;
}

std::optional<MenuItem> PopupMenus::firstEnabled(PopupMenu menu) const noexcept
{
    for (const MenuRow& row : menuRows())
        if (row.menu == menu && (*this)[row.item].visible && (*this)[row.item].enabled)
            return row.item;
    return std::nullopt;
}

} // namespace velk
