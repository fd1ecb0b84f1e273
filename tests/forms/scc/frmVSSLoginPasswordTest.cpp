// What is left of a password in memory.
#include "base/unique_any.h"
#include "scc/frmVSSLogin.h"
#include "support/fakeBackend.h"
#include "support/givenBack.h"
#include "support/memorySearch.h"
#include "support/shownMessages.h"

#include <gtest/gtest.h>
#include <memory>

namespace velk {
namespace {

constexpr std::wstring_view veiledPassword =
    L"`-mnof-q`rrvnse-vinrd-gshrs-m`uudsr-bnrtmd-vhsi-gsff-cmnbjr-Qxzzyx-v`r-idsd-0897";
// The system writes its own into the beginning of a block that is given back: only the end of the password tells.
constexpr std::wstring_view veiledEnd = veiledPassword.substr(veiledPassword.size() - 20);

void typePassword(HWND field)
{
    for (const wchar_t veiled : veiledPassword)
        SendMessageW(field, WM_CHAR, static_cast<WPARAM>(veiled ^ 1), 0);
}

TEST(passwordField, closedForm_leavesNothingOfItInMemory)
{
    const test::GivenBackAsItWas asItWas;
    test::FakeBackend backend;
    test::ShownMessages messages; // there is no SourceSafe that could be logged in to
    auto form = std::make_unique<frmVSSLogin>();
    form->Form_Load();
    form->setText(frmVSSLogin::txtUserName, L"ann");
    typePassword(form->item(frmVSSLogin::txtPassword));
    EXPECT_EQ(test::copiesInMemory(veiledEnd), 1u);
    SendMessageW(form->hwnd(), WM_COMMAND, frmVSSLogin::loginBtn, 0);
    EXPECT_EQ(messages.lines.size(), 1u);
    EXPECT_EQ(test::copiesInMemory(veiledEnd), 1u); // the field's own
    form.reset();
    EXPECT_EQ(test::copiesInMemory(veiledEnd), 0u);
}

// As one does whose login failed.
TEST(passwordField, passwordThatWasTypedTwice_leavesNothingOfItInMemory)
{
    const test::GivenBackAsItWas asItWas;
    test::FakeBackend backend;
    auto form = std::make_unique<frmVSSLogin>();
    form->Form_Load();
    const HWND field = form->item(frmVSSLogin::txtPassword);
    typePassword(field);
    SendMessageW(field, EM_SETSEL, 0, -1);
    SendMessageW(field, WM_CHAR, VK_BACK, 0);
    typePassword(field);
    form.reset();
    EXPECT_EQ(test::copiesInMemory(veiledEnd), 0u);
}

TEST(passwordField, passwordThatWasDeleted_leavesNothingOfItInMemory)
{
    const test::GivenBackAsItWas asItWas;
    test::FakeBackend backend;
    auto form = std::make_unique<frmVSSLogin>();
    form->Form_Load();
    const HWND field = form->item(frmVSSLogin::txtPassword);
    typePassword(field);
    SendMessageW(field, EM_SETSEL, 0, -1);
    SendMessageW(field, WM_CHAR, VK_BACK, 0);
    form.reset();
    EXPECT_EQ(test::copiesInMemory(veiledEnd), 0u);
}

TEST(passwordField, formThatItsOwnerTakesAlong_leavesNothingOfItInMemory)
{
    const test::GivenBackAsItWas asItWas;
    test::FakeBackend backend;
    unique_window owner(
        CreateWindowExW(0, L"STATIC", L"", WS_OVERLAPPED, 0, 0, 200, 100, nullptr, nullptr, nullptr, nullptr));
    setMainWindow(owner.get());
    frmVSSLogin form;
    form.Form_Load();
    setMainWindow(nullptr);
    typePassword(form.item(frmVSSLogin::txtPassword));
    owner.reset();
    EXPECT_FALSE(form.isLoaded());
    EXPECT_EQ(test::copiesInMemory(veiledEnd), 0u);
}

} // namespace
} // namespace velk
