// The order of what is asked of manager, file dialog, IDE project and tool, in one journal; and where it stops.
#include "serverview/projectFiles.h"
#include "base/text.h"
#include "commandsFixture.h"

namespace velk {
namespace {

using enum MenuItem;
using test::Lines;

class ProjectFilesTest : public test::CommandsFixture {
protected:
    ProjectFilesTest()
    {
        manager->ideType = 1; // an IDE whose projects store the name
        backend.unjournaled.erase("RZGetString");
        backend.onCall = [this](const std::string& line) {
            journal.push_back(toWide(line));
            if (endIn == journal.back())
                endSession();
        };
        manager->whileAsked = [this](const std::wstring& request) {
            if (endIn == request)
                endSession();
        };
        setFileDialogPresenter([this](OPENFILENAMEW& dialog, const FileQuestion& question) {
            journal.push_back((question.isSave ? L"save " : L"open ") + question.title + L" " + question.filter + L" " +
                              question.extension + L" in '" + question.folder + L"'");
            if (endIn == L"dialog")
                endSession();
            lstrcpynW(dialog.lpstrFile, chosenFile.c_str(), static_cast<int>(dialog.nMaxFile));
            return !chosenFile.empty();
        });
        chosenFile = L"D:\\other\\new.rzv";
        tree().select(L"K1");
        journal.clear();
    }
    // The add-in is unloaded: its view goes, and with it the session.
    std::function<void()> endSession = [this] { other.reset(); };
    // Open or Save As in a view of its own that may go meanwhile.
    void click(MenuItem item)
    {
        other = std::make_unique<svrViewCtl>();
        other->create(host, {0, 0, 400, 300});
        other->setIMgr(IntegrationMgr(com_ptr<_IntegrationMgr>(manager.get())));
        other->setupGUI();
        addProject();
        other->serverTreeView().select(L"K1");
        journal.clear();
        other->clickMenuItem(item);
    }
    void saveAs() { saveProjectAs(IntegrationMgr(com_ptr<_IntegrationMgr>(manager.get()))); }
    void open() { openProject(IntegrationMgr(com_ptr<_IntegrationMgr>(manager.get())), 1); }

