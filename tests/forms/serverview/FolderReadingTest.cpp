#include "serverview/FolderReading.h"

#include "base/grouped_number.h"
#include "listFixture.h"

#include <product.h>

namespace velk {
namespace {

using test::Calls;

// A shown folder of views whose objects take their time, by a clock that goes when the test says so.
class FolderReadingTest : public test::ListFixture {
protected:
    FolderReadingTest()
    {
        now() = 5000;
        escape() = false;
        readingSenses() = {[]() noexcept { return now(); },
                           [](int key) noexcept { return key == VK_ESCAPE && escape(); }};
        giveViews(20);
        backend.unjournaled.insert("RZViewEnumNext");
        tree().select(L"K24");
        SetForegroundWindow(host);
        SetFocus(tree().hwnd());
        m_next = backend.on.RZViewEnumNext;
        backend.on.RZViewEnumNext = [this](int32_t enumeration, auto* record) {
            ++asked;
            now() += step;
            if (whenAsked.contains(asked))
                whenAsked[asked]();
            return m_next(enumeration, record);
        };
        backend.calls.clear();
        SetCursor(LoadCursorW(nullptr, IDC_ARROW));
    }
    ~FolderReadingTest() override { readingSenses() = m_before; }
    static DWORD& now()
    {
        static DWORD time = 0;
        return time;
    }
    static bool& escape()
    {
        static bool isDown = false;
        return isDown;
    }
    static bool isWaiting() { return GetCursor() == LoadCursorW(nullptr, IDC_WAIT); }
    static std::wstring told(size_t objects)
    {
        std::wstring text = ownTexts::readSoFar;
        return text.replace(text.find(L"%1"), 2, groupedNumber(objects));
    }
    // The line below the list; null without one.
    HWND footLine()
    {
        HWND child = nullptr;
        while ((child = FindWindowExW(view.hwnd(), child, L"STATIC", nullptr)) != nullptr)
            if (child != view.splitPane() && IsWindowVisible(child))
                break;
        return child;
    }
    std::wstring foot()
    {
        wchar_t text[128]{};
        if (const HWND line = footLine())
            GetWindowTextW(line, text, 128);
        return text;
    }
    static RECT placeOf(HWND window)
    {
        RECT place{};
        GetWindowRect(window, &place);
        return place;
    }
    LONG listHeight()
    {
        const RECT place = placeOf(list().view().hwnd());
        return place.bottom - place.top;
    }
    // Esc is pressed when the tool is asked for an object, and not let go.
    void pressEscapeAt(int object)
    {
        whenAsked[object] = [] { escape() = true; };
    }
    bool translate(UINT message, WPARAM key, LPARAM repeated, DWORD time)
    {
        const MSG typed{tree().hwnd(), message, key, repeated, time, {}};
        return view.translateKey(typed);
    }

