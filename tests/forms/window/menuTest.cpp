#include "window/menu.h"

#include "base/unique_any.h"

#include <gmock/gmock.h>

namespace velk {
namespace {

// The system's own menu, read while it is open, and left then.
class MenuTest : public testing::Test {
protected:
    MenuTest() { setMenuPresenter({}); }
    static std::vector<std::wstring>& seen()
    {
        static std::vector<std::wstring> lines;
        return lines;
    }
    int show(const std::vector<MenuLine>& lines)
    {
        seen().clear();
        SetTimer(nullptr, 0, 20, look);
        return showPopupMenu(lines, owner.get(), {10, 10});
    }

private:
    static void CALLBACK look(HWND, UINT, UINT_PTR id, DWORD)
    {
        const HWND window = FindWindowW(L"#32768", nullptr);
        if (!window)
            return;
        KillTimer(nullptr, id);
        constexpr UINT getMenu = 0x01E1; // MN_GETHMENU
        note(reinterpret_cast<HMENU>(SendMessageW(window, getMenu, 0, 0)), L"");
        EndMenu();
    }
    static void note(HMENU menu, const std::wstring& indent)
    {
        for (int place = 0; place < GetMenuItemCount(menu); ++place) {
            wchar_t caption[64] = L"-";
            GetMenuStringW(menu, static_cast<UINT>(place), caption, 64, MF_BYPOSITION);
            // A separator cannot be chosen, and some systems say so.
            const UINT state = GetMenuState(menu, static_cast<UINT>(place), MF_BYPOSITION);
            const bool isGrayed = (state & MF_GRAYED) != 0 && (state & MF_SEPARATOR) == 0;
            seen().push_back(indent + ((state & MF_CHECKED) != 0 ? L"* " : L"") + caption +
                             (isGrayed ? L" (gray)" : L""));
            if (const HMENU submenu = GetSubMenu(menu, place))
                note(submenu, L"> ");
        }
    }

    const unique_window owner{CreateWindowExW(0, L"STATIC", L"", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 0, 0, 400, 300,
                                              nullptr, nullptr, nullptr, nullptr)};
};

TEST_F(MenuTest, lines_haveTheirCaptionsStatesAndSubmenus)
{
    const int chosen = show({{1, L"Open", true, {}},
                             {2, L"-", true, {}},
                             {3, L"Save", false, {}},
                             {.id = 7, .caption = L"Name", .checked = true},
                             {4, L"SourceSafe", true, {{5, L"Add", true, {}}, {6, L"Check In", false, {}}}}});
    EXPECT_THAT(seen(), testing::ElementsAre(L"Open", L"", L"Save (gray)", L"* Name", L"SourceSafe", L"> Add",
                                             L"> Check In (gray)"));
    EXPECT_EQ(chosen, 0);
}

} // namespace
} // namespace velk
