#include "model/conLstCtl.h"

#include "backend/texts.h"
#include "base/never_destroyed.h"
#include "base/text.h"
#include "ui/captions.h"
#include "ui/formFont.h"
#include "ui/messageBox.h"

namespace velk {
namespace {

using enum DialogControl;
using Form = conLstCtl;

// clang-format off
constexpr DialogRow rows[] = {
    {Form::descLbl,      label,           0,   8,   8, 224,  18},
    {Form::nameLbl,      label,           0,   8,  32,  84,   9},
    {Form::nameTxt,      edit,            0,  96,  30, 136,  13},
    {Form::projLbl,      label,         528,   8,  50,  84,   9},
    {Form::projCombo,    dropDownList,    0,  96,  48, 136, 100},
    {Form::dataEnvLbl,   label,         529,   8,  68,  84,   9},
    {Form::dataEnvCombo, dropDownList,    0,  96,  66, 136, 100},
    {Form::conLbl,       label,           0,   8,  86,  84,   9},
    {Form::conCombo,     dropDownList,    0,  96,  84, 136, 100},
    {Form::okBtn,        defaultButton, 520, 118, 106,  54,  14},
    {Form::cancelBtn,    button,        521, 178, 106,  54,  14},
};
constexpr DialogLayout layout{240, 127, rows};

// What the form says in each of its two cases.
struct CaseTexts {
    int32_t caption, description, name;
};
constexpr CaseTexts connectionTexts{524, 531, 527};
constexpr CaseTexts commandTexts   {525, 532, 526};
constexpr int32_t connectionListText = 530;
// Stands there until a command is named; a form that never named one keeps it, hidden.
constexpr wchar_t connectionListDesign[] = L"Connection";
// clang-format on

} // namespace

void conLstCtl::loadForm()
{
    if (isLoaded())
        return;
    load(dialogOwner(), layout, formFont());
    setText(conLbl, connectionListDesign);
}

void conLstCtl::setTitle(const std::wstring& title)
{
    loadForm();
    setCaption(title);
}

void conLstCtl::setupGUI(const std::wstring& nameTxtStr, bool isCommand)
{
    loadForm();
    show(conLbl, isCommand);
    show(conCombo, isCommand);
    const CaseTexts& texts = isCommand ? commandTexts : connectionTexts;
    setCaption(getRZString(texts.caption));
    setText(descLbl, getRZString(texts.description));
    setText(nameLbl, getRZString(texts.name));
    if (isCommand)
        setText(conLbl, getRZString(connectionListText));
    setText(nameTxt, nameTxtStr);
    setCaptions(*this, rows);
    fillProjects();
}

void conLstCtl::fill(int combo, const std::vector<std::wstring>& texts) const
{
    fillList(combo, texts);
    if (!texts.empty())
        selectInList(combo, 0);
}

// What stands in a list, and in those below it, belongs to the choice before. It goes before the manager is asked: a
// request that fails leaves no entries that do not belong to what is shown above them.
void conLstCtl::clear(std::initializer_list<int> combos) const
{
    for (const int combo : combos)
        fillList(combo, {});
}

// Selecting the first entry does what the user's selection does: it fills the list below.
void conLstCtl::fillProjects()
{
    clear({projCombo, dataEnvCombo, conCombo});
    const IntegrationMgr manager = m_IMgr; // kept: the form may be taken down while it answers
    fill(projCombo, manager.getProjList());
    projCombo_Click();
}

void conLstCtl::fillDataEnvironments()
{
    clear({dataEnvCombo, conCombo});
    const std::wstring project = selectedInList(projCombo);
    if (project.empty())
        return;
    const IntegrationMgr manager = m_IMgr;
    const std::vector<std::wstring> environments = manager.getDataEnvList(project);
    if (selectedInList(projCombo) != project)
        return; // the user chose another one meanwhile, and that one's are there
    fill(dataEnvCombo, environments);
    dataEnvCombo_Click();
}

void conLstCtl::fillConnections()
{
    clear({conCombo});
    const std::wstring project = selectedInList(projCombo);
    const std::wstring environment = selectedInList(dataEnvCombo);
    if (project.empty() || environment.empty())
        return;
    const IntegrationMgr manager = m_IMgr;
    const std::vector<std::wstring> connections = manager.getConnectionList(environment, project);
    if (selectedInList(projCombo) == project && selectedInList(dataEnvCombo) == environment)
        fill(conCombo, connections);
}

void conLstCtl::okBtn_Click()
{
    m_decision = true;
    m_selectedName = text(nameTxt);
    m_selectedProj = selectedInList(projCombo);
    m_selectedDataEnv = selectedInList(dataEnvCombo);
    m_selectedCon = isVisible(conCombo) ? selectedInList(conCombo) : std::wstring();
    hide();
}

void conLstCtl::cancelBtn_Click()
{
    m_decision = false;
    hide();
}

std::wstring conLstCtl::userDecision() const
{
    return booleanText(m_decision);
}

void conLstCtl::terminate() noexcept
{
    unload();
    m_IMgr = {};
    m_decision = false;
    for (std::wstring* result : {&m_selectedName, &m_selectedProj, &m_selectedDataEnv, &m_selectedCon})
        std::wstring().swap(*result); // and its memory
}

void conLstCtl::onCommand(int id, int notification)
{
    if (id == okBtn)
        okBtn_Click();
    else if (id == cancelBtn)
        cancelBtn_Click();
    else if (id == projCombo && notification == CBN_SELCHANGE)
        projCombo_Click();
    else if (id == dataEnvCombo && notification == CBN_SELCHANGE)
        dataEnvCombo_Click();
}

conLstCtl& connectionDialog()
{
    static never_destroyed<conLstCtl> only;
    return only.get();
}

} // namespace velk
