#include "ui/splashscrnFrm.h"
#include "support/fakeBackend.h"

#include "base/error.h"
#include "ui/uiFont.h"

#include <gtest/gtest.h>

namespace velk {
namespace {

std::wstring textOf(HWND window)
{
    std::wstring text(static_cast<size_t>(GetWindowTextLengthW(window)) + 1, L'\0');
    text.resize(static_cast<size_t>(GetWindowTextW(window, text.data(), static_cast<int>(text.size()))));
    return text;
}

class splashscrnFrmTest : public testing::Test {
protected:
    splashscrnFrmTest() { backend.texts[641] = L"Starting"; }
    ~splashscrnFrmTest() override
    {
        unloadSplashScreen();
        uiFont() = {};
    }

    test::FakeBackend backend;
};

TEST_F(splashscrnFrmTest, load_showsText641)
{
    EXPECT_EQ(textOf(splashScreen().statusLbl()), L"Starting");
    EXPECT_TRUE(IsWindowVisible(splashScreen().hwnd()));
}

TEST_F(splashscrnFrmTest, statusLine_isWrittenInTheUiFont)
{
    uiFont() = {L"Courier New", 12, 204};
    const auto font = reinterpret_cast<HFONT>(SendMessageW(splashScreen().statusLbl(), WM_GETFONT, 0, 0));
    LOGFONTW description{};
    ASSERT_NE(GetObjectW(font, sizeof description, &description), 0);
    EXPECT_STREQ(description.lfFaceName, L"Courier New");
    EXPECT_EQ(description.lfHeight, -16); // 12 points at 96 dpi
    EXPECT_EQ(description.lfCharSet, 204);
}

TEST_F(splashscrnFrmTest, threeStepsOfThree_fillTheBar)
{
    splashScreen().setProgressBarInterval(3);
    splashScreen().updateProgress(L"one");
    splashScreen().updateProgress(L"two");
    splashScreen().updateProgress(L"three");
    EXPECT_EQ(SendMessageW(splashScreen().ProgressBar1(), PBM_GETPOS, 0, 0), 3);
}

TEST_F(splashscrnFrmTest, fourthStepOfThree_failsAndKeepsTheText)
{
    splashScreen().setProgressBarInterval(3);
    splashScreen().updateProgress(L"one");
    splashScreen().updateProgress(L"two");
    splashScreen().updateProgress(L"three");
    EXPECT_THROW(splashScreen().updateProgress(L"four"), Error);
    EXPECT_EQ(textOf(splashScreen().statusLbl()), L"three");
}

TEST_F(splashscrnFrmTest, lastText_staysUntilUnloaded)
{
    splashScreen().updateProgress(L"opening");
    splashScreen().setVisible();
    EXPECT_EQ(textOf(splashScreen().statusLbl()), L"opening");
}

TEST_F(splashscrnFrmTest, useAfterUnload_startsAfresh)
{
    splashScreen().setProgressBarInterval(1);
    splashScreen().updateProgress(L"done");
    unloadSplashScreen();
    EXPECT_FALSE(isSplashScreenLoaded());
    EXPECT_EQ(textOf(splashScreen().statusLbl()), L"Starting");
    EXPECT_NO_THROW(splashScreen().updateProgress(L"again"));
}

TEST_F(splashscrnFrmTest, interval_isTheBarsMaximum)
{
    splashScreen().setProgressBarInterval(6);
    EXPECT_EQ(SendMessageW(splashScreen().ProgressBar1(), PBM_GETRANGE, FALSE, 0), 6);
    EXPECT_EQ(SendMessageW(splashScreen().ProgressBar1(), PBM_GETPOS, 0, 0), 0);
}

} // namespace
} // namespace velk
