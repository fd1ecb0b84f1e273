// What is asked of the program that has put something on the clipboard, and what is not.
#include "clipboardFixture.h"

#include <gmock/gmock.h>

namespace velk {
namespace {

using namespace std::chrono_literals;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

// How a program in a thread of its own makes what it has only promised: at once, slowly, or not before it answers
// messages again.
struct Manner {
    std::chrono::milliseconds slowness{0};
    std::chrono::milliseconds silence{0};
};

class Promiser {
public:
    explicit Promiser(std::vector<UINT> formats, Manner manner = {})
        : m_manner(manner), m_thread([this, formats = std::move(formats)] { run(formats); })
    {
        m_promised.wait();
    }
    Promiser(const Promiser&) = delete;
    Promiser& operator=(const Promiser&) = delete;
    ~Promiser()
    {
        m_end.give();
        PostMessageW(m_window, WM_CLOSE, 0, 0);
        m_thread.join();
    }
    HWND window() const { return m_window; }
    const std::vector<UINT>& made() const { return m_made; }

private:
    void run(const std::vector<UINT>& formats)
    {
        const unique_window window = test::hiddenWindow();
        m_window = window.get();
        SetWindowLongW(m_window, GWL_USERDATA, reinterpret_cast<LONG>(this));
        SetWindowLongW(m_window, GWL_WNDPROC, reinterpret_cast<LONG>(&procedure));
        OpenClipboard(m_window);
        EmptyClipboard();
        for (const UINT format : formats)
            SetClipboardData(format, nullptr);
        CloseClipboard();
        m_promised.give();
        m_end.wait(m_manner.silence);
        MSG message;
        while (GetMessageW(&message, nullptr, 0, 0) > 0 && message.message != WM_CLOSE)
            DispatchMessageW(&message);
    }
    static LRESULT CALLBACK procedure(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam)
    {
        const auto self = reinterpret_cast<Promiser*>(GetWindowLongW(hwnd, GWL_USERDATA));
        if (message != WM_RENDERFORMAT)
            return DefWindowProcW(hwnd, message, wParam, lParam);
        Sleep(static_cast<DWORD>(self->m_manner.slowness.count()));
        self->m_made.push_back(static_cast<UINT>(wParam));
        SetClipboardData(static_cast<UINT>(wParam), test::blockOf(L"made"));
        return 0;
    }

