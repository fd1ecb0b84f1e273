#include "clipboardFixture.h"

#include <optional>

namespace velk {
namespace {

using namespace std::chrono_literals;

// Another program's window that has the clipboard open, in a thread of its own, from the constructor's end on: for a
// while, or until it is let go.
class Holder {
public:
    explicit Holder(std::chrono::milliseconds longest) : m_thread([this, longest] { hold(longest); })
    {
        m_opened.wait();
    }
    Holder(const Holder&) = delete;
    Holder& operator=(const Holder&) = delete;
    ~Holder() { letGo(); }
    void letGo()
    {
        if (!m_thread.joinable())
            return;
        m_enough.give();
        m_thread.join();
    }

private:
    void hold(std::chrono::milliseconds longest)
    {
        const unique_window window = test::hiddenWindow();
        const bool isOpen = OpenClipboard(window.get()) != FALSE;
        m_opened.give();
        m_enough.wait(longest);
        if (isOpen)
            CloseClipboard();
    }

    devkit::Signal m_opened;
    devkit::Signal m_enough;
    devkit::Thread m_thread; // the last member: it uses the others
};

class ClipboardTest : public test::ClipboardFixture {
protected:
    // 0 where there is no picture.
    int widthOfThePicture() const
    {
        BITMAP size{};
        if (!OpenClipboard(user.get()))
            return 0;
        GetObjectW(GetClipboardData(CF_BITMAP), sizeof size, &size);
        CloseClipboard();
        return size.bmWidth;
    }
};

TEST_F(ClipboardTest, bitmapThatIsPut_standsThereAloneAndForNoHistory)
{
    copy(user.get(), L"the user's text", L"the user's format");
    clipboard_keeper keeper;
    EXPECT_TRUE(keeper.put(bitmap.get()));
    EXPECT_TRUE(IsClipboardFormatAvailable(CF_BITMAP));
    EXPECT_FALSE(IsClipboardFormatAvailable(CF_UNICODETEXT));
    EXPECT_FALSE(IsClipboardFormatAvailable(ownFormat));
    EXPECT_TRUE(IsClipboardFormatAvailable(RegisterClipboardFormatW(L"ExcludeClipboardContentFromMonitorProcessing")));
}

TEST_F(ClipboardTest, bitmapThatIsPut_isACopy)
{
    clipboard_keeper keeper;
    keeper.put(unique_bitmap(CreateBitmap(7, 5, 1, 24, nullptr)).get());
    EXPECT_EQ(widthOfThePicture(), 7);
}

TEST_F(ClipboardTest, ownerInBetween_isAHiddenWindowOfItsOwn)
{
    copy(user.get(), L"the user's text", L"the user's format");
    clipboard_keeper keeper;
    keeper.put(bitmap.get());
    const HWND owner = GetClipboardOwner();
    EXPECT_TRUE(IsWindow(owner));
    EXPECT_NE(owner, user.get());
    EXPECT_EQ(GetAncestor(owner, GA_PARENT), GetAncestor(user.get(), GA_PARENT)); // of no program's windows
}

TEST_F(ClipboardTest, textAndARegisteredFormat_comeBack)
{
    copy(user.get(), L"the user's text", L"the user's format");
    EXPECT_TRUE(showBitmap());
    EXPECT_EQ(content(CF_UNICODETEXT), L"the user's text");
    EXPECT_EQ(content(ownFormat), L"the user's format");
    EXPECT_FALSE(IsClipboardFormatAvailable(CF_BITMAP));
}

TEST_F(ClipboardTest, severalBitmaps_giveTheUsersContentBackOnce)
{
    copy(user.get(), L"the user's text", L"the user's format");
    {
        clipboard_keeper keeper;
        EXPECT_TRUE(keeper.put(bitmap.get()));
        EXPECT_TRUE(keeper.put(bitmap.get()));
    }
    EXPECT_EQ(content(CF_UNICODETEXT), L"the user's text");
    EXPECT_EQ(content(ownFormat), L"the user's format");
}

TEST_F(ClipboardTest, emptyClipboard_isEmptyAgain)
{
    empty();
    EXPECT_TRUE(showBitmap());
    EXPECT_EQ(CountClipboardFormats(), 0);
}

TEST_F(ClipboardTest, picture_comesBack)
{
    copyOne(CF_BITMAP, CreateBitmap(7, 5, 1, 24, nullptr));
    EXPECT_TRUE(showBitmap());
    EXPECT_EQ(widthOfThePicture(), 7);
}

TEST_F(ClipboardTest, drawing_comesBack)
{
    copyOne(CF_ENHMETAFILE, CloseEnhMetaFile(CreateEnhMetaFileW(nullptr, nullptr, nullptr, L"a drawing")));
    EXPECT_TRUE(showBitmap());
    ASSERT_TRUE(OpenClipboard(user.get()));
    wchar_t name[32]{};
    GetEnhMetaFileDescriptionW(static_cast<HENHMETAFILE>(GetClipboardData(CF_ENHMETAFILE)), 32, name);
    CloseClipboard();
    EXPECT_STREQ(name, L"a drawing");
}

TEST_F(ClipboardTest, keeperThatShowedNothing_leavesTheClipboardAlone)
{
    copy(user.get(), L"the user's text", L"the user's format");
    const DWORD before = GetClipboardSequenceNumber();
    {
        const clipboard_keeper keeper;
    }
    EXPECT_EQ(GetClipboardSequenceNumber(), before);
    EXPECT_EQ(GetClipboardOwner(), user.get());
}

TEST_F(ClipboardTest, heldForAMomentWhileItIsRead_isWaitedFor)
{
    copy(user.get(), L"the user's text", L"the user's format");
    Holder holder(50ms);
    EXPECT_TRUE(showBitmap());
    holder.letGo();
    EXPECT_EQ(content(CF_UNICODETEXT), L"the user's text");
}

TEST_F(ClipboardTest, heldForAMomentWhileItIsPutBack_isWaitedFor)
{
    copy(user.get(), L"the user's text", L"the user's format");
    std::optional<Holder> holder; // outlives the keeper
    {
        clipboard_keeper keeper;
        EXPECT_TRUE(keeper.put(bitmap.get()));
        holder.emplace(50ms);
    }
    EXPECT_EQ(content(CF_UNICODETEXT), L"the user's text");
}

TEST_F(ClipboardTest, heldThroughout_isNotChanged)
{
    copy(user.get(), L"the user's text", L"the user's format");
    Holder holder(10s);
    EXPECT_FALSE(showBitmap());
    holder.letGo();
    EXPECT_EQ(content(CF_UNICODETEXT), L"the user's text");
    EXPECT_EQ(GetClipboardOwner(), user.get());
}

TEST_F(ClipboardTest, whatAnotherWindowCopiedMeanwhile_stays)
{
    copy(user.get(), L"the user's text", L"the user's format");
    const unique_window other = test::hiddenWindow();
    {
        clipboard_keeper keeper;
        EXPECT_TRUE(keeper.put(bitmap.get()));
        copy(other.get(), L"copied meanwhile", L"as well");
    }
    EXPECT_EQ(content(CF_UNICODETEXT), L"copied meanwhile");
    EXPECT_EQ(GetClipboardOwner(), other.get());
}

TEST_F(ClipboardTest, whatAnotherWindowCopiedBetweenTwoBitmaps_comesBack)
{
    copy(user.get(), L"the user's text", L"the user's format");
    {
        clipboard_keeper keeper;
        EXPECT_TRUE(keeper.put(bitmap.get()));
        copy(user.get(), L"copied meanwhile", L"as well");
        EXPECT_TRUE(keeper.put(bitmap.get()));
    }
    EXPECT_EQ(content(CF_UNICODETEXT), L"copied meanwhile");
}

} // namespace
} // namespace velk
