#include "addin/commandBarEntry.h"
#include "addin/Connect.h"
#include "addin/RZCommandBars.h"
#include "fakeBars.h"
#include "platform/picture.h"
#include "support/fakeBackend.h"
#include "ui/messageBox.h"
#include "ui/uiFont.h"

#include <cwchar>
#include <gtest/gtest.h>

namespace velk {
namespace {

// The user has copied a text before the add-in builds its entries.
class EntryFacesTest : public testing::Test {
protected:
    EntryFacesTest()
    {
        backend.numbersAsTexts = true;
        setMainWindow(window.get());
        OpenClipboard(window.get());
        EmptyClipboard();
        const HGLOBAL block = GlobalAlloc(GMEM_MOVEABLE, sizeof usersText);
        std::wcscpy(static_cast<wchar_t*>(GlobalLock(block)), usersText);
        GlobalUnlock(block);
        SetClipboardData(CF_UNICODETEXT, block);
        CloseClipboard();
    }
    ~EntryFacesTest() override
    {
        OpenClipboard(window.get());
        EmptyClipboard();
        CloseClipboard();
        setMainWindow(nullptr);
        uiFont() = {};
    }
    bool isUsersTextBack() const
    {
        if (!OpenClipboard(window.get()))
            return false;
        const scope_exit closed([] { CloseClipboard(); });
        const HANDLE block = GetClipboardData(CF_UNICODETEXT);
        if (!block || IsClipboardFormatAvailable(CF_BITMAP))
            return false;
        const bool isSame = std::wcscmp(static_cast<const wchar_t*>(GlobalLock(block)), usersText) == 0;
        GlobalUnlock(block);
        return isSame;
    }
    static std::vector<DWORD> picture(int resource) { return test::pixelsOf(loadBitmap(resource).get()); }

    static constexpr wchar_t usersText[] = L"the user's text";
    const unique_window window{
        CreateWindowExW(0, L"STATIC", L"", WS_POPUP, 0, 0, 10, 10, nullptr, nullptr, nullptr, nullptr)};
    test::FakeBackend backend;
    test::FakeIde ide;
    test::FakeBars bars{ide, L"#201"};
};

TEST_F(EntryFacesTest, entryOfTheAddin_hasPicture100)
{
    ide.mainWindow->value(L"HWnd", variant(static_cast<int32_t>(reinterpret_cast<INT_PTR>(window.get()))));
    bars.watchFace(ide.entry.get());
    const com_ptr<Connect> connect = makeObject<Connect>();
    connect->OnConnection(ide.dte.get(), ext_cm_Startup, ide.addin.get(), nullptr);
    EXPECT_EQ(bars.faces[L"#200"], picture(100));
    EXPECT_TRUE(isUsersTextBack());
    connect->OnDisconnection(ext_dm_UserClosed, nullptr);
}

TEST_F(EntryFacesTest, toolbar_pastesAPictureForEachButtonAnd115ForTheFirst)
{
    RZCommandBars own(ide.dte.get());
    own.addToolbar();
    ASSERT_NE(picture(115), picture(100));
    EXPECT_EQ(bars.faces[L"#301"], picture(115));
    EXPECT_EQ(bars.faces[L"#303"], picture(103));
    EXPECT_EQ(bars.faces.size(), 7u);
    EXPECT_TRUE(isUsersTextBack());
}

TEST_F(EntryFacesTest, toolsOfTheMenu_haveAPictureEachAnd100TheFirst)
{
    RZCommandBars own(ide.dte.get());
    own.addTools();
    EXPECT_EQ(bars.faces[L"#206"], picture(100));
    EXPECT_EQ(bars.faces[L"#208"], picture(103));
    EXPECT_EQ(bars.faces.size(), 6u);
    EXPECT_TRUE(isUsersTextBack());
}

TEST_F(EntryFacesTest, helpOfTheMenu_hasOnePicture)
{
    RZCommandBars own(ide.dte.get());
    own.addHelp();
    EXPECT_EQ(bars.faces[L"#211"], picture(111));
    EXPECT_EQ(bars.faces.size(), 1u);
    EXPECT_TRUE(isUsersTextBack());
}

TEST_F(EntryFacesTest, viewsOfTheMenu_haveNoPicture)
{
    RZCommandBars own(ide.dte.get());
    own.addViews();
    EXPECT_TRUE(bars.faces.empty());
    EXPECT_TRUE(isUsersTextBack());
}

TEST_F(EntryFacesTest, faceThatIsRefusedForAMoment_isTriedAgain)
{
    bars.refusedFaces = 4;
    RZCommandBars own(ide.dte.get());
    own.addTools();
    EXPECT_EQ(bars.faces[L"#206"], picture(100));
    EXPECT_EQ(bars.faces.size(), 6u);
    EXPECT_TRUE(isUsersTextBack());
}

TEST_F(EntryFacesTest, faceThatIsRefusedForGood_endsItsGroupAndBringsTheUsersTextBack)
{
    bars.refusedFaces = 100;
    RZCommandBars own(ide.dte.get());
    EXPECT_THROW(own.addTools(), Error);
    EXPECT_EQ(bars.menu.captions(), std::vector<std::wstring>{L"#206"});
    EXPECT_TRUE(isUsersTextBack());
}

TEST_F(EntryFacesTest, buildingThatFailsAfterAFace_bringsTheUsersTextBackToo)
{
    bars.buttons.refused = 2;
    RZCommandBars own(ide.dte.get());
    EXPECT_THROW(own.addToolbar(), Error);
    EXPECT_FALSE(bars.faces.empty());
    EXPECT_TRUE(isUsersTextBack());
}

} // namespace
} // namespace velk
