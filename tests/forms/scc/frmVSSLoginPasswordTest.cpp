// What is left of a password in memory.
#include "scc/frmVSSLogin.h"
#include "support/fakeBackend.h"
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

} // namespace
} // namespace velk
