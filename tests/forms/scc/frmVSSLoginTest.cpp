#include "scc/frmVSSLogin.h"
#include "support/fakeBackend.h"
#include "support/fakeSourceSafe.h"
#include "ui/messageBox.h"

#include <gmock/gmock.h>

namespace velk {
namespace {

using enum frmVSSLogin::Control;

class frmVSSLoginTest : public testing::Test {
protected:
    frmVSSLoginTest()
    {
        backend.numbersAsTexts = true;
        setMessagePresenter([this](const std::wstring& text, uint32_t, const std::wstring&) {
            messages.push_back(text);
            return IDOK;
        });
    }
    ~frmVSSLoginTest() override
    {
        closeSourceSafe();
        setMessagePresenter({});
    }
    void loadWithADatabase()
    {
        test::FakeSourceSafe::addDatabase(L"Main", L"C:\\vss");
        form.Form_Load();
    }
    void press(int id) { SendMessageW(form.hwnd(), WM_COMMAND, static_cast<WPARAM>(id), 0); }
    void notify(int id, int notification) { SendMessageW(form.hwnd(), WM_COMMAND, MAKEWPARAM(id, notification), 0); }
    bool isEnabled(int id) const { return IsWindowEnabled(form.item(id)) != FALSE; }
    void logIn()
    {
        form.setText(txtUserName, L"ann");
        form.setText(txtPassword, L"secret");
        press(loginBtn);
    }

    test::FakeBackend backend;
    test::FakeSourceSafe sourceSafe;
    std::vector<std::wstring> messages;
    frmVSSLogin form;
};

TEST_F(frmVSSLoginTest, captions_comeFromTheTool)
{
    loadWithADatabase();
    EXPECT_EQ(form.caption(), L"#523");
    EXPECT_EQ(form.text(Frame1), L"#522");
    EXPECT_EQ(form.text(userNameLbl), L"#515");
    EXPECT_EQ(form.text(loginBtn), L"#518");
    EXPECT_EQ(form.text(cmdCancel), L"#521");
}

TEST_F(frmVSSLoginTest, load_disablesLoginOkAndProjects)
{
    loadWithADatabase();
    EXPECT_FALSE(isEnabled(loginBtn));
    EXPECT_FALSE(isEnabled(cmdOK));
    EXPECT_FALSE(isEnabled(projNameCombo));
    EXPECT_EQ(form.selectedInList(DBCombo), L"Main");
    EXPECT_EQ(form.fillResult(), L"");
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
