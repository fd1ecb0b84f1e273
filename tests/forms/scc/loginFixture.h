#pragma once

#include "scc/frmVSSLogin.h"
#include "support/fakeBackend.h"
#include "support/fakeSourceSafe.h"
#include "support/shownMessages.h"

#include <gmock/gmock.h>

namespace velk::test {

// The login dialog over a SourceSafe of fakes, not loaded yet.
class LoginFixture : public testing::Test {
protected:
    LoginFixture() { backend.numbersAsTexts = true; }
    ~LoginFixture() override { closeSourceSafe(); }
    void loadWithADatabase()
    {
        FakeSourceSafe::addDatabase(L"Main", L"C:\\vss");
        form.Form_Load();
    }
    void press(int id) { SendMessageW(form.hwnd(), WM_COMMAND, static_cast<WPARAM>(id), 0); }
    void notify(int id, int notification) { SendMessageW(form.hwnd(), WM_COMMAND, MAKEWPARAM(id, notification), 0); }
    bool isEnabled(int id) const { return IsWindowEnabled(form.item(id)) != FALSE; }
    void logIn()
    {
        form.setText(frmVSSLogin::txtUserName, L"ann");
        form.setText(frmVSSLogin::txtPassword, L"secret");
        press(frmVSSLogin::loginBtn);
    }

    FakeBackend backend;
    FakeSourceSafe sourceSafe;
    ShownMessages shownMessages;
    std::vector<std::wstring>& messages = shownMessages.lines;
    frmVSSLogin form;
};

} // namespace velk::test