    const Manner m_manner;
    HWND m_window = nullptr;
    std::vector<UINT> m_made; // written while somebody waits for it
    devkit::Signal m_promised;
    devkit::Signal m_end;
    devkit::Thread m_thread; // the last member: it uses the others
};

class ClipboardOwnersTest : public test::ClipboardFixture {
protected:
    // Formats of these programs' own, as many as wanted.
    static std::vector<UINT> registered(int count)
    {
        std::vector<UINT> formats;
        for (int number = 0; number < count; ++number)
            formats.push_back(RegisterClipboardFormatW((L"velkviadd test " + std::to_wstring(number)).c_str()));
        return formats;
    }
};

TEST_F(ClipboardOwnersTest, promisedData_isMadeAndComesBack)
{
    const Promiser owner({CF_UNICODETEXT, ownFormat});
    EXPECT_TRUE(showBitmap());
    EXPECT_THAT(owner.made(), ElementsAre(CF_UNICODETEXT, ownFormat));
    EXPECT_EQ(content(CF_UNICODETEXT), L"made");
    EXPECT_EQ(content(ownFormat), L"made");
}

TEST_F(ClipboardOwnersTest, textInSeveralForms_isMadeInUnicodeOnly)
{
    const Promiser owner({CF_TEXT, CF_OEMTEXT, CF_UNICODETEXT});
    EXPECT_TRUE(showBitmap());
    EXPECT_THAT(owner.made(), ElementsAre(CF_UNICODETEXT));
    EXPECT_TRUE(IsClipboardFormatAvailable(CF_TEXT));
}

TEST_F(ClipboardOwnersTest, pictureInSeveralForms_isMadeInTheOwnersFirst)
{
    const Promiser owner({CF_DIB, CF_DIBV5, CF_BITMAP});
    EXPECT_TRUE(showBitmap());
    EXPECT_THAT(owner.made(), ElementsAre(CF_DIB));
}

TEST_F(ClipboardOwnersTest, handlesOfTheOwnersOwn_areNotAskedFor)
{
    const Promiser owner({CF_METAFILEPICT, CF_PALETTE, CF_OWNERDISPLAY, CF_PRIVATEFIRST, CF_GDIOBJFIRST, ownFormat});
    EXPECT_TRUE(showBitmap());
    EXPECT_THAT(owner.made(), testing::Not(testing::Contains(
                                  testing::AnyOf(CF_PALETTE, CF_OWNERDISPLAY, CF_PRIVATEFIRST, CF_GDIOBJFIRST))));
    EXPECT_EQ(content(ownFormat), L"made");
}

TEST_F(ClipboardOwnersTest, marksOfAnOleSource_doNotComeBackWithoutIt)
{
    const UINT mark = RegisterClipboardFormatW(L"DataObject");
    const UINT otherMark = RegisterClipboardFormatW(L"Ole Private Data");
    const Promiser owner({mark, ownFormat, otherMark});
    EXPECT_TRUE(showBitmap());
    EXPECT_THAT(owner.made(), ElementsAre(ownFormat));
    EXPECT_FALSE(IsClipboardFormatAvailable(mark));
    EXPECT_FALSE(IsClipboardFormatAvailable(otherMark));
}

TEST_F(ClipboardOwnersTest, slowOwner_isAskedOnceAndKeepsTheClipboard)
{
    const Promiser owner(registered(3), {600ms});
    EXPECT_FALSE(showBitmap());
    EXPECT_THAT(owner.made(), SizeIs(1));
    EXPECT_EQ(GetClipboardOwner(), owner.window());
}

TEST_F(ClipboardOwnersTest, contentThatCouldNotBeKept_isNotAskedForAgain)
{
    const Promiser owner(registered(3), {600ms});
    EXPECT_FALSE(showBitmap());
    EXPECT_FALSE(showBitmap());
    EXPECT_THAT(owner.made(), SizeIs(1));
}

TEST_F(ClipboardOwnersTest, newContentAfterOneThatCouldNotBeKept_isKept)
{
    {
        const Promiser owner(registered(3), {600ms});
        EXPECT_FALSE(showBitmap());
    }
    copy(user.get(), L"the user's text", L"the user's format");
    EXPECT_TRUE(showBitmap());
    EXPECT_EQ(content(CF_UNICODETEXT), L"the user's text");
}

TEST_F(ClipboardOwnersTest, ownerThatDoesNotAnswer_isNotAskedAndKeepsTheClipboard)
{
    const Promiser owner(registered(2), {0ms, 3s});
    EXPECT_FALSE(showBitmap());
    EXPECT_THAT(owner.made(), IsEmpty());
    EXPECT_EQ(GetClipboardOwner(), owner.window());
}

TEST_F(ClipboardOwnersTest, formatsWithoutEnd_areNotAskedForAtAll)
{
    const Promiser owner(registered(33));
    EXPECT_FALSE(showBitmap());
    EXPECT_THAT(owner.made(), IsEmpty());
    EXPECT_EQ(CountClipboardFormats(), 33);
}

TEST_F(ClipboardOwnersTest, asManyFormatsAsAreAllowed_comeBack)
{
    const Promiser owner(registered(32));
    EXPECT_TRUE(showBitmap());
    EXPECT_EQ(CountClipboardFormats(), 32);
}

TEST_F(ClipboardOwnersTest, moreThanSixteenMegabytes_stayWhereTheyAre)
{
    copyOne(ownFormat, GlobalAlloc(GMEM_MOVEABLE | GMEM_ZEROINIT, 16 * 1024 * 1024 + 1));
    EXPECT_FALSE(showBitmap());
    EXPECT_EQ(GetClipboardOwner(), user.get());
    EXPECT_TRUE(IsClipboardFormatAvailable(ownFormat));
}

TEST_F(ClipboardOwnersTest, bigPicture_countsByItsBytes)
{
    copyOne(CF_BITMAP, CreateBitmap(2048, 2049, 1, 32, nullptr));
    EXPECT_FALSE(showBitmap());
    EXPECT_EQ(GetClipboardOwner(), user.get());
}

TEST_F(ClipboardOwnersTest, promiseOfAProgramThatIsGone_doesNotHinder)
{
    {
        const Promiser owner({ownFormat});
    }
    EXPECT_TRUE(showBitmap());
}

} // namespace
} // namespace velk
