#include "window/message_watch.h"

#include "base/module.h"
#include "base/unique_any.h"
#include "support/failureLog.h"

#include <gtest/gtest.h>

#include <optional>
#include <stdexcept>

namespace velk {
namespace {

WNDPROC below = nullptr;

LRESULT CALLBACK others(HWND to, UINT message, WPARAM wParam, LPARAM lParam)
{
    return message == WM_APP ? 42 : CallWindowProcW(below, to, message, wParam, lParam);
}

class MessageWatchTest : public testing::Test {
protected:
    MessageWatchTest()
    {
        watch.emplace(window.get());
        watch->setListener([this] { ++heard; });
    }

    unique_any<window_traits> window{
        CreateWindowExW(0, L"EDIT", L"text", WS_POPUP, 0, 0, 10, 10, nullptr, nullptr, nullptr, nullptr)};
    std::optional<MessageWatch> watch;
    int heard = 0;
};

TEST_F(MessageWatchTest, everyMessage_isHeardOfAndAnsweredByTheWindow)
{
    EXPECT_EQ(SendMessageW(window.get(), WM_GETTEXTLENGTH, 0, 0), 4);
    EXPECT_EQ(SendMessageW(window.get(), EM_GETLINECOUNT, 0, 0), 1);
    EXPECT_EQ(heard, 2);
}

TEST_F(MessageWatchTest, witness_hearsWhichMessageItIsBehindTheListener)
{
    UINT seen = 0;
    int heardBefore = 0;
    watch->setWitness([&](UINT message) {
        seen = message;
        heardBefore = heard;
    });
    SendMessageW(window.get(), EM_GETLINECOUNT, 0, 0);
    EXPECT_EQ(seen, UINT{EM_GETLINECOUNT});
    EXPECT_EQ(heardBefore, 1);
}

TEST_F(MessageWatchTest, witnessOfAWatchThatTheListenerEnds_hearsNothing)
{
    bool hasHeard = false;
    watch->setWitness([&](UINT) { hasHeard = true; });
    watch->setListener([this] { watch.reset(); });
    EXPECT_EQ(SendMessageW(window.get(), WM_GETTEXTLENGTH, 0, 0), 4);
    EXPECT_FALSE(hasHeard);
}

TEST_F(MessageWatchTest, filterOfAWatchThatTheListenerEnds_isNotAsked)
{
    bool isAsked = false;
    watch->setFilter([&](UINT, WPARAM, LPARAM) {
        isAsked = true;
        return std::optional<LRESULT>(42);
    });
    EXPECT_EQ(SendMessageW(window.get(), WM_GETTEXTLENGTH, 0, 0), 42);
    isAsked = false;
    watch->setListener([this] { watch.reset(); });
    EXPECT_EQ(SendMessageW(window.get(), WM_GETTEXTLENGTH, 0, 0), 4);
    EXPECT_FALSE(isAsked);
}

TEST_F(MessageWatchTest, message_isHeardOfBeforeTheWindowAnswers)
{
    watch->setListener([this] {
        if (heard++ == 0)
            SetWindowTextW(window.get(), L"longer text");
    });
    EXPECT_EQ(SendMessageW(window.get(), WM_GETTEXTLENGTH, 0, 0), 11);
}

TEST_F(MessageWatchTest, listenerThatEndsTheWatch_isItsLast)
{
    watch->setListener([this] {
        ++heard;
        watch.reset();
        ++heard;
    });
    EXPECT_EQ(SendMessageW(window.get(), WM_GETTEXTLENGTH, 0, 0), 4);
    EXPECT_EQ(SendMessageW(window.get(), WM_GETTEXTLENGTH, 0, 0), 4);
    EXPECT_EQ(heard, 2);
}

TEST_F(MessageWatchTest, watchBelowAnothersThatEnds_keepsItsCodeUntilTheWindowsEnd)
{
    below =
        reinterpret_cast<WNDPROC>(SetWindowLongPtrW(window.get(), GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&others)));
    const long before = module::lockCount();
    watch.reset();
    EXPECT_EQ(module::lockCount(), before + 1);
    EXPECT_EQ(SendMessageW(window.get(), WM_GETTEXTLENGTH, 0, 0), 4);
    EXPECT_EQ(heard, 0);
    window.reset();
    EXPECT_EQ(module::lockCount(), before);
}

TEST_F(MessageWatchTest, windowThatEndsBelowAnothersProcedure_keepsNothing)
{
    below =
        reinterpret_cast<WNDPROC>(SetWindowLongPtrW(window.get(), GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&others)));
    const long before = module::lockCount();
    window.reset();
    watch.reset();
    EXPECT_EQ(module::lockCount(), before);
}

TEST_F(MessageWatchTest, listenerThatThrows_isReportedAndTheMessageAnswered)
{
    test::FailureLog log;
    watch->setListener([] { throw std::runtime_error("listener"); });
    EXPECT_EQ(SendMessageW(window.get(), WM_GETTEXTLENGTH, 0, 0), 4);
    EXPECT_EQ(log.lines.size(), 1u);
}

TEST_F(MessageWatchTest, windowOfAnEndedWatch_goesOnAlone)
{
    watch.reset();
    EXPECT_EQ(SendMessageW(window.get(), WM_GETTEXTLENGTH, 0, 0), 4);
    EXPECT_EQ(heard, 0);
}

TEST_F(MessageWatchTest, endOfTheWindow_isNotHeardOfAndEndsTheWatch)
{
    const HWND button = CreateWindowExW(0, L"BUTTON", L"", WS_POPUP, 0, 0, 10, 10, nullptr, nullptr, nullptr, nullptr);
    MessageWatch buttons(button);
    buttons.setListener([this] { ++heard; });
    SendMessageW(button, WM_DESTROY, 0, 0);
    EXPECT_EQ(heard, 0);
    DestroyWindow(button);
    EXPECT_FALSE(IsWindow(button)); // and the watch, which ends later, does not touch it
}

// As an accessibility tool in the same process does.
TEST_F(MessageWatchTest, watchThatEndsBelowAnothersProcedure_leavesThatInPlace)
{
    below =
        reinterpret_cast<WNDPROC>(SetWindowLongPtrW(window.get(), GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&others)));
    watch.reset();
    EXPECT_EQ(SendMessageW(window.get(), WM_APP, 0, 0), 42);
    EXPECT_EQ(SendMessageW(window.get(), WM_GETTEXTLENGTH, 0, 0), 4);
}

} // namespace
} // namespace velk
