#include "devkit/ide/systemColours.h"

#include "base/win32.h"

#include <bit>
#include <vector>

namespace velk::devkit {
namespace {

struct ColourRow {
    int element;
    COLORREF black; // in high contrast on black
};

constexpr int menuBarColour = 30; // since Windows XP
constexpr COLORREF none = RGB(0, 0, 0);
constexpr COLORREF white = RGB(255, 255, 255);
constexpr COLORREF grey = RGB(128, 128, 128);
constexpr COLORREF purple = RGB(128, 0, 128);
constexpr COLORREF green = RGB(0, 128, 0);
constexpr COLORREF bright = RGB(0, 255, 0);

// clang-format off
constexpr ColourRow rows[] = {
    {COLOR_SCROLLBAR,       none},   {COLOR_BACKGROUND,      none},   {COLOR_ACTIVECAPTION,       purple},
    {COLOR_INACTIVECAPTION, green},  {COLOR_MENU,            none},   {COLOR_WINDOW,              none},
    {COLOR_WINDOWFRAME,     white},  {COLOR_MENUTEXT,        white},  {COLOR_WINDOWTEXT,          white},
    {COLOR_CAPTIONTEXT,     white},  {COLOR_ACTIVEBORDER,    white},  {COLOR_INACTIVEBORDER,      white},
    {COLOR_APPWORKSPACE,    none},   {COLOR_HIGHLIGHT,       purple}, {COLOR_HIGHLIGHTTEXT,       white},
    {COLOR_BTNFACE,         none},   {COLOR_BTNSHADOW,       grey},   {COLOR_GRAYTEXT,            bright},
    {COLOR_BTNTEXT,         white},  {COLOR_BTNHIGHLIGHT,    grey},   {COLOR_INACTIVECAPTIONTEXT, white},
    {COLOR_3DDKSHADOW,      white},  {COLOR_3DLIGHT,         white},  {COLOR_INFOTEXT,            white},
    {COLOR_INFOBK,          none},   {menuBarColour,         none},
};
// clang-format on

struct Colours {
    std::vector<int> elements;
    std::vector<COLORREF> standard, black;
};

Colours read()
{
    Colours colours;
    for (const ColourRow& row : rows) {
        colours.elements.push_back(row.element);
        colours.standard.push_back(GetSysColor(row.element));
        colours.black.push_back(row.black);
    }
    return colours;
}

using SetTheme = HRESULT(WINAPI*)(HWND, const wchar_t*, const wchar_t*);
struct ThemeChange {
    SetTheme set;
    const wchar_t* name; // empty for none, null for the system's
};

BOOL CALLBACK changeTheme(HWND window, LPARAM context) noexcept
{
    const ThemeChange& change = *reinterpret_cast<const ThemeChange*>(context);
    change.set(window, change.name, change.name);
    return TRUE;
}

// A theme paints in its own colours, and high contrast has none.
void useTheme(HWND frame, bool isUsed)
{
    const HMODULE themes = LoadLibraryW(L"uxtheme.dll");
    const ThemeChange change{themes ? std::bit_cast<SetTheme>(GetProcAddress(themes, "SetWindowTheme")) : nullptr,
                             isUsed ? nullptr : L""};
    if (!change.set)
        return;
    changeTheme(frame, reinterpret_cast<LPARAM>(&change));
    EnumChildWindows(frame, changeTheme, reinterpret_cast<LPARAM>(&change));
}

} // namespace

bool useSystemColours(HWND frame, const std::wstring& name)
{
    static const Colours known = read(); // before the first change
    if (name != L"black" && name != L"standard")
        return false;
    const std::vector<COLORREF>& chosen = name == L"black" ? known.black : known.standard;
    useTheme(frame, name == L"standard");
    return SetSysColors(static_cast<int>(known.elements.size()), known.elements.data(), chosen.data()) != FALSE;
}

} // namespace velk::devkit