    DWORD step = 50; // milliseconds that each object takes
    int asked = 0;
    std::map<int, std::function<void()>> whenAsked;

private:
    ReadingSenses m_before = readingSenses();
    std::function<int32_t(int32_t, test::wire::trzView*)> m_next;
};

TEST_F(FolderReadingTest, quickReading_tellsNothingAndKeepsThePointer)
{
    step = 14; // 294 ms in all, with the end
    paint();
    bool waited = false;
    whenAsked[21] = [&] { waited = isWaiting() || onScreen() == picture(told(20)); };
    fillViews();
    EXPECT_FALSE(waited);
    EXPECT_EQ(shownRows(), 20);
}

TEST_F(FolderReadingTest, longReading_waitsAndCountsInTheListsArea)
{
    bool waitsBefore = true;
    bool waits = false;
    Pixels seen;
    whenAsked[6] = [&] { waitsBefore = isWaiting(); };
    whenAsked[7] = [&] {
        waits = isWaiting();
        seen = onScreen();
    };
    fillViews();
    EXPECT_FALSE(waitsBefore);
    EXPECT_TRUE(waits);
    EXPECT_EQ(seen, picture(told(6)));
    EXPECT_FALSE(isWaiting());
    EXPECT_EQ(shownRows(), 20);
}

TEST_F(FolderReadingTest, longReadingWithoutMemoryForItsNumber_readsOn)
{
    {
        ListNotice& notice = *publishedView().notice;
        const test::OutOfMemory none;
        notice.tellNumber(12'300);
        EXPECT_TRUE(none.wasFelt());
        notice.endStopped(12'300, 0);
    }
    fillViews();
    EXPECT_EQ(shownRows(), 20);
    EXPECT_EQ(foot(), L"");
}

TEST_F(FolderReadingTest, number_isTheNextAfterATenthOfASecond)
{
    Pixels early;
    Pixels late;
    whenAsked[8] = [&] { early = onScreen(); };
    whenAsked[9] = [&] { late = onScreen(); };
    fillViews();
    EXPECT_EQ(early, picture(told(6)));
    EXPECT_EQ(late, picture(told(8)));
}

TEST_F(FolderReadingTest, rowsOfTheFolderBefore_areNotShownBesideTheNumber)
{
    step = 0;
    fillViews();
    paint();
    asked = 0;
    step = 50;
    whenAsked[7] = [&] { EXPECT_EQ(onScreen(), picture(told(6))); };
    clearListRows();
    backend.folders[24].clear();
    giveViews(20);
    fillViews();
    EXPECT_EQ(shownRows(), 20);
}

TEST_F(FolderReadingTest, escapeHeldInALongReading_keepsWhatCameAndEndsTheEnumeration)
{
    pressEscapeAt(9);
    fillViews();
    EXPECT_EQ(asked, 9);
    EXPECT_EQ(shownRows(), 9);
    EXPECT_EQ(backend.calls, (Calls{"RZViewEnumBegin(24)", "RZViewEnumEnd(1)"}));
    EXPECT_FALSE(isWaiting());
}

TEST_F(FolderReadingTest, stoppedReading_saysBelowTheListThatThereAreMore)
{
    const LONG before = listHeight();
    pressEscapeAt(9);
    fillViews();
    EXPECT_EQ(foot(), L"Stopped after 9 objects. There are more: F5 reads all.");
    EXPECT_LT(listHeight(), before);
    escape() = false;
    whenAsked.clear();
    step = 0;
    clearListRows();
    backend.folders[24].clear();
    giveViews(20);
    fillViews();
    EXPECT_EQ(foot(), L"");
    EXPECT_EQ(listHeight(), before);
    EXPECT_EQ(shownRows(), 20);
}

TEST_F(FolderReadingTest, stoppedReadingWithTheFilterStripOpen_leavesTheListTheRoomBetweenThem)
{
    pressEscapeAt(9);
    fillViews();
    const HWND line = footLine();
    view.filterStrip().show();
    const HWND strip = FindWindowExW(view.hwnd(), nullptr, VELK_OWN_NAME("filterStrip"), nullptr);
    ASSERT_TRUE(strip && IsWindowVisible(strip));
    EXPECT_EQ(placeOf(strip).bottom, placeOf(list().view().hwnd()).top);
    EXPECT_EQ(placeOf(list().view().hwnd()).bottom, placeOf(line).top);
    EXPECT_GT(listHeight(), 0);
    EXPECT_EQ(foot(), L"Stopped after 9 objects. There are more: F5 reads all.");
}

TEST_F(FolderReadingTest, stoppedReading_isForgottenWithItsFolder)
{
    pressEscapeAt(9);
    fillViews();
    tree().select(L"K23");
    EXPECT_EQ(foot(), L"");
}

TEST_F(FolderReadingTest, stoppedReading_isForgottenWhenItsFolderGoes)
{
    pressEscapeAt(9);
    fillViews();
    removeNode(L"K1");
    EXPECT_EQ(foot(), L"");
}

TEST_F(FolderReadingTest, escapeInAShortReading_isNotMeantForIt)
{
    step = 14;
    pressEscapeAt(9);
    fillViews();
    EXPECT_EQ(shownRows(), 20);
    EXPECT_EQ(foot(), L"");
}

TEST_F(FolderReadingTest, escapeHeldSinceBeforeTheReading_isNotMeantForIt)
{
    escape() = true;
    fillViews();
    EXPECT_EQ(shownRows(), 20);
}

TEST_F(FolderReadingTest, escapeWhileAnotherWindowHasTheFocus_isNotMeantForIt)
{
    SetFocus(host);
    pressEscapeAt(9);
    fillViews();
    EXPECT_EQ(shownRows(), 20);
}

TEST_F(FolderReadingTest, escapeThatStopped_doesNothingMore)
{
    pressEscapeAt(9);
    fillViews();
    constexpr LPARAM repeated = 1 << 30;
    EXPECT_TRUE(translate(WM_KEYDOWN, VK_ESCAPE, 0, now()));
    EXPECT_TRUE(translate(WM_KEYDOWN, VK_ESCAPE, repeated, now() + 100));
    EXPECT_FALSE(translate(WM_KEYDOWN, VK_ESCAPE, 0, now() + 200));
    EXPECT_FALSE(translate(WM_KEYDOWN, VK_ESCAPE, repeated, now() + 300));
}

TEST_F(FolderReadingTest, otherKeyAfterEscapeThatStopped_isNotTaken)
{
    pressEscapeAt(9);
    fillViews();
    EXPECT_FALSE(translate(WM_KEYDOWN, 'A', 0, now()));
}

TEST_F(FolderReadingTest, escapeWithoutAStoppedReading_isNotTaken)
{
    fillViews();
    EXPECT_FALSE(translate(WM_KEYDOWN, VK_ESCAPE, 0, now()));
}

TEST_F(FolderReadingTest, sessionThatEndsInALongReading_leavesThePointerAsItWas)
{
    whenAsked[9] = [this] { session.enter(SessionState::ending); };
    fillViews();
    EXPECT_EQ(asked, 9);
    EXPECT_FALSE(isWaiting());
    EXPECT_EQ(backend.calls, Calls{"RZViewEnumBegin(24)"});
}

TEST_F(FolderReadingTest, otherFolderSelectedInALongReading_isTheOneThatIsLoading)
{
    whenAsked[9] = [this] { tree().select(L"K23"); };
    fillViews();
    EXPECT_EQ(asked, 9);
    EXPECT_FALSE(isWaiting());
    EXPECT_EQ(painted(), picture(ownTexts::loading));
}

TEST_F(FolderReadingTest, viewClosedInALongReading_endsIt)
{
    whenAsked[9] = [this] { DestroyWindow(view.hwnd()); };
    fillViews();
    EXPECT_EQ(asked, 9);
    EXPECT_FALSE(isWaiting());
}

TEST_F(FolderReadingTest, anotherViewThatComesAndGoesMeanwhile_isNotTakenForThisOne)
{
    svrViewCtl another;
    whenAsked[9] = [&] {
        another.create(host, {0, 0, 100, 100});
        another.setupGUI();
    };
    whenAsked[11] = [&] { DestroyWindow(another.hwnd()); };
    fillViews();
    EXPECT_EQ(publishedView().notice, nullptr);
    EXPECT_FALSE(isWaiting());
}

TEST_F(FolderReadingTest, messagesThatWait_areNotCarriedOutMeanwhile)
{
    step = 500;
    PostMessageW(view.hwnd(), WM_CLOSE, 0, 0);
    PostMessageW(list().view().hwnd(), WM_APP, 0, 0);
    PostThreadMessageW(GetCurrentThreadId(), WM_APP + 1, 0, 0);
    fillViews();
    EXPECT_NE(view.hwnd(), nullptr);
    MSG waiting{};
    EXPECT_TRUE(PeekMessageW(&waiting, nullptr, WM_APP, WM_APP, PM_REMOVE));
    EXPECT_TRUE(PeekMessageW(&waiting, nullptr, WM_APP + 1, WM_APP + 1, PM_REMOVE));
    EXPECT_TRUE(PeekMessageW(&waiting, nullptr, WM_CLOSE, WM_CLOSE, PM_REMOVE));
}

TEST_F(FolderReadingTest, toolThatBecomesSlow_isStillStoppedByEscapeAtOnce)
{
    backend.folders[24].clear();
    giveViews(1000);
    step = 0;
    whenAsked[512] = [this] { step = 50; };
    pressEscapeAt(560);
    fillViews();
    EXPECT_EQ(shownRows(), 560);
}

TEST_F(FolderReadingTest, quickObjects_areNotEachALookAtTheKey)
{
    static int looks;
    looks = 0;
    readingSenses().isKeyDown = [](int) noexcept {
        ++looks;
        return false;
    };
    step = 0;
    backend.folders[24].clear();
    giveViews(2000);
    fillViews();
    EXPECT_LT(looks, 30);
}

TEST_F(FolderReadingTest, lineBelowTheList_isAsHighAsItsTextInANarrowFont)
{
    LOGFONTW narrow{};
    narrow.lfHeight = -30;
    narrow.lfWidth = 5;
    lstrcpyW(narrow.lfFaceName, L"Tahoma");
    const unique_font font(CreateFontIndirectW(&narrow));
    list().setFont(font.get());
    pressEscapeAt(9);
    fillViews();
    ASSERT_NE(foot(), L"");
    LONG height = 0;
    for (HWND child = nullptr; (child = FindWindowExW(view.hwnd(), child, L"STATIC", nullptr)) != nullptr;)
        if (child != view.splitPane() && IsWindowVisible(child)) {
            RECT place{};
            GetWindowRect(child, &place);
            height = place.bottom - place.top;
        }
    const unique_screen_dc dc(GetDC(nullptr));
    const HGDIOBJ before = SelectObject(dc.get(), font.get());
    TEXTMETRICW metrics{};
    GetTextMetricsW(dc.get(), &metrics);
    SelectObject(dc.get(), before);
    EXPECT_GE(height, metrics.tmHeight);
}

} // namespace
} // namespace velk
