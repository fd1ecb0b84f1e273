#include "addin/commandBarEntry.h"
#include "addin/Connect.h"
#include "addin/IMgrVI.h"
#include "addin/RZCommandBars.h"
#include "com/picture.h"
#include "fakeBars.h"
#include "serverview/serverViewDoc.h"
#include "support/fakeBackend.h"
#include "ui/messageBox.h"
#include "ui/uiFont.h"

#include <algorithm>
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
        before = GetClipboardSequenceNumber();
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
    bool isClipboardUntouched() const
    {
        return GetClipboardOwner() == window.get() && GetClipboardSequenceNumber() == before;
    }
    // The pixels of a picture that a control was given.
    std::vector<DWORD> given(const wchar_t* property) const
    {
        const com_ptr<IDispatch> object = bars.menu.made.at(0)->read(property).asObject();
        OLE_HANDLE handle = 0;
        object.tryAs<IPicture>()->get_Handle(&handle);
        return test::pixelsOf(reinterpret_cast<HBITMAP>(static_cast<UINT_PTR>(handle)));
    }
    static std::vector<DWORD> picture(int resource) { return test::pixelsOf(loadBitmap(resource).get()); }

    static constexpr wchar_t usersText[] = L"the user's text";
    const unique_window window{
        CreateWindowExW(0, L"STATIC", L"", WS_POPUP, 0, 0, 10, 10, nullptr, nullptr, nullptr, nullptr)};
    DWORD before = 0; // the clipboard's number with the user's text
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
    own.finish();
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
    own.finish();
    EXPECT_EQ(bars.faces[L"#206"], picture(100));
    EXPECT_EQ(bars.faces[L"#208"], picture(103));
    EXPECT_EQ(bars.faces.size(), 6u);
    EXPECT_TRUE(isUsersTextBack());
}

TEST_F(EntryFacesTest, helpOfTheMenu_hasOnePicture)
{
    RZCommandBars own(ide.dte.get());
    own.addHelp();
    own.finish();
    EXPECT_EQ(bars.faces[L"#211"], picture(111));
    EXPECT_EQ(bars.faces.size(), 1u);
    EXPECT_TRUE(isUsersTextBack());
}

TEST_F(EntryFacesTest, viewsOfTheMenu_haveNoPicture)
{
    RZCommandBars own(ide.dte.get());
    own.addViews();
    EXPECT_TRUE(bars.faces.empty());
    EXPECT_TRUE(isClipboardUntouched());
}

TEST_F(EntryFacesTest, severalGroups_bringTheUsersTextBackOnceAtTheEnd)
{
    RZCommandBars own(ide.dte.get());
    int timesBack = 0;
    bars.whenNamed = [&] { timesBack += isUsersTextBack(); };
    own.addToolbar();
    own.addTools();
    EXPECT_EQ(timesBack, 1); // before the first picture
    own.finish();
    EXPECT_TRUE(isUsersTextBack());
}

TEST_F(EntryFacesTest, managerThatBuiltAll_hasBroughtTheUsersTextBack)
{
    const com_ptr<IMgrVI> manager = makeObject<IMgrVI>();
    manager->setupIM(ide.dte.get(), ide.addin.get());
    EXPECT_EQ(manager->createRZUI(), S_OK);
    EXPECT_EQ(bars.faces.size(), 14u);
    EXPECT_TRUE(isUsersTextBack());
    manager->deleteRZUI();
    serverViewWindow() = {};
}

TEST_F(EntryFacesTest, removalWithoutAnEnd_bringsTheUsersTextBackToo)
{
    RZCommandBars own(ide.dte.get());
    own.addToolbar();
    own.remove();
    EXPECT_TRUE(isUsersTextBack());
}

TEST_F(EntryFacesTest, removalWhileAFaceIsPasted_endsTheGroup)
{
    const Session session;
    const auto own = std::make_shared<RZCommandBars>(ide.dte.get(), session);
    bars.whenPasted = [&] {
        session.enter(SessionState::ending);
        own->remove();
    };
    EXPECT_THROW(own->addToolbar(), Error);
    EXPECT_EQ(bars.faces.size(), 1u);
    EXPECT_TRUE(isUsersTextBack());
}

