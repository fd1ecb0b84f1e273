#include "ui/RZfrmAbout.h"
#include "base/module.h"
#include "support/fakeBackend.h"
#include "support/shownControls.h"
#include "ui/uiFont.h"

#include <gtest/gtest.h>

namespace velk {
namespace {

using enum RZfrmAbout::Control;

class RZfrmAboutTest : public testing::Test {
protected:
    RZfrmAboutTest() { backend.numbersAsTexts = true; }
    ~RZfrmAboutTest() override { uiFont() = {}; }
    static HFONT fontOf(HWND window) { return reinterpret_cast<HFONT>(SendMessageW(window, WM_GETFONT, 0, 0)); }
    // The height that a label's text takes with its breaks.
    LONG neededHeight(int label)
    {
        const HDC screen = GetDC(form.item(label));
        const HGDIOBJ old = SelectObject(screen, fontOf(form.item(label)));
        RECT area{0, 0, clientOf(label).right, 0};
        DrawTextW(screen, form.text(label).c_str(), -1, &area, DT_CALCRECT | DT_WORDBREAK | DT_NOPREFIX);
        SelectObject(screen, old);
        ReleaseDC(form.item(label), screen);
        return area.bottom;
    }
    RECT clientOf(int label) const
    {
        RECT area{};
        GetClientRect(form.item(label), &area);
        return area;
    }
    // Shows the form with a message waiting for it; whatever comes of it, the wait ends.
    void showWith(HWND window, UINT message, WPARAM wParam)
    {
        struct Alarm {
            static void CALLBACK fire(HWND, UINT, UINT_PTR, DWORD) { Dialog::hideAll(); }
        };
        const UINT_PTR alarm = SetTimer(nullptr, 0, 5000, Alarm::fire);
        PostMessageW(window, message, wParam, 0);
        form.showModal();
        KillTimer(nullptr, alarm);
    }

    test::FakeBackend backend;
    RZfrmAbout form;
};

TEST_F(RZfrmAboutTest, texts_comeFromTheToolWithALineFeedBetweenLines)
{
    form.Form_Load();
    EXPECT_EQ(test::captionOf(form), L"#600");
    EXPECT_EQ(form.text(cmdClose), L"#601");
    EXPECT_EQ(form.text(lblTitle), L"#602\n#603");
    EXPECT_EQ(form.text(lblVersion), L"#604");
    EXPECT_EQ(form.text(lblDescription), L"#605\n#606\n#607");
}

TEST_F(RZfrmAboutTest, addInThatLeavesWhileATextIsFetched_showsNothing)
{
    static bool wasShown = false;
    struct Look {
        static void CALLBACK take(HWND, UINT, UINT_PTR, DWORD)
        {
            wasShown = Dialog::topmost() != nullptr;
            Dialog::hideAll();
        }
    };
    backend.on.RZGetString = [](int32_t, char*, int32_t) {
        Dialog::hideAll();
        return 0;
    };
    const UINT_PTR look = SetTimer(nullptr, 0, 50, Look::take);
    showAboutBox();
    KillTimer(nullptr, look);
    EXPECT_FALSE(wasShown);
}

TEST_F(RZfrmAboutTest, formAndControls_haveNameAndSizeOfTheUiFont)
{
    uiFont() = {L"Courier New", 12, 1};
    form.Form_Load();
    for (const HWND window :
         {form.hwnd(), form.item(lblTitle), form.item(lblVersion), form.item(lblDescription), form.item(cmdClose)}) {
        LOGFONTW description{};
        ASSERT_NE(GetObjectW(fontOf(window), sizeof description, &description), 0);
        EXPECT_STREQ(description.lfFaceName, L"Courier New");
        EXPECT_EQ(description.lfHeight, -16); // 12 points at 96 dpi
    }
}

TEST_F(RZfrmAboutTest, titleWithABreakOfItsOwn_fitsItsLabel)
{
    backend.texts[602] = L"Rozel Development\nfor Visual InterDev";
    for (const int32_t size : {8, 9, 12}) {
        uiFont() = {L"Tahoma", size, 1};
        form.Form_Load();
        EXPECT_LE(neededHeight(lblTitle), clientOf(lblTitle).bottom) << size << " points";
        form.unload();
    }
}

TEST_F(RZfrmAboutTest, form_hasTheAddinsIcon)
{
    form.Form_Load();
    // A shared icon is the same one for everybody who asks.
    const auto icon = reinterpret_cast<LRESULT>(
        LoadImageW(module::instance(), MAKEINTRESOURCEW(117), IMAGE_ICON, 0, 0, LR_DEFAULTSIZE | LR_SHARED));
    ASSERT_NE(icon, 0);
    EXPECT_EQ(SendMessageW(form.hwnd(), WM_GETICON, ICON_BIG, 0), icon);
    EXPECT_EQ(SendMessageW(form.hwnd(), WM_GETICON, ICON_SMALL, 0), icon);
}

TEST_F(RZfrmAboutTest, close_closesIt)
{
    form.Form_Load();
    showWith(form.item(cmdClose), BM_CLICK, 0);
    EXPECT_FALSE(form.isLoaded());
}

TEST_F(RZfrmAboutTest, escape_closesIt)
{
    form.Form_Load();
    showWith(form.item(cmdClose), WM_KEYDOWN, VK_ESCAPE);
    EXPECT_FALSE(form.isLoaded());
}

// What the system makes of Enter where it finds no default button.
TEST_F(RZfrmAboutTest, okCommand_closesIt)
{
    form.Form_Load();
    showWith(form.hwnd(), WM_COMMAND, IDOK);
    EXPECT_FALSE(form.isLoaded());
}

TEST_F(RZfrmAboutTest, enter_closesIt)
{
    form.Form_Load();
    showWith(form.item(cmdClose), WM_KEYDOWN, VK_RETURN);
    EXPECT_FALSE(form.isLoaded());
}

} // namespace
} // namespace velk
