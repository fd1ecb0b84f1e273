#include "loginFixture.h"

namespace velk {
namespace {

using enum frmVSSLogin::Control;

class frmVSSLoginTest : public test::LoginFixture {};

TEST_F(frmVSSLoginTest, load_disablesLoginOkAndProjects)
{
    loadWithADatabase();
    EXPECT_FALSE(isEnabled(loginBtn));
    EXPECT_FALSE(isEnabled(cmdOK));
    EXPECT_FALSE(isEnabled(projNameCombo));
    EXPECT_EQ(form.selectedInList(DBCombo), L"Main");
    EXPECT_EQ(form.fillResult(), L"");
}

TEST_F(frmVSSLoginTest, databases_standInTheirOrderAndTheFirstIsSelected)
{
    test::FakeSourceSafe::addDatabase(L"Main", L"C:\\vss");
    test::FakeSourceSafe::addDatabase(L"Old", L"D:\\old");
    form.Form_Load();
    form.Form_Load(); // fills the list anew
    EXPECT_EQ(form.listCount(DBCombo), 2);
    EXPECT_EQ(form.selectedInList(DBCombo), L"Main");
    form.selectInList(DBCombo, 1);
    EXPECT_EQ(form.selectedInList(DBCombo), L"Old");
}

TEST_F(frmVSSLoginTest, noDatabaseRegistered_selectsNothing)
{
    form.Form_Load();
    EXPECT_EQ(form.listCount(DBCombo), 0);
    EXPECT_EQ(form.text(DBCombo), L"");
}

TEST_F(frmVSSLoginTest, noUserName_isNoLogin)
{
    loadWithADatabase();
    notify(DBCombo, CBN_SELCHANGE);
    EXPECT_FALSE(isEnabled(loginBtn));
    form.setText(txtPassword, L"secret");
    EXPECT_FALSE(isEnabled(loginBtn));
}

TEST_F(frmVSSLoginTest, nameEmptiedAfterALogin_disablesLoginAndLeavesOk)
{
    loadWithADatabase();
    logIn();
    form.setText(txtUserName, L"");
    EXPECT_FALSE(isEnabled(loginBtn));
    EXPECT_TRUE(isEnabled(cmdOK));
}

TEST_F(frmVSSLoginTest, databaseEmptiedAfterALogin_disablesLoginAndLeavesOk)
{
    loadWithADatabase();
    logIn();
    form.setText(DBCombo, L"");
    notify(DBCombo, CBN_EDITCHANGE);
    EXPECT_FALSE(isEnabled(loginBtn));
    EXPECT_TRUE(isEnabled(cmdOK));
}

TEST_F(frmVSSLoginTest, noDatabaseRegistered_leavesTheListEmptyAndLoginDisabledUntilANameIsTyped)
{
    form.Form_Load();
    EXPECT_EQ(form.fillResult(), L"#681");
    form.setText(txtUserName, L"ann");
    EXPECT_FALSE(isEnabled(loginBtn));
    form.setText(DBCombo, L"typed");
    SendMessageW(form.hwnd(), WM_COMMAND, MAKEWPARAM(DBCombo, CBN_EDITCHANGE), 0);
    EXPECT_TRUE(isEnabled(loginBtn));
}

TEST_F(frmVSSLoginTest, emptyPassword_isAllowed)
{
    loadWithADatabase();
    form.setText(txtUserName, L"ann");
    EXPECT_TRUE(isEnabled(loginBtn));
}

TEST_F(frmVSSLoginTest, passwordField_isMasked)
{
    loadWithADatabase();
    EXPECT_NE(SendMessageW(form.item(txtPassword), EM_GETPASSWORDCHAR, 0, 0), 0);
}

TEST_F(frmVSSLoginTest, login_fillsTheProjectsAndEnablesOk)
{
    loadWithADatabase();
    logIn();
    EXPECT_EQ(form.listCount(projNameCombo), 2);
    EXPECT_EQ(form.selectedInList(projNameCombo), L"Web");
    EXPECT_TRUE(isEnabled(projNameCombo));
    EXPECT_TRUE(isEnabled(cmdOK));
}

TEST_F(frmVSSLoginTest, login_opensTheDatabaseWithWhatWasTyped)
{
    loadWithADatabase();
    logIn();
    EXPECT_EQ(sourceSafe.journal.front(), L"Database.Open(\"C:\\vss\\srcsafe.ini\", \"ann\", \"secret\")");
}

TEST_F(frmVSSLoginTest, secondLogin_listsTheProjectsAnew)
{
    loadWithADatabase();
    logIn();
    press(loginBtn);
    EXPECT_EQ(form.listCount(projNameCombo), 2);
}

TEST_F(frmVSSLoginTest, loginToADatabaseWithoutProjects_selectsNoneAndEnablesOk)
{
    sourceSafe.children->value(L"Count", variant(int32_t{0}));
    loadWithADatabase();
    logIn();
    EXPECT_EQ(form.text(projNameCombo), L"");
    EXPECT_TRUE(isEnabled(projNameCombo));
    EXPECT_TRUE(isEnabled(cmdOK));
}

TEST_F(frmVSSLoginTest, failedLogin_showsSourceSafesWordsAndChangesNothing)
{
    loadWithADatabase();
    sourceSafe.database->failing(L"Open", Error(5, L"Invalid password", L"SourceSafe", E_FAIL));
    logIn();
    EXPECT_EQ(messages, std::vector<std::wstring>{L"Invalid password"});
    EXPECT_FALSE(isEnabled(projNameCombo));
    EXPECT_FALSE(isEnabled(cmdOK));
    EXPECT_TRUE(isEnabled(loginBtn));
}

TEST_F(frmVSSLoginTest, changeAfterALogin_disablesOkUntilTheNext)
{
    loadWithADatabase();
    logIn();
    form.setText(txtPassword, L"other");
    EXPECT_FALSE(isEnabled(cmdOK));
    press(loginBtn);
    EXPECT_TRUE(isEnabled(cmdOK));
    form.setText(txtUserName, L"bob");
    EXPECT_FALSE(isEnabled(cmdOK));
}

TEST_F(frmVSSLoginTest, otherDatabaseTypedAfterALogin_disablesOkUntilTheNext)
{
    loadWithADatabase();
    logIn();
    form.setText(DBCombo, L"Old");
    notify(DBCombo, CBN_EDITCHANGE);
    EXPECT_FALSE(isEnabled(cmdOK));
    press(loginBtn);
    EXPECT_TRUE(isEnabled(cmdOK));
}

TEST_F(frmVSSLoginTest, otherDatabaseSelectedAfterALogin_disablesOkUntilTheNext)
{
    test::FakeSourceSafe::addDatabase(L"Old", L"D:\\old");
    loadWithADatabase();
    logIn();
    form.selectInList(DBCombo, 1);
    notify(DBCombo, CBN_SELCHANGE);
    EXPECT_FALSE(isEnabled(cmdOK));
    press(loginBtn);
    EXPECT_TRUE(isEnabled(cmdOK));
}

// Windows tells of a selection before it writes the entry into the field.
TEST_F(frmVSSLoginTest, databaseSelectedAfterTheFieldWasCleared_enablesLogin)
{
    loadWithADatabase();
    form.setText(txtUserName, L"ann");
    form.setText(DBCombo, L"");
    notify(DBCombo, CBN_EDITCHANGE);
    ASSERT_FALSE(isEnabled(loginBtn));
    form.selectInList(DBCombo, 0);
    form.setText(DBCombo, L"");
    ASSERT_EQ(form.selectedInList(DBCombo), L"Main");
    notify(DBCombo, CBN_SELCHANGE);
    EXPECT_TRUE(isEnabled(loginBtn));
}

TEST_F(frmVSSLoginTest, secondLoginThatFails_disablesOkAndTheProjects)
{
    loadWithADatabase();
    logIn();
    sourceSafe.database->failing(L"Open", Error(5, L"Invalid password", L"SourceSafe", E_FAIL));
    press(loginBtn);
    EXPECT_FALSE(isEnabled(cmdOK));
    EXPECT_FALSE(isEnabled(projNameCombo));
    press(cmdOK);
    EXPECT_FALSE(form.successfulLogin());
}

TEST_F(frmVSSLoginTest, typedProjectName_isCreatedBelowTheRoot)
{
    loadWithADatabase();
    logIn();
    form.setText(projNameCombo, L"Brand new");
    press(cmdOK);
    EXPECT_TRUE(form.successfulLogin());
    EXPECT_THAT(sourceSafe.journal, testing::Contains(L"Root.NewSubproject(\"Brand new\", \"\")"));
}

TEST_F(frmVSSLoginTest, chosenProject_isMadeCurrent)
{
    loadWithADatabase();
    logIn();
    form.selectInList(projNameCombo, 1);
    press(cmdOK);
    EXPECT_EQ(sourceSafe.journal.back(), L"Database.VSSItem(\"$/Tools\", False)");
}

TEST_F(frmVSSLoginTest, okWhoseProjectCannotBeHad_isSuccessAllTheSameAndCloses)
{
    loadWithADatabase();
    logIn();
    sourceSafe.database->failing(L"VSSItem", Error(5, L"no rights", L"SourceSafe", E_FAIL));
    PostMessageW(form.hwnd(), WM_COMMAND, cmdOK, 0);
    form.showModal();
    EXPECT_TRUE(form.successfulLogin());
    EXPECT_TRUE(messages.empty());
    EXPECT_FALSE(IsWindowVisible(form.hwnd()));
}

TEST_F(frmVSSLoginTest, escape_closesItWithoutSuccess)
{
    loadWithADatabase();
    logIn();
    PostMessageW(form.item(txtUserName), WM_KEYDOWN, VK_ESCAPE, 0);
    form.showModal();
    EXPECT_FALSE(form.successfulLogin());
    EXPECT_FALSE(IsWindowVisible(form.hwnd()));
}

TEST_F(frmVSSLoginTest, cancel_isNoSuccess)
{
    loadWithADatabase();
    logIn();
    press(cmdCancel);
    EXPECT_FALSE(form.successfulLogin());
}

TEST_F(frmVSSLoginTest, enterBeforeALogin_doesNotPassForOk)
{
    loadWithADatabase();
    press(cmdOK);
    EXPECT_FALSE(form.successfulLogin());
}

} // namespace
} // namespace velk
