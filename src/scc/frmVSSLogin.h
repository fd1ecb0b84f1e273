#pragma once

#include "scc/VSSAPI.h"
#include "window/dialog.h"

namespace velk {

// The dialog in which the user logs in to a SourceSafe database and chooses the project to work in. It leaves the open
// database and the current project with VSSAPI. Neither user name nor password is kept;
// the password is not left in memory either.
class frmVSSLogin : public Dialog {
public:
    // The controls' numbers.
    // clang-format off
    enum Control : int {
        cmdOK = IDOK, cmdCancel = IDCANCEL,
        Frame1 = 100, userNameLbl, txtUserName, passwordLbl, txtPassword, DBLbl, DBCombo, loginBtn, projNameLbl,
        projNameCombo
    };
    // clang-format on

    // Loads the form and fills it. What the list of databases has to say to the user (none is registered) is the
    // result of fillDatabaseList, for the caller to show.
    void Form_Load();
    const std::wstring& fillResult() const noexcept { return m_fillResult; }
    // True only after OK.
    bool successfulLogin() const noexcept { return m_successfulLogin; }

protected:
    void onCommand(int id, int notification) override;

private:
    std::wstring fillDatabaseList();
    void updateLoginButton(const std::wstring& database);
    void loginBtn_Click();
    void cmdOK_Click();
    void cmdCancel_Click();

    DatabaseTable m_table;
    std::wstring m_fillResult;
    bool m_successfulLogin = false;
};

} // namespace velk
