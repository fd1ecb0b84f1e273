#include "scc/frmVSSLogin.h"

#include "backend/texts.h"
#include "ui/captions.h"
#include "ui/formFont.h"
#include "ui/messageBox.h"

namespace velk {
namespace {

using enum DialogControl;
using Form = frmVSSLogin;

// clang-format off
constexpr DialogRow rows[] = {
    {Form::Frame1,        group,         522,   6,   4, 236,  84},
    {Form::userNameLbl,   label,         515,  14,  20,  72,   9},
    {Form::txtUserName,   edit,            0,  90,  18, 144,  13},
    {Form::passwordLbl,   label,         516,  14,  37,  72,   9},
    {Form::txtPassword,   password,        0,  90,  35, 144,  13},
    {Form::DBLbl,         label,         517,  14,  54,  72,   9},
    {Form::DBCombo,       dropDown,        0,  90,  52, 144, 100},
    {Form::loginBtn,      button,        518, 180,  69,  54,  14},
    {Form::projNameLbl,   label,         519,  14,  97,  72,   9},
    {Form::projNameCombo, dropDown,        0,  90,  95, 144, 100},
    {Form::cmdOK,         defaultButton, 520, 128, 116,  54,  14},
    {Form::cmdCancel,     button,        521, 188, 116,  54,  14},
};
constexpr DialogLayout layout{248, 136, rows};
// clang-format on
constexpr int32_t captionText = 523;
constexpr int32_t noDatabaseText = 681;

} // namespace

void frmVSSLogin::Form_Load()
{
    load(dialogOwner(), layout, formFont());
    setCaption(getRZString(captionText));
    setCaptions(*this, rows);
    for (const Control control : {loginBtn, cmdOK, projNameCombo})
        enable(control, false);
    m_fillResult = fillDatabaseList();
}

std::wstring frmVSSLogin::fillDatabaseList()
{
    getSourceSafeDatabases(m_table);
    std::vector<std::wstring> names;
    for (const SourceSafeDatabase& row : m_table)
        names.push_back(row.name);
    fillList(DBCombo, names);
    if (listCount(DBCombo) == 0)
        return getRZString(noDatabaseText);
    selectInList(DBCombo, 0);
    return {};
}

void frmVSSLogin::updateLoginButton(const std::wstring& database)
{
    const bool canLogIn = !text(txtUserName).empty() && !database.empty();
    enable(loginBtn, canLogIn);
    // What was logged in to is no longer what the fields say.
    if (canLogIn)
        enable(cmdOK, false);
}

void frmVSSLogin::loginBtn_Click()
{
    // The database that was open is let go of in any case: after a failure there is nothing that OK could mean.
    enable(projNameCombo, false);
    enable(cmdOK, false);
    if (!openSourceSafeDatabase(text(txtUserName), secret(txtPassword).view(), text(DBCombo), m_table) || !isLoaded())
        return;
    std::vector<std::wstring> projects;
    getSourceSafeProjects(projects);
    fillList(projNameCombo, projects);
    if (!projects.empty())
        selectInList(projNameCombo, 0);
    enable(projNameCombo, true);
    enable(cmdOK, true);
}

void frmVSSLogin::cmdOK_Click()
{
    m_successfulLogin = true;
    createSourceSafeProject(text(projNameCombo));
    hide();
}

void frmVSSLogin::cmdCancel_Click()
{
    hide();
}

void frmVSSLogin::onCommand(int id, int notification)
{
    const bool isTyped = (id == txtUserName || id == txtPassword) && notification == EN_CHANGE;
    const bool isSelected = id == DBCombo && notification == CBN_SELCHANGE;
    const bool isChosen = isSelected || (id == DBCombo && notification == CBN_EDITCHANGE);
    if (id == cmdCancel)
        cmdCancel_Click();
    else if (id == cmdOK && IsWindowEnabled(item(cmdOK)))
        cmdOK_Click();
    else if (id == loginBtn)
        loginBtn_Click();
    else if (isTyped || isChosen)
        // An entry that is being selected does not stand in the field yet.
        updateLoginButton(isSelected ? selectedInList(DBCombo) : text(DBCombo));
}

} // namespace velk
