// The splash screen and the IDE's main window, which takes it along when it goes.
#include "base/error.h"
#include "support/fakeBackend.h"
#include "ui/messageBox.h"
#include "ui/splashscrnFrm.h"

#include <gtest/gtest.h>

namespace velk {
namespace {

class SplashOwnerTest : public testing::Test {
protected:
    SplashOwnerTest() { setMainWindow(owner.get()); }
    ~SplashOwnerTest() override
    {
        unloadSplashScreen();
        setMainWindow(nullptr);
    }
    static unique_window window()
    {
        return unique_window(CreateWindowExW(0, L"STATIC", L"", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 0, 0, 400, 300,
                                             nullptr, nullptr, nullptr, nullptr));
    }

    test::FakeBackend backend;
    unique_window owner = window();
};

TEST_F(SplashOwnerTest, ownerThatGoes_takesItAlongAndTheNextUseMakesItAfresh)
{
    splashScreen().setProgressBarInterval(1);
    splashScreen().updateProgress(L"done");
    owner.reset();
    EXPECT_FALSE(isSplashScreenLoaded());
    EXPECT_NO_THROW(splashScreen().updateProgress(L"again")); // its steps are counted anew
    EXPECT_TRUE(isSplashScreenLoaded());
    EXPECT_TRUE(IsWindowVisible(splashScreen().hwnd()));
}

TEST_F(SplashOwnerTest, screenWithoutAWindow_takesItsStepsAndPaintsNobodyElse)
{
    splashscrnFrm& form = splashScreen();
    form.setProgressBarInterval(1);
    owner.reset();
    const unique_window other = window();
    UpdateWindow(other.get());
    InvalidateRect(other.get(), nullptr, TRUE);
    form.setVisible();
    form.updateProgress(L"one");
    EXPECT_TRUE(GetUpdateRect(other.get(), nullptr, FALSE)) << "the whole desktop was painted";
    EXPECT_EQ(form.statusLbl(), nullptr);
    EXPECT_EQ(form.ProgressBar1(), nullptr);
    EXPECT_THROW(form.updateProgress(L"two"), Error);
}

TEST_F(SplashOwnerTest, unloadAfterTheOwnerWent_leavesNoWindowClassBehind)
{
    splashScreen();
    owner.reset();
    unloadSplashScreen();
    WNDCLASSEXW description{};
    description.cbSize = sizeof description;
    EXPECT_FALSE(GetClassInfoExW(GetModuleHandleW(nullptr), L"velkviadd.splashscrnFrm", &description));
}

// Fetching the first text may run messages, and the IDE may close meanwhile.
TEST_F(SplashOwnerTest, ownerThatGoesWhileItLoads_leavesAScreenThatTakesItsSteps)
{
    backend.on.RZGetString = [this](int32_t, char*, int32_t) {
        owner.reset();
        return 0;
    };
    EXPECT_NO_THROW(splashScreen());
    EXPECT_FALSE(isSplashScreenLoaded());
}

} // namespace
} // namespace velk
