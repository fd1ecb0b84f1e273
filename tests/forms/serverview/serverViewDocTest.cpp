#include "serverview/serverViewDoc.h"
#include "support/documentHost.h"
#include "support/fakeManager.h"
#include "ui/uiFont.h"
#include "viewFixture.h"

namespace velk {
namespace {

class serverViewDocTest : public testing::Test {
protected:
    serverViewDocTest() { backend.numbersAsTexts = true; }
    ~serverViewDocTest() override
    {
        uiFont() = {};
        serverViewWindow() = {};
    }

    test::FakeBackend backend;
    test::Lines journal;
    com_ptr<test::FakeManager> manager = makeObject<test::FakeManager>(journal);
    com_ptr<serverViewDoc> document = makeObject<serverViewDoc>();
};

TEST_F(serverViewDocTest, fontThatDiffers_becomesTheUiFont)
{
    uiFont() = {L"Tahoma", 9, 1};
    EXPECT_EQ(document->InitNew(), S_OK);
    EXPECT_EQ(document->fontName(), L"Tahoma");
    EXPECT_EQ(document->fontSize(), 9.0f);
    EXPECT_EQ(document->fontChanges(), 1);
}

TEST_F(serverViewDocTest, fontThatEqualsTheUiFont_isNotTouched)
{
    uiFont() = {L"Tahoma", 9, 1};
    document->InitNew();
    document->InitNew();
    EXPECT_EQ(document->fontChanges(), 1);
}

TEST_F(serverViewDocTest, fontThatDiffersInSizeOrInLetterCase_isSetAnew)
{
    uiFont() = {L"Tahoma", 9, 1};
    document->InitNew();
    uiFont().size = 10;
    document->InitNew();
    uiFont().name = L"tahoma";
    document->InitNew();
    EXPECT_EQ(document->fontChanges(), 3);
}

TEST_F(serverViewDocTest, terminatedDocument_emptiesTheManagersReferencesAndItsOwn)
{
    const com_ptr<IDispatch> itself = document.tryAs<IDispatch>();
    serverViewWindow() = {itself, itself};
    document->putref_IMgr(manager.get());
    document->Close(OLECLOSE_NOSAVE);
    com_ptr<_IntegrationMgr> held;
    document->get_IMgr(held.put());
    EXPECT_FALSE(held);
    EXPECT_FALSE(serverViewWindow().window);
    EXPECT_FALSE(serverViewWindow().document);
}

TEST_F(serverViewDocTest, earlierDocumentThatEnds_leavesTheNextOnesReferences)
{
    const auto next = makeObject<serverViewDoc>().tryAs<IDispatch>();
    serverViewWindow() = {next, next};
    document->putref_IMgr(manager.get());
    document->Close(OLECLOSE_NOSAVE);
    document.reset();
    EXPECT_EQ(serverViewWindow().window.get(), next.get());
    EXPECT_EQ(serverViewWindow().document.get(), next.get());
}

TEST_F(serverViewDocTest, manager_isKeptAndGivenBack)
{
    com_ptr<_IntegrationMgr> held;
    EXPECT_EQ(document->get_IMgr(held.put()), S_OK);
    EXPECT_FALSE(held);
    document->putref_IMgr(manager.get());
    EXPECT_EQ(document->get_IMgr(held.put()), S_OK);
    EXPECT_EQ(held.get(), manager.get());
    EXPECT_EQ(document->get_IMgr(nullptr), E_POINTER);
}

TEST_F(serverViewDocTest, setUpBeforeAnythingIsShown_waitsForTheControl)
{
    document->putref_IMgr(manager.get());
    EXPECT_EQ(document->setupGUI(), S_OK);
    EXPECT_EQ(document->svrViewCtl1(), nullptr);
    EXPECT_EQ(publishedView().serverTreeView, nullptr);
}

class ShownDocumentTest : public serverViewDocTest {
protected:
    ShownDocumentTest()
    {
        window = CreateWindowExW(0, L"STATIC", L"", WS_OVERLAPPED, 0, 0, 500, 400, nullptr, nullptr, nullptr, nullptr);
        host = makeObject<test::DocumentHost>(window);
        host->show(document.tryAs<IUnknown>().get());
    }
    ~ShownDocumentTest() override
    {
        host->close();
        DestroyWindow(window);
    }
    std::pair<LONG, LONG> sizeOfTheControl() const
    {
        RECT place{};
        GetWindowRect(document->svrViewCtl1()->hwnd(), &place);
        return {place.right - place.left, place.bottom - place.top};
    }
    std::pair<LONG, LONG> sizeAfter(RECT place)
    {
        host->view->SetRect(&place);
        return sizeOfTheControl();
    }
    static _IntegrationMgr* managerOfTheView() { return publishedView().IMgr.object().get(); }