TEST_F(EntryFacesTest, faceThatIsRefusedForAMoment_isTriedAgain)
{
    bars.refusedFaces = 4;
    RZCommandBars own(ide.dte.get());
    own.addTools();
    own.finish();
    EXPECT_EQ(bars.faces[L"#206"], picture(100));
    EXPECT_EQ(bars.faces.size(), 6u);
    EXPECT_TRUE(isUsersTextBack());
}

TEST_F(EntryFacesTest, faceThatIsRefusedForGood_endsItsGroupAndBringsTheUsersTextBack)
{
    bars.refusedFaces = 100;
    RZCommandBars own(ide.dte.get());
    EXPECT_THROW(own.addTools(), Error);
    own.finish();
    EXPECT_EQ(bars.menu.captions(), std::vector<std::wstring>{L"#206"});
    EXPECT_TRUE(isUsersTextBack());
}

TEST_F(EntryFacesTest, buildingThatFailsAfterAFace_bringsTheUsersTextBackToo)
{
    bars.buttons.refused = 2;
    RZCommandBars own(ide.dte.get());
    EXPECT_THROW(own.addToolbar(), Error);
    own.finish();
    EXPECT_FALSE(bars.faces.empty());
    EXPECT_TRUE(isUsersTextBack());
}

TEST_F(EntryFacesTest, clipboardThatCannotBeKept_leavesEntriesWithoutFaceButWhole)
{
    OpenClipboard(window.get());
    EmptyClipboard();
    SetClipboardData(CF_UNICODETEXT, GlobalAlloc(GMEM_MOVEABLE | GMEM_ZEROINIT, 17 * 1024 * 1024));
    CloseClipboard();
    RZCommandBars own(ide.dte.get());
    own.addTools();
    EXPECT_TRUE(bars.faces.empty());
    EXPECT_EQ(bars.menu.made.size(), 6u);
    EXPECT_EQ(bars.menu.made.back()->read(L"OnAction").asText(), L"10");
    EXPECT_EQ(GetClipboardOwner(), window.get());
}

TEST_F(EntryFacesTest, controlWithPictures_needsNoClipboard)
{
    bars.hasPictures = true;
    RZCommandBars own(ide.dte.get());
    own.addHelp();
    own.addTools();
    own.addToolbar();
    EXPECT_TRUE(bars.faces.empty());
    EXPECT_TRUE(isClipboardUntouched());
}

TEST_F(EntryFacesTest, controlWithPictures_getsItsFaceAndThenTheMask)
{
    bars.hasPictures = true;
    RZCommandBars own(ide.dte.get());
    own.addTools();
    EXPECT_EQ(given(L"Picture"), picture(100));
    EXPECT_EQ(given(L"Mask"), test::pixelsOf(maskOf(loadBitmap(100).get(), RGB(192, 192, 192)).get()));
    const std::vector<std::wstring>& steps = bars.menu.journal;
    EXPECT_LT(std::find(steps.begin(), steps.end(), L"Control.Picture = <object>"),
              std::find(steps.begin(), steps.end(), L"Control.Mask = <object>"));
}

TEST_F(EntryFacesTest, controlThatRefusesPictures_isPastedItsFace)
{
    bars.hasPictures = true;
    bars.controlsFail = L"Mask";
    RZCommandBars own(ide.dte.get());
    own.addTools();
    own.finish();
    EXPECT_EQ(bars.faces[L"#206"], picture(100));
    EXPECT_TRUE(isUsersTextBack());
}

TEST_F(EntryFacesTest, sessionThatEndsWhilePasting_isNotPastedAgain)
{
    const Session session;
    int pasted = 0;
    ide.entry->function(L"PasteFace", [&](const auto&) -> variant {
        ++pasted;
        session.enter(SessionState::ending);
        throw Error(errorPermissionDenied);
    });
    EXPECT_THROW(EntryFaces(session).paste(ide.entry.get(), 100), Error);
    EXPECT_EQ(pasted, 1);
    EXPECT_TRUE(isUsersTextBack());
}

TEST(maskOf, colourThatStandsForNothing_isWhiteAndAllElseBlack)
{
    const DWORD pixels[] = {0x00C0C0C0, 0x00FF0000, 0x00C0C0C0, 0x00C0C0C1};
    const unique_bitmap face(CreateBitmap(2, 2, 1, 32, pixels));
    EXPECT_EQ(test::pixelsOf(maskOf(face.get(), RGB(192, 192, 192)).get()),
              (std::vector<DWORD>{0x00FFFFFF, 0, 0x00FFFFFF, 0}));
}

} // namespace
} // namespace velk
