#include "platform/clipboard.h"

#include "platform/unique_any.h"

#include <cwchar>
#include <future>
#include <gtest/gtest.h>
#include <optional>
#include <string>
#include <thread>

namespace velk {
namespace {

using namespace std::chrono_literals;

// Another program's window that has the clipboard open, in a thread of its own, from the constructor's end on: for a
// while, or until it is let go.
class Holder {
public:
    explicit Holder(std::chrono::milliseconds longest) : m_thread([this, longest] { hold(longest); })
    {
        m_opened.get_future().wait();
    }
    Holder(const Holder&) = delete;
    Holder& operator=(const Holder&) = delete;
    ~Holder() { letGo(); }
    void letGo()
    {
        if (!m_thread.joinable())
            return;
        m_enough.set_value();
        m_thread.join();
    }

private:
    void hold(std::chrono::milliseconds longest)
    {
        const unique_window window(
            CreateWindowExW(0, L"STATIC", L"", 0, 0, 0, 0, 0, HWND_MESSAGE, nullptr, nullptr, nullptr));
        const bool isOpen = OpenClipboard(window.get()) != FALSE;
        m_opened.set_value();
        m_enough.get_future().wait_for(longest);
        if (isOpen)
            CloseClipboard();
    }

    std::promise<void> m_opened;
    std::promise<void> m_enough;
    std::thread m_thread; // the last member: it uses the others
};

class ClipboardTest : public testing::Test {
protected:
    ~ClipboardTest() override
    {
        if (OpenClipboard(window.get())) {
            EmptyClipboard();
            CloseClipboard();
        }
    }
    // The clipboard holds a text and a registered format then, and nothing else.
    void fill(const std::wstring& text, const std::wstring& special)
    {
        ASSERT_TRUE(OpenClipboard(window.get()));
        EmptyClipboard();
        put(CF_UNICODETEXT, text);
        put(ownFormat, special);
        CloseClipboard();
    }
    static void put(UINT format, const std::wstring& text)
    {
        const HGLOBAL block = GlobalAlloc(GMEM_MOVEABLE, (text.size() + 1) * sizeof(wchar_t));
        std::wcscpy(static_cast<wchar_t*>(GlobalLock(block)), text.c_str());
        GlobalUnlock(block);
        SetClipboardData(format, block);
    }
    std::wstring content(UINT format) const
    {
        if (!OpenClipboard(window.get()))
            return L"(held)";
        const scope_exit closed([] { CloseClipboard(); });
        const HANDLE block = GetClipboardData(format);
        if (!block)
            return L"(none)";
        const std::wstring text = static_cast<const wchar_t*>(GlobalLock(block));
        GlobalUnlock(block);
        return text;
    }

    const UINT ownFormat = RegisterClipboardFormatW(L"velkviadd test format");
    const unique_window window{
        CreateWindowExW(0, L"STATIC", L"", WS_POPUP, 0, 0, 10, 10, nullptr, nullptr, nullptr, nullptr)};
};

TEST_F(ClipboardTest, textAndARegisteredFormat_comeBack)
{
    fill(L"the user's text", L"the user's format");
    {
        const clipboard_keeper keeper(window.get());
        EXPECT_TRUE(keeper.isKept());
        fill(L"other", L"another");
    }
    EXPECT_EQ(content(CF_UNICODETEXT), L"the user's text");
    EXPECT_EQ(content(ownFormat), L"the user's format");
}

TEST_F(ClipboardTest, formatThatWasNotThere_isGoneAgain)
{
    ASSERT_TRUE(OpenClipboard(window.get()));
    EmptyClipboard();
    put(CF_UNICODETEXT, L"the user's text");
    CloseClipboard();
    {
        const clipboard_keeper keeper(window.get());
        fill(L"other", L"another");
    }
    EXPECT_EQ(content(CF_UNICODETEXT), L"the user's text");
    EXPECT_EQ(content(ownFormat), L"(none)");
}

TEST_F(ClipboardTest, heldForAMomentWhileItIsRead_isWaitedFor)
{
    fill(L"the user's text", L"the user's format");
    {
        Holder holder(50ms);
        const clipboard_keeper keeper(window.get());
        EXPECT_TRUE(keeper.isKept());
        holder.letGo();
        fill(L"other", L"another");
    }
    EXPECT_EQ(content(CF_UNICODETEXT), L"the user's text");
}

TEST_F(ClipboardTest, heldForAMomentWhileItIsPutBack_isWaitedFor)
{
    fill(L"the user's text", L"the user's format");
    std::optional<Holder> holder; // outlives the keeper
    {
        const clipboard_keeper keeper(window.get());
        fill(L"other", L"another");
        holder.emplace(50ms);
    }
    EXPECT_EQ(content(CF_UNICODETEXT), L"the user's text");
}

TEST_F(ClipboardTest, whatAnotherWindowCopiedMeanwhile_stays)
{
    fill(L"the user's text", L"the user's format");
    const unique_window other{
        CreateWindowExW(0, L"STATIC", L"", WS_POPUP, 0, 0, 10, 10, nullptr, nullptr, nullptr, nullptr)};
    {
        const clipboard_keeper keeper(window.get());
        fill(L"ours", L"another");
        ASSERT_TRUE(OpenClipboard(other.get()));
        EmptyClipboard();
        put(CF_UNICODETEXT, L"copied meanwhile");
        CloseClipboard();
    }
    EXPECT_EQ(content(CF_UNICODETEXT), L"copied meanwhile");
}

TEST_F(ClipboardTest, heldThroughout_isNotKeptAndNotChanged)
{
    fill(L"the user's text", L"the user's format");
    {
        Holder holder(10s);
        const clipboard_keeper keeper(window.get());
        EXPECT_FALSE(keeper.isKept());
        holder.letGo();
        fill(L"copied meanwhile", L"as well");
    }
    EXPECT_EQ(content(CF_UNICODETEXT), L"copied meanwhile");
    EXPECT_EQ(content(ownFormat), L"as well");
}

} // namespace
} // namespace velk
