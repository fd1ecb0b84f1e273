#include "window/cue_banner.h"

#include "base/unique_any.h"
#include "window/control.h"

#include <gmock/gmock.h>

#include <optional>

namespace velk {
namespace {

constexpr int width = 120;
constexpr int height = 24;

class CueBannerTest : public testing::Test {
protected:
    CueBannerTest()
        : host(CreateWindowExW(0, L"STATIC", L"", WS_OVERLAPPED, 0, 0, 200, 100, nullptr, nullptr, nullptr, nullptr))
    {
        edit.emplace(L"EDIT", host.get(), ES_AUTOHSCROLL);
        SetWindowPos(edit->hwnd(), nullptr, 0, 0, width, height, SWP_NOZORDER);
        banner.emplace(edit->hwnd(), L"Filter");
    }
    // How many pixels the edit paints in the colour of grey texts.
    int greyPixels()
    {
        const unique_screen_dc screen(GetDC(nullptr));
        const unique_memory_dc dc(CreateCompatibleDC(screen.get()));
        const unique_bitmap picture(CreateCompatibleBitmap(screen.get(), width, height));
        const HGDIOBJ before = SelectObject(dc.get(), picture.get());
        edit->send(WM_PAINT, reinterpret_cast<WPARAM>(dc.get()));
        int count = 0;
        for (int place = 0; place < width * height; ++place)
            count += GetPixel(dc.get(), place % width, place / width) == GetSysColor(COLOR_GRAYTEXT);
        SelectObject(dc.get(), before);
        return count;
    }
    bool isStale()
    {
        RECT stale{};
        return GetUpdateRect(edit->hwnd(), &stale, FALSE) != FALSE;
    }
    void show()
    {
        ShowWindow(host.get(), SW_SHOW);
        UpdateWindow(edit->hwnd());
    }

    unique_any<window_traits> host;
    std::optional<Control> edit;
    std::optional<CueBanner> banner;
};

TEST_F(CueBannerTest, emptyEdit_showsTheCueInGrey)
{
    EXPECT_GT(greyPixels(), 20);
}

TEST_F(CueBannerTest, editWithAText_showsNoCue)
{
    SetWindowTextW(edit->hwnd(), L"x");
    EXPECT_EQ(greyPixels(), 0);
    SetWindowTextW(edit->hwnd(), L"");
    EXPECT_GT(greyPixels(), 20);
}

TEST_F(CueBannerTest, firstAndLastCharacter_haveAllOfTheEditDrawnAnew)
{
    show();
    edit->send(WM_CHAR, L'x');
    RECT stale{};
    GetUpdateRect(edit->hwnd(), &stale, FALSE);
    EXPECT_LE(stale.left, 1);
    EXPECT_GE(stale.right, width - 1);
    EXPECT_EQ(stale.top, 0);
    EXPECT_EQ(stale.bottom, height);
    UpdateWindow(edit->hwnd());
    edit->send(EM_SETSEL, 0, -1);
    edit->send(WM_CLEAR);
    EXPECT_TRUE(isStale());
}

TEST_F(CueBannerTest, bannerThatEnds_leavesThePlainEdit)
{
    const auto ours = GetWindowLongPtrW(edit->hwnd(), GWLP_WNDPROC);
    banner.reset();
    EXPECT_NE(GetWindowLongPtrW(edit->hwnd(), GWLP_WNDPROC), ours);
    EXPECT_EQ(greyPixels(), 0);
    SetWindowTextW(edit->hwnd(), L"x");
    EXPECT_EQ(GetWindowTextLengthW(edit->hwnd()), 1);
}

TEST_F(CueBannerTest, editThatEndsFirst_isLeftAlone)
{
    edit.reset();
    banner.reset();
    EXPECT_FALSE(banner.has_value());
}

} // namespace
} // namespace velk
