// What the connection dialog's lists ask for, and what is left of them when the manager does not answer.
#include "conLstCtlFixture.h"

#include "base/error.h"

namespace velk {
namespace {

using enum conLstCtl::Control;
using test::Lines;

class conLstCtlListsTest : public test::ConLstCtlFixture {
protected:
    std::vector<int> counts() const
    {
        return {form.listCount(projCombo), form.listCount(dataEnvCombo), form.listCount(conCombo)};
    }
    // From now on this request fails.
    void fail(const std::wstring& request)
    {
        manager->whileAsked = [this, request](const std::wstring& asked) {
            manager->failWith = asked == request ? E_FAIL : S_OK;
        };
    }
    // What OK would hand out.
    Lines results()
    {
        press(okBtn);
        return {form.selectedProj(), form.selectedDataEnv(), form.selectedCon()};
    }
};

TEST_F(conLstCtlListsTest, noProject_nothingElseIsAskedFor)
{
    manager->projects.clear();
    form.setupGUI(L"x", true);
    EXPECT_EQ(journal, Lines{L"getProjList"});
}

TEST_F(conLstCtlListsTest, projectWithoutADataEnvironment_noConnectionsAreAskedFor)
{
    manager->dataEnvironments.clear();
    form.setupGUI(L"x", true);
    EXPECT_EQ(journal, (Lines{L"getProjList", L"getDataEnvList"}));
}

TEST_F(conLstCtlListsTest, fullSetUp_asksFromTheTopDown)
{
    form.setupGUI(L"x", true);
    EXPECT_EQ(journal, (Lines{L"getProjList", L"getDataEnvList", L"getConnectionList"}));
    EXPECT_EQ(counts(), (std::vector{2, 2, 2}));
}

TEST_F(conLstCtlListsTest, secondSetUp_fillsTheListsAnew)
{
    form.setupGUI(L"x", true);
    choose(projCombo, 1);
    form.setupGUI(L"x", true);
    EXPECT_EQ(counts(), (std::vector{2, 2, 2}));
    EXPECT_EQ(results(), (Lines{L"Web", L"DE1", L"C1"}));
}

TEST_F(conLstCtlListsTest, projectWhoseEnvironmentsCannotBeHad_keepsNoneOfTheOneBefore)
{
    form.setupGUI(L"x", true);
    fail(L"getDataEnvList");
    choose(projCombo, 1);
    EXPECT_EQ(counts(), (std::vector{2, 0, 0}));
    EXPECT_EQ(results(), (Lines{L"Tools", L"", L""}));
}

TEST_F(conLstCtlListsTest, projectWithoutEnvironments_keepsNoneOfTheOneBefore)
{
    manager->dataEnvironments.erase(L"Tools");
    form.setupGUI(L"x", true);
    choose(projCombo, 1);
    EXPECT_EQ(results(), (Lines{L"Tools", L"", L""}));
}

TEST_F(conLstCtlListsTest, environmentWhoseConnectionsCannotBeHad_keepsNoneOfTheOneBefore)
{
    form.setupGUI(L"x", true);
    fail(L"getConnectionList");
    choose(dataEnvCombo, 1);
    EXPECT_EQ(counts(), (std::vector{2, 2, 0}));
    EXPECT_EQ(results(), (Lines{L"Web", L"DE2", L""}));
}

TEST_F(conLstCtlListsTest, setUpWithoutProjects_keepsNoListOfTheOneBefore)
{
    form.setupGUI(L"x", true);
    fail(L"getProjList");
    EXPECT_THROW(form.setupGUI(L"x", true), Error);
    EXPECT_EQ(counts(), (std::vector{0, 0, 0}));
}

TEST_F(conLstCtlListsTest, failureFurtherDown_failsTheSetUp)
{
    fail(L"getConnectionList");
    EXPECT_THROW(form.setupGUI(L"x", true), Error);
}

// A manager may run messages while it looks: the user goes on choosing.
TEST_F(conLstCtlListsTest, otherProjectChosenDuringARequest_keepsItsOwnLists)
{
    form.setupGUI(L"x", true);
    form.selectInList(projCombo, 1);
    manager->whileAsked = [this](const std::wstring&) {
        manager->whileAsked = nullptr;
        choose(projCombo, 0);
    };
    choose(projCombo, 1); // its environments come when "Web" stands there again
    EXPECT_EQ(results(), (Lines{L"Web", L"DE1", L"C1"}));
}

TEST_F(conLstCtlListsTest, otherEnvironmentChosenDuringARequest_keepsItsOwnConnections)
{
    form.setupGUI(L"x", true);
    manager->whileAsked = [this](const std::wstring&) {
        manager->whileAsked = nullptr;
        choose(dataEnvCombo, 0);
    };
    choose(dataEnvCombo, 1);
    EXPECT_EQ(results(), (Lines{L"Web", L"DE1", L"C1"}));
}

TEST_F(conLstCtlListsTest, formTakenDownDuringARequest_isTakenDownInPeace)
{
    manager->whileAsked = [this](const std::wstring&) {
        manager->whileAsked = nullptr;
        form.terminate();
    };
    EXPECT_NO_THROW(form.setupGUI(L"x", true));
    EXPECT_FALSE(form.isLoaded());
    EXPECT_EQ(journal, Lines{L"getProjList"});
}

} // namespace
} // namespace velk