    HWND window = nullptr;
    com_ptr<test::DocumentHost> host;
};

TEST_F(ShownDocumentTest, setUp_givesTheControlItsManagerAndPublishesIt)
{
    manager->ideType = 1;
    document->putref_IMgr(manager.get());
    EXPECT_EQ(managerOfTheView(), nullptr); // not before it is asked for
    EXPECT_EQ(document->setupGUI(), S_OK);
    EXPECT_EQ(managerOfTheView(), manager.get());
    EXPECT_EQ(publishedView().serverTreeView, &document->svrViewCtl1()->serverTreeView());
    EXPECT_TRUE(document->svrViewCtl1()->menus()[MenuItem::adoConObjMnuItem].visible); // for this kind of IDE alone
}

TEST_F(ShownDocumentTest, control_coversTheWholeDocumentAndFollowsIt)
{
    EXPECT_EQ(sizeOfTheControl(), (std::pair<LONG, LONG>{320, 200}));
    EXPECT_EQ(sizeAfter({0, 0, 700, 33}), (std::pair<LONG, LONG>{700, 33}));
    EXPECT_EQ(sizeAfter({0, 0, 0, 90}), (std::pair<LONG, LONG>{0, 90}));
    EXPECT_EQ(sizeAfter({0, 0, 500, 0}), (std::pair<LONG, LONG>{500, 0}));
}

TEST_F(ShownDocumentTest, documentThatReplacesAnother_isTheOneThatIsPublished)
{
    document->putref_IMgr(manager.get());
    document->setupGUI();
    const auto second = makeObject<serverViewDoc>();
    second->putref_IMgr(manager.get());
    second->setupGUI();
    const auto secondHost = makeObject<test::DocumentHost>(window);
    secondHost->show(second.tryAs<IUnknown>().get());
    host->close();
    host = secondHost;
    document = second;
    EXPECT_EQ(publishedView().serverTreeView, &document->svrViewCtl1()->serverTreeView());
    EXPECT_EQ(managerOfTheView(), manager.get());
}

TEST_F(ShownDocumentTest, secondSetUp_repeatsTheHandOverAndTheSetUp)
{
    document->putref_IMgr(manager.get());
    document->setupGUI();
    svrViewCtl* const control = document->svrViewCtl1();
    const auto second = makeObject<test::FakeManager>(journal);
    second->ideType = 1;
    document->putref_IMgr(second.get());
    backend.counts.clear();
    EXPECT_EQ(document->setupGUI(), S_OK);
    EXPECT_EQ(document->svrViewCtl1(), control);
    EXPECT_EQ(managerOfTheView(), second.get());
    EXPECT_EQ(backend.counts["RZGetString"], 15 + 25 + 1); // every header and caption, and the tree's name, once more
    EXPECT_TRUE(control->menus()[MenuItem::adoConObjMnuItem].visible);
}

TEST_F(ShownDocumentTest, setUpBeforeTheDocumentIsShown_isMadeUpForWhenItIs)
{
    host->close();
    document = makeObject<serverViewDoc>();
    document->putref_IMgr(manager.get());
    document->setupGUI();
    EXPECT_EQ(managerOfTheView(), nullptr);
    host->show(document.tryAs<IUnknown>().get());
    EXPECT_EQ(managerOfTheView(), manager.get());
}

// A host that closes the document inside one of the calls by which that is shown.
class ClosingHostTest : public ShownDocumentTest, public testing::WithParamInterface<const char*> {};

TEST_P(ClosingHostTest, closedDocument_isAskedForNothingMoreAndFails)
{
    const auto second = makeObject<serverViewDoc>();
    const auto closing = makeObject<test::DocumentHost>(window);
    closing->whileAsked = [&](std::string_view what) {
        if (what == GetParam())
            closing->close();
    };
    EXPECT_TRUE(FAILED(closing->show(second.tryAs<IUnknown>().get())));
    EXPECT_EQ(second->svrViewCtl1(), nullptr);
    EXPECT_FALSE(closing->view);
}

INSTANTIATE_TEST_SUITE_P(calls, ClosingHostTest, testing::Values("OnInPlaceActivate", "GetWindow", "OnUIActivate"));

TEST_F(ShownDocumentTest, pressInTheView_byWhichTheHostLetsTheDocumentGo_endsThere)
{
    const HWND pressed = GetParent(document->svrViewCtl1()->hwnd());
    const com_ptr<test::DocumentHost> closing = std::exchange(host, makeObject<test::DocumentHost>(window));
    closing->view->UIActivate(FALSE);
    closing->asked.clear();
    closing->whileAsked = [&](std::string_view what) {
        if (what == "OnUIActivate") {
            closing->close();
            document.reset();
        }
    };
    SendMessageW(pressed, WM_MOUSEACTIVATE, reinterpret_cast<WPARAM>(window), MAKELPARAM(HTCLIENT, WM_LBUTTONDOWN));
    EXPECT_FALSE(IsWindow(pressed));
    EXPECT_THAT(closing->asked,
                testing::ElementsAre(testing::StrEq("OnUIActivate"), testing::StrEq("OnInPlaceDeactivate")));
    host->show(makeObject<serverViewDoc>().tryAs<IUnknown>().get()); // for the end of the test
}

// Which counts on the reference that it gives up inside the call.
TEST_F(ShownDocumentTest, hostThatLetsTheDocumentGoInsideItsDeactivation_isAskedForNothingMore)
{
    const HWND content = GetParent(document->svrViewCtl1()->hwnd());
    const com_ptr<test::DocumentHost> closing = std::exchange(host, makeObject<test::DocumentHost>(window));
    closing->duringUiDeactivate = [&] {
        closing->duringUiDeactivate = {};
        closing->close();
        document.reset();
    };
    closing->asked.clear();
    closing->view.get()->CloseView(0);
    EXPECT_FALSE(IsWindow(content));
    EXPECT_THAT(closing->asked,
                testing::ElementsAre(testing::StrEq("OnUIDeactivate"), testing::StrEq("OnInPlaceDeactivate")));
    host->show(makeObject<serverViewDoc>().tryAs<IUnknown>().get()); // for the end of the test
}

} // namespace
} // namespace velk