    std::wstring endIn; // the line of the journal in which the session ends
    std::unique_ptr<svrViewCtl> other;
};

TEST_F(ProjectFilesTest, open_goesThroughItsStepsInOrder)
{
    view.clickMenuItem(projOpenMnuItem);
    EXPECT_EQ(journal, (Lines{L"getRZFileName", L"RZGetString(610)", L"open #610 .rzv .rzv in 'C:\\work\\rz'",
                              L"RZObjectDoAction(1, 21)", L"setRZFileName",
                              L"RZProjectDoAccess(\"D:\\other\", \"new.rzv\", 2)"}));
    EXPECT_EQ(manager->rzFile, L"D:\\other\\new.rzv");
}

TEST_F(ProjectFilesTest, saveAs_goesThroughItsStepsInOrder)
{
    view.clickMenuItem(projSaveAsMnuItem);
    EXPECT_EQ(journal, (Lines{L"getRZFileName", L"RZGetString(611)", L"save #611 rzv rzv in 'C:\\work\\rz'",
                              L"getModel", L"saveRZFileName(D:\\other\\new.rzv)", L"setRZFileName",
                              L"RZProjectDoAccess(\"D:\\other\\new.rzv\", \"\", 4)"}));
    EXPECT_EQ(manager->rzFile, L"D:\\other\\new.rzv");
}

TEST_F(ProjectFilesTest, saveAsInAnotherIde_leavesOutTheIdesProjectOnly)
{
    manager->ideType = 3;
    saveAs();
    EXPECT_EQ(journal, (Lines{L"getRZFileName", L"RZGetString(611)", L"save #611 rzv rzv in 'C:\\work\\rz'",
                              L"setRZFileName", L"RZProjectDoAccess(\"D:\\other\\new.rzv\", \"\", 4)"}));
}

TEST_F(ProjectFilesTest, cancelledDialogs_changeNothing)
{
    chosenFile.clear();
    open();
    saveAs();
    EXPECT_EQ(journal, (Lines{L"getRZFileName", L"RZGetString(610)", L"open #610 .rzv .rzv in 'C:\\work\\rz'",
                              L"getRZFileName", L"RZGetString(611)", L"save #611 rzv rzv in 'C:\\work\\rz'"}));
    EXPECT_EQ(manager->rzFile, L"C:\\work\\rz\\orders.rzv");
}

TEST_F(ProjectFilesTest, saveAsWithoutACurrentFileOrWithoutItsFolder_startsWithAnEmptyFolder)
{
    chosenFile.clear();
    manager->rzFile = L"";
    saveAs();
    EXPECT_EQ(journal.back(), L"save #611 rzv rzv in ''");
    manager->rzFile = L"orders.rzv";
    journal.clear();
    saveAs();
    EXPECT_EQ(journal.back(), L"save #611 rzv rzv in ''");
}

TEST_F(ProjectFilesTest, openThatFailsOnTheWay_endsThereAndIsToldWithItsNumber)
{
    manager->whileAsked = [this](const std::wstring& request) {
        manager->failWith = request == L"setRZFileName" ? Error(errorPermissionDenied).result() : S_OK;
    };
    view.clickMenuItem(projOpenMnuItem);
    EXPECT_EQ(journal.back(), L"setRZFileName");
    EXPECT_EQ(messages, Lines{L"Permission denied:70|velkviadd"});
}

TEST_F(ProjectFilesTest, saveAsThatFailsOnTheWay_goesNoFurther)
{
    manager->model->failWith = E_FAIL;
    EXPECT_THROW(saveAs(), Error);
    EXPECT_EQ(journal.back(), L"saveRZFileName(D:\\other\\new.rzv)");
    EXPECT_EQ(manager->rzFile, L"C:\\work\\rz\\orders.rzv");
}

TEST_F(ProjectFilesTest, viewThatIsClosedUnderTheDialog_savesNothing)
{
    endIn = L"dialog";
    endSession = [this] { DestroyWindow(other->hwnd()); };
    click(projSaveAsMnuItem);
    EXPECT_EQ(journal.back(), L"save #611 rzv rzv in 'C:\\work\\rz'");
    EXPECT_EQ(manager->rzFile, L"C:\\work\\rz\\orders.rzv");
    EXPECT_EQ(messages, Lines{});
}

TEST_F(ProjectFilesTest, managersSessionThatEndsOnTheWay_nothingFollows)
{
    const Session session;
    manager->whileAsked = [session](const std::wstring&) { session.enter(SessionState::ending); };
    openProject(IntegrationMgr(com_ptr<_IntegrationMgr>(manager.get()), session), 1);
    saveProjectAs(IntegrationMgr(com_ptr<_IntegrationMgr>(manager.get()), session));
    EXPECT_EQ(journal, (Lines{L"getRZFileName", L"getRZFileName"}));
}

// The IDE can unload the add-in in whatever runs messages: the call it happens in is the last one.
struct EndRow {
    MenuItem item;
    const wchar_t* endIn;
    const wchar_t* last;
};

class ProjectFilesEndTest : public ProjectFilesTest, public testing::WithParamInterface<EndRow> {};

TEST_P(ProjectFilesEndTest, sessionThatEndsOnTheWay_nothingFollows)
{
    endIn = GetParam().endIn;
    click(GetParam().item);
    EXPECT_EQ(other, nullptr);
    EXPECT_EQ(journal.back(), GetParam().last);
    EXPECT_EQ(messages, Lines{});
}

// clang-format off
INSTANTIATE_TEST_SUITE_P(Calls, ProjectFilesEndTest, testing::Values(
    EndRow{projOpenMnuItem,   L"getRZFileName",           L"getRZFileName"},
    EndRow{projOpenMnuItem,   L"RZGetString(610)",        L"RZGetString(610)"},
    EndRow{projOpenMnuItem,   L"dialog",                  L"open #610 .rzv .rzv in 'C:\\work\\rz'"},
    EndRow{projOpenMnuItem,   L"RZObjectDoAction(1, 21)", L"RZObjectDoAction(1, 21)"},
    EndRow{projOpenMnuItem,   L"setRZFileName",           L"setRZFileName"},
    EndRow{projSaveAsMnuItem, L"getRZFileName",           L"getRZFileName"},
    EndRow{projSaveAsMnuItem, L"RZGetString(611)",        L"RZGetString(611)"},
    EndRow{projSaveAsMnuItem, L"dialog",                  L"save #611 rzv rzv in 'C:\\work\\rz'"},
    EndRow{projSaveAsMnuItem, L"getModel",                L"saveRZFileName(D:\\other\\new.rzv)"},
    EndRow{projSaveAsMnuItem, L"setRZFileName",           L"setRZFileName"}));
// clang-format on

} // namespace
} // namespace velk
