#include "serverview/serverViewDoc.h"
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

TEST_F(serverViewDocTest, setUpBeforeAnythingIsShown_waitsForTheControl)
{
    document->putref_IMgr(manager.get());
    EXPECT_EQ(document->setupGUI(), S_OK);
    EXPECT_EQ(document->svrViewCtl1(), nullptr);
    EXPECT_EQ(publishedView().serverTreeView, nullptr);
}

} // namespace
} // namespace velk
