#pragma once

#include "model/IntegrationMgr.h"
#include "window/dialog.h"

#include <initializer_list>
#include <string>

namespace velk {

// The dialog in which the user says where a new data-environment object goes: project, data environment, for a command
// also the connection, and the object's name. The buttons hide the form, so that the results can be read afterwards.
//
//     set IMgr, perhaps the title, set up, show; when userDecision() is "True" read the selected... values
class conLstCtl : public Dialog {
public:
    // The controls' numbers.
    // clang-format off
    enum Control : int {
        okBtn = IDOK, cancelBtn = IDCANCEL,
        descLbl = 100, conLbl, conCombo, nameLbl, nameTxt, projLbl, projCombo, dataEnvLbl, dataEnvCombo
    };
    // clang-format on

    void setIMgr(IntegrationMgr manager) { m_IMgr = std::move(manager); }

    // Loads the form if it is not loaded. The set-up gives it the caption of its case.
    void setTitle(const std::wstring& title);
    // Prepares the form for naming a command or a connection and fills the lists; passes on the manager's failures.
    void setupGUI(const std::wstring& nameTxtStr, bool isCommand);

    const std::wstring& selectedName() const noexcept { return m_selectedName; }
    const std::wstring& selectedProj() const noexcept { return m_selectedProj; }
    const std::wstring& selectedDataEnv() const noexcept { return m_selectedDataEnv; }
    const std::wstring& selectedCon() const noexcept { return m_selectedCon; }
    // "True" after OK, "False" after Cancel.
    std::wstring userDecision() const;

    // Takes the form down, forgets its results and lets go of the manager.
    void terminate() noexcept;

protected:
    void onCommand(int id, int notification) override;

private:
    void loadForm();
    void fillProjects();
    void fillDataEnvironments();
    void fillConnections();
    void projCombo_Click() { fillDataEnvironments(); }
    void dataEnvCombo_Click() { fillConnections(); }
    void okBtn_Click();
    void cancelBtn_Click();
    void clear(std::initializer_list<int> combos) const;
    void fill(int combo, const std::vector<std::wstring>& texts) const;

    IntegrationMgr m_IMgr;
    bool m_decision = false;
    std::wstring m_selectedName;
    std::wstring m_selectedProj;
    std::wstring m_selectedDataEnv;
    std::wstring m_selectedCon;
};

// The add-in's one connection dialog. It has a window from its first use until it is unloaded.
conLstCtl& connectionDialog();

} // namespace velk
