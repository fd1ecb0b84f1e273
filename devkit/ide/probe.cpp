#include "devkit/ide/probe.h"

#include <commctrl.h>
#include <cwchar>

namespace velk::devkit::probe {
namespace {

constexpr int textRoom = 2048;
constexpr int deepest = 16;

struct Search {
    std::wstring className;
    HWND found = nullptr;
};

BOOL CALLBACK childFound(HWND window, LPARAM context) noexcept
{
    Search& search = *reinterpret_cast<Search*>(context);
    if (classOf(window) != search.className || !(GetWindowLongW(window, GWL_STYLE) & WS_VISIBLE))
        return TRUE;
    search.found = window;
    return FALSE;
}

BOOL CALLBACK topFound(HWND window, LPARAM context) noexcept
{
    DWORD process = 0;
    GetWindowThreadProcessId(window, &process);
    return process == GetCurrentProcessId() ? childFound(window, context) : TRUE;
}

BOOL CALLBACK collectTexts(HWND window, LPARAM context) noexcept
{
    if (classOf(window) == L"Static")
        *reinterpret_cast<std::wstring*>(context) += textOf(window) + L"\n";
    return TRUE;
}

struct TextSearch {
    const std::wstring& text;
    HWND found = nullptr;
};

BOOL CALLBACK textFound(HWND window, LPARAM context) noexcept
{
    TextSearch& search = *reinterpret_cast<TextSearch*>(context);
    if (!IsWindowVisible(window) || textOf(window) != search.text)
        return TRUE;
    search.found = window;
    return FALSE;
}

struct FieldSearch {
    int left;
    HWND found = nullptr;
};

BOOL CALLBACK fieldFound(HWND window, LPARAM context) noexcept
{
    FieldSearch& search = *reinterpret_cast<FieldSearch*>(context);
    if (classOf(window) != L"Edit" || --search.left > 0)
        return TRUE;
    search.found = window;
    return FALSE;
}

void describe(HWND tree, HTREEITEM item, const std::wstring& above, std::wstring& text)
{
    for (; item; item = TreeView_GetNextSibling(tree, item)) {
        const std::wstring path = above + nodeText(tree, item);
        text += path + L"\n";
        describe(tree, TreeView_GetChild(tree, item), path + L"/", text);
    }
}

void click(HWND window, const RECT& place, bool right)
{
    const LPARAM point = MAKELPARAM((place.left + place.right) / 2, (place.top + place.bottom) / 2);
    PostMessageW(window, right ? WM_RBUTTONDOWN : WM_LBUTTONDOWN, right ? MK_RBUTTON : MK_LBUTTON, point);
    PostMessageW(window, right ? WM_RBUTTONUP : WM_LBUTTONUP, 0, point);
}

} // namespace

std::wstring classOf(HWND window)
{
    wchar_t name[128] = L"";
    GetClassNameW(window, name, 128);
    return name;
}

HWND childWithText(HWND parent, const std::wstring& text)
{
    TextSearch search{text};
    EnumChildWindows(parent, textFound, reinterpret_cast<LPARAM>(&search));
    return search.found;
}

HWND childOfClass(HWND parent, const wchar_t* className)
{
    Search search{className};
    EnumChildWindows(parent, childFound, reinterpret_cast<LPARAM>(&search));
    return search.found;
}

HWND topWindow(const std::wstring& className)
{
    Search search{className};
    EnumWindows(topFound, reinterpret_cast<LPARAM>(&search));
    return search.found;
}

std::wstring textOf(HWND window)
{
    const LRESULT room = SendMessageW(window, WM_GETTEXTLENGTH, 0, 0) + 1;
    std::wstring text(static_cast<size_t>(room), L'\0');
    const LRESULT length =
        SendMessageW(window, WM_GETTEXT, static_cast<WPARAM>(room), reinterpret_cast<LPARAM>(text.data()));
    text.resize(static_cast<size_t>(length));
    return text;
}

HWND dialog()
{
    return topWindow(L"#32770");
}

std::wstring dialogText(HWND dialog)
{
    std::wstring text = textOf(dialog) + L"\n";
    EnumChildWindows(dialog, collectTexts, reinterpret_cast<LPARAM>(&text));
    return text;
}

HWND dialogButton(HWND dialog, const std::wstring& name)
{
    struct Named {
        const wchar_t* name;
        int id;
    };
    constexpr Named known[] = {{L"ok", IDOK}, {L"cancel", IDCANCEL}, {L"yes", IDYES}, {L"no", IDNO}};
    for (const Named& row : known)
        if (name == row.name)
            if (const HWND button = GetDlgItem(dialog, row.id))
                return button;
    for (HWND child = GetWindow(dialog, GW_CHILD); child; child = GetWindow(child, GW_HWNDNEXT)) {
        std::wstring caption = textOf(child);
        std::erase(caption, L'&');
        if (classOf(child) == L"Button" && _wcsicmp(caption.c_str(), name.c_str()) == 0)
            return child;
    }
    return nullptr;
}

HWND field(HWND dialog, int number)
{
    FieldSearch search{number};
    EnumChildWindows(dialog, fieldFound, reinterpret_cast<LPARAM>(&search));
    return search.found;
}

std::wstring nodeText(HWND tree, HTREEITEM item)
{
    wchar_t text[textRoom] = L"";
    TVITEMW asked{};
    asked.mask = TVIF_TEXT | TVIF_HANDLE;
    asked.hItem = item;
    asked.pszText = text;
    asked.cchTextMax = textRoom;
    SendMessageW(tree, TVM_GETITEMW, 0, reinterpret_cast<LPARAM>(&asked));
    return asked.pszText;
}

HTREEITEM node(HWND tree, const std::vector<std::wstring>& path)
{
    HTREEITEM item = TreeView_GetRoot(tree);
    for (size_t depth = 0; depth < path.size() && depth < deepest; ++depth) {
        if (depth > 0)
            item = TreeView_GetChild(tree, item);
        while (item && nodeText(tree, item) != path[depth])
            item = TreeView_GetNextSibling(tree, item);
    }
    return item;
}

std::wstring treeText(HWND tree)
{
    std::wstring text;
    describe(tree, TreeView_GetRoot(tree), L"", text);
    return text;
}

std::vector<std::wstring> columns(HWND list)
{
    const HWND header = ListView_GetHeader(list);
    std::vector<std::wstring> texts;
    for (int index = 0; index < Header_GetItemCount(header); ++index) {
        wchar_t text[textRoom] = L"";
        HDITEMW asked{};
        asked.mask = HDI_TEXT;
        asked.pszText = text;
        asked.cchTextMax = textRoom;
        SendMessageW(header, HDM_GETITEMW, static_cast<WPARAM>(index), reinterpret_cast<LPARAM>(&asked));
        texts.emplace_back(asked.pszText);
    }
    return texts;
}

std::vector<std::wstring> cells(HWND list, int row)
{
    std::vector<std::wstring> texts;
    const int count = Header_GetItemCount(ListView_GetHeader(list));
    for (int column = 0; column < count; ++column) {
        wchar_t text[textRoom] = L"";
        LVITEMW asked{};
        asked.iSubItem = column;
        asked.pszText = text;
        asked.cchTextMax = textRoom;
        SendMessageW(list, LVM_GETITEMTEXTW, static_cast<WPARAM>(row), reinterpret_cast<LPARAM>(&asked));
        texts.emplace_back(asked.pszText);
    }
    return texts;
}

int rowCount(HWND list)
{
    return ListView_GetItemCount(list);
}

std::optional<int> row(HWND list, const std::wstring& firstCell)
{
    for (int index = 0; index < rowCount(list); ++index)
        if (const auto texts = cells(list, index); !texts.empty() && texts.front() == firstCell)
            return index;
    return std::nullopt;
}

RECT placeOfNode(HWND tree, HTREEITEM item)
{
    TreeView_EnsureVisible(tree, item);
    RECT place{};
    TreeView_GetItemRect(tree, item, &place, TRUE);
    return place;
}

RECT placeOfRow(HWND list, int row)
{
    ListView_EnsureVisible(list, row, FALSE);
    RECT place{};
    ListView_GetItemRect(list, row, &place, LVIR_LABEL);
    return place;
}

void clickNode(HWND tree, HTREEITEM item, bool right)
{
    click(tree, placeOfNode(tree, item), right);
}

void clickRow(HWND list, int row, bool right)
{
    click(list, placeOfRow(list, row), right);
}

void clickHeader(HWND header, int column)
{
    RECT place{};
    Header_GetItemRect(header, column, &place);
    click(header, place, false);
}

} // namespace velk::devkit::probe
