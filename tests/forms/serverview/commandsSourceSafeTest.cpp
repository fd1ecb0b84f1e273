#include "commandsFixture.h"
#include "scc/frmVSSLogin.h"
#include "scc/VSSAPI.h"
#include "support/fakeSourceSafe.h"

#include <algorithm>

namespace velk {
namespace {

using enum MenuItem;
using test::Lines;

class SourceSafeItemsTest : public test::CommandsFixture {
protected:
    ~SourceSafeItemsTest() override { closeSourceSafe(); }
    void logIn()
    {
        openSourceSafeDatabase(L"ann", L"secret", L"Main", {{L"Main", L"C:\\vss"}});
        setCurrentProject(L"Web");
        sourceSafe.journal.clear();
    }
    // Answers the login dialog when it waits: logs in and presses the button.
    void answerLogin(int button)
    {
        pressed() = button;
        SetTimer(nullptr, 0, 10, answerNow);
    }
    size_t added() const
    {
        return static_cast<size_t>(std::count(sourceSafe.journal.begin(), sourceSafe.journal.end(),
                                              L"Item.Add(\"C:\\work\\rz\\orders.rzv\")"));
    }

    test::FakeSourceSafe sourceSafe;

private:
    static int& pressed()
    {
        static int button = 0;
        return button;
    }
    static void CALLBACK answerNow(HWND, UINT, UINT_PTR id, DWORD)
    {
        const HWND dialog = FindWindowW(nullptr, L"#523");
        KillTimer(nullptr, id);
        SetDlgItemTextW(dialog, frmVSSLogin::txtUserName, L"ann");
        SetDlgItemTextW(dialog, frmVSSLogin::txtPassword, L"secret");
        SendMessageW(dialog, WM_COMMAND, frmVSSLogin::loginBtn, 0);
        PostMessageW(dialog, WM_COMMAND, static_cast<WPARAM>(pressed()), 0);
    }
};

struct FileItem {
    MenuItem item;
    const wchar_t* call;
};
class FileItemTest : public SourceSafeItemsTest, public testing::WithParamInterface<FileItem> {};

// The tag of a row is its debug flag, "#" and the file, which may have such a sign, too.
TEST_P(FileItemTest, clickedItem_doesItsWorkOnTheRowsFile)
{
    logIn();
    showProcedure(L"C:\\src\\#1.sql");
    view.clickMenuItem(GetParam().item);
    EXPECT_EQ(sourceSafe.journal.back(), GetParam().call);
    EXPECT_EQ(messages, Lines{});
}

TEST_P(FileItemTest, rowWithoutAFile_isToldWithTheItemsCaptions)
{
    logIn();
    backend.numbersAsTexts = false;
    backend.texts[683] = L"use %1 before %2";
    view.menus()[devObjViewSrcMnuItem].caption = L"View Source";
    view.menus()[GetParam().item].caption = L"this";
    showProcedure(L"");
    view.clickMenuItem(GetParam().item);
    EXPECT_EQ(messages, Lines{L"use View Source before this|velkviadd"});
    EXPECT_TRUE(sourceSafe.journal.empty());
}

TEST_P(FileItemTest, rowWithoutATag_hasNoFileEither)
{
    logIn();
    tree().select(L"K24");
    addViewRow({.lHdl = 300, .strName = L"v"});
    list().view().selectRow(0);
    view.clickMenuItem(GetParam().item);
    EXPECT_EQ(messages.size(), 1u);
    EXPECT_TRUE(sourceSafe.journal.empty());
}

INSTANTIATE_TEST_SUITE_P(Items, FileItemTest,
                         testing::Values(FileItem{devObjAddFileMnuItem, L"Item.Add(\"C:\\src\\#1.sql\")"},
                                         FileItem{devObjChkOutMnuItem, L"Item.Checkout(\"\", \"C:\\src\\#1.sql\")"},
                                         FileItem{devObjChkInMnuItem, L"Item.Checkin(\"\", \"C:\\src\\#1.sql\")"}));

TEST_F(SourceSafeItemsTest, projectItemAfterALogin_addsTheProjectFile)
{
    test::FakeSourceSafe::addDatabase(L"Main", L"C:\\vss");
    answerLogin(frmVSSLogin::cmdOK);
    view.clickMenuItem(scmPropsMnuItem);
    EXPECT_EQ(added(), 1u);
    EXPECT_EQ(messages, Lines{});
}

TEST_F(SourceSafeItemsTest, projectItemWithALoginThatIsCancelled_addsNothing)
{
    logIn(); // as at an earlier use: only the cancelled login keeps the file out
    test::FakeSourceSafe::addDatabase(L"Main", L"C:\\vss");
    answerLogin(frmVSSLogin::cmdCancel);
    view.clickMenuItem(scmPropsMnuItem);
    EXPECT_EQ(added(), 0u);
}

TEST_F(SourceSafeItemsTest, projectItemWithoutADatabase_saysSoFirst)
{
    answerLogin(frmVSSLogin::cmdCancel);
    view.clickMenuItem(scmPropsMnuItem);
    EXPECT_EQ(messages, Lines{L"#681|velkviadd"});
    EXPECT_EQ(added(), 0u);
}

TEST_F(SourceSafeItemsTest, menusAfterTheSetUp_knowWhetherSourceSafeIsThere)
{
    view.setupGUI();
    EXPECT_FALSE(view.menus().isSourceSafeAvailable());
    test::FakeSourceSafe::install();
    view.setupGUI();
    EXPECT_TRUE(view.menus().isSourceSafeAvailable());
    EXPECT_TRUE(view.menus()[scmPropsMnuItem].enabled);
}

} // namespace
} // namespace velk
