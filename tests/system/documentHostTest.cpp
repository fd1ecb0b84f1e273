// The server view's document in a host for whole documents.
#include "support/documentHost.h"
#include "dllFixture.h"

#include <gmock/gmock.h>

namespace velk {
namespace {

using testing::ElementsAre;

class DocumentHostTest : public test::DllFixture {
protected:
    DocumentHostTest()
    {
        window = madeWindow();
        host = makeObject<test::DocumentHost>(window);
        document = make<IUnknown>(CLSID_serverViewDoc);
        shown = host->show(document.get());
    }
    ~DocumentHostTest() override
    {
        if (host)
            host->close();
        document.reset();
        host.reset();
        DestroyWindow(window);
    }
    static HWND madeWindow()
    {
        return CreateWindowExW(0, L"STATIC", L"", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 0, 0, 500, 400, nullptr, nullptr,
                               nullptr, nullptr);
    }
    static bool isShown(HWND window) { return (GetWindowLongW(window, GWL_STYLE) & WS_VISIBLE) != 0; }
    HWND content() const { return FindWindowExW(window, nullptr, L"velkviadd.serverViewDoc", nullptr); }

    HWND window = nullptr;
    com_ptr<test::DocumentHost> host;
    com_ptr<IUnknown> document;
    HRESULT shown = E_FAIL;
};

TEST_F(DocumentHostTest, documentSite_isAskedAndActivatesTheView)
{
    EXPECT_EQ(shown, S_OK);
    EXPECT_THAT(host->asked, ElementsAre(testing::StrEq("ActivateMe"), testing::StrEq("OnInPlaceActivate"),
                                         testing::StrEq("OnUIActivate")));
    EXPECT_NE(content(), nullptr);
}

TEST_F(DocumentHostTest, view_takesTheRectangleThatItIsGiven)
{
    RECT wanted{10, 20, 210, 120};
    EXPECT_EQ(host->view->SetRect(&wanted), S_OK);
    RECT read{};
    EXPECT_EQ(host->view->GetRect(&read), S_OK);
    EXPECT_TRUE(EqualRect(&wanted, &read));
}

TEST_F(DocumentHostTest, hiddenView_isShownAgain)
{
    EXPECT_EQ(host->view->Show(FALSE), S_OK);
    EXPECT_EQ(GetWindowLongW(content(), GWL_STYLE) & WS_VISIBLE, 0);
    EXPECT_EQ(host->view->Show(TRUE), S_OK);
    EXPECT_NE(GetWindowLongW(content(), GWL_STYLE) & WS_VISIBLE, 0);
}

TEST_F(DocumentHostTest, secondView_isRefused)
{
    com_ptr<IOleDocumentView> second;
    const auto other = makeObject<test::DocumentHost>(window);
    const auto site = com_ptr<IOleClientSite>(other.get()).tryAs<IOleInPlaceSite>();
    EXPECT_NE(document.tryAs<IOleDocument>()->CreateView(site.get(), nullptr, 0, second.put()), S_OK);
    EXPECT_FALSE(second);
}

TEST_F(DocumentHostTest, closedView_leavesTheSiteInOrder)
{
    host->asked.clear();
    host->view->CloseView(0);
    EXPECT_THAT(host->asked, ElementsAre(testing::StrEq("OnUIDeactivate"), testing::StrEq("OnInPlaceDeactivate")));
    EXPECT_EQ(content(), nullptr);
}

TEST_F(DocumentHostTest, viewThatIsClosedAndMadeAgain_keepsItsContent)
{
    const HWND before = content();
    host->view->CloseView(0);
    EXPECT_EQ(host->show(document.get()), S_OK);
    EXPECT_EQ(content(), before);
    EXPECT_TRUE(isShown(content()));
}

TEST_F(DocumentHostTest, hiddenObject_isShownByTheVerb)
{
    const auto object = document.tryAs<IOleObject>();
    EXPECT_EQ(object->DoVerb(OLEIVERB_HIDE, nullptr, nullptr, 0, nullptr, nullptr), S_OK);
    EXPECT_FALSE(isShown(content()));
    EXPECT_EQ(object->DoVerb(OLEIVERB_SHOW, nullptr, nullptr, 0, nullptr, nullptr), S_OK);
    EXPECT_TRUE(isShown(content()));
}

TEST_F(DocumentHostTest, pressInTheTree_afterTheHostTookTheActivityAway_takesItBack)
{
    host->view->UIActivate(FALSE);
    host->asked.clear();
    const HWND view = FindWindowExW(content(), nullptr, L"velkviadd.svrViewCtl", nullptr);
    const HWND tree = FindWindowExW(view, nullptr, L"SysTreeView32", nullptr);
    SendMessageW(tree, WM_MOUSEACTIVATE, reinterpret_cast<WPARAM>(window), MAKELPARAM(HTCLIENT, WM_LBUTTONDOWN));
    EXPECT_THAT(host->asked, ElementsAre(testing::StrEq("OnUIActivate")));
}

TEST_F(DocumentHostTest, focusGivenByTheHost_goesToTheTreeAndActivates)
{
    host->view->UIActivate(FALSE);
    host->asked.clear();
    SetFocus(window);
    SetFocus(content());
    EXPECT_THAT(host->asked, ElementsAre(testing::StrEq("OnUIActivate")));
    const HWND view = FindWindowExW(content(), nullptr, L"velkviadd.svrViewCtl", nullptr);
    EXPECT_EQ(GetFocus(), FindWindowExW(view, nullptr, L"SysTreeView32", nullptr));
}

TEST_F(DocumentHostTest, siteWithoutAWindow_failsAndCanBeTriedAgain)
{
    host->close();
    document.reset();
    document = make<IUnknown>(CLSID_serverViewDoc);
    host->failsToGiveItsWindow = true;
    host->asked.clear();
    EXPECT_NE(host->show(document.get()), S_OK);
    EXPECT_STREQ(host->asked.back(), "OnInPlaceDeactivate"); // told that it came to nothing
    host->failsToGiveItsWindow = false;
    EXPECT_EQ(host->show(document.get()), S_OK);
    EXPECT_TRUE(isShown(content()));
}

TEST_F(DocumentHostTest, windowOfTheHostThatGoesBetweenTwoViews_leavesTheContent)
{
    const HWND before = content();
    host->view->CloseView(0);
    DestroyWindow(window);
    window = madeWindow();
    const auto next = makeObject<test::DocumentHost>(window);
    EXPECT_EQ(next->show(document.get()), S_OK);
    EXPECT_EQ(content(), before);
    EXPECT_TRUE(isShown(content()));
    host = next;
}

TEST_F(DocumentHostTest, windowOfTheHostThatGoesWithoutAWord_isMadeAnew)
{
    DestroyWindow(window);
    window = madeWindow();
    const auto next = makeObject<test::DocumentHost>(window);
    EXPECT_EQ(next->show(document.get()), S_OK);
    EXPECT_TRUE(isShown(content()));
    host = next;
}

// A window that goes with the focus in it gives the focus to its parent, and that must not bring the object back.
TEST_F(DocumentHostTest, contentThatGetsTheFocusWhileItGoes_leavesTheObjectInactive)
{
    host->duringUiDeactivate = [this] { SendMessageW(content(), WM_SETFOCUS, 0, 0); };
    host->asked.clear();
    const auto doc = document.tryAs<_serverViewDoc>(IID__serverViewDoc);
    EXPECT_EQ(doc->putref_IMgr(nullptr), S_OK);
    EXPECT_THAT(host->asked, ElementsAre(testing::StrEq("OnUIDeactivate")));
}

// Some containers activate their object whenever their own window gets the focus back.
TEST_F(DocumentHostTest, viewThatTheHostActivatesWhileItIsHidden_staysHidden)
{
    const auto object = document.tryAs<IOleObject>();
    HRESULT asked = S_OK;
    host->duringUiDeactivate = [&] {
        asked = object->DoVerb(OLEIVERB_UIACTIVATE, nullptr, nullptr, 0, nullptr, nullptr);
    };
    EXPECT_EQ(host->view->Show(FALSE), S_OK);
    EXPECT_EQ(asked, E_UNEXPECTED);
    EXPECT_FALSE(isShown(content()));
}

TEST_F(DocumentHostTest, viewThatTheHostActivatesWhileItCloses_staysClosed)
{
    const auto object = document.tryAs<IOleObject>();
    host->duringUiDeactivate = [&] { object->DoVerb(OLEIVERB_UIACTIVATE, nullptr, nullptr, 0, nullptr, nullptr); };
    host->asked.clear();
    host->view->CloseView(0);
    EXPECT_THAT(host->asked, ElementsAre(testing::StrEq("OnUIDeactivate"), testing::StrEq("OnInPlaceDeactivate")));
}

TEST_F(DocumentHostTest, documentWithoutItsManager_isAnEmptyPane)
{
    const auto doc = document.tryAs<_serverViewDoc>(IID__serverViewDoc);
    EXPECT_EQ(doc->putref_IMgr(nullptr), S_OK);
    EXPECT_EQ(content(), nullptr);
}

} // namespace
} // namespace velk
