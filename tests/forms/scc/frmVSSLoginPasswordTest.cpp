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

class PasswordFieldTest : public testing::Test {
protected:
    void load()
    {
        form = std::make_unique<frmVSSLogin>();
        form->Form_Load();
        field = form->item(frmVSSLogin::txtPassword);
    }
    void type() const
    {
        for (const wchar_t veiled : veiledPassword)
            SendMessageW(field, WM_CHAR, static_cast<WPARAM>(veiled ^ 1), 0);
    }
    void deleteAll() const
    {
        SendMessageW(field, EM_SETSEL, 0, -1);
        SendMessageW(field, WM_CHAR, VK_BACK, 0);
    }
    size_t copiesAfterTheForm()
    {
        form.reset();
        return test::copiesInMemory(veiledEnd);
    }

    const test::GivenBackAsItWas asItWas;
    test::FakeBackend backend;
    std::unique_ptr<frmVSSLogin> form;
    HWND field = nullptr;
};

TEST_F(PasswordFieldTest, closedForm_leavesNothingOfItInMemory)
{
    test::ShownMessages messages; // there is no SourceSafe that could be logged in to
    load();
    form->setText(frmVSSLogin::txtUserName, L"ann");
    type();
    EXPECT_EQ(test::copiesInMemory(veiledEnd), 1u);
    SendMessageW(form->hwnd(), WM_COMMAND, frmVSSLogin::loginBtn, 0);
    EXPECT_EQ(messages.lines.size(), 1u);
    EXPECT_EQ(test::copiesInMemory(veiledEnd), 1u); // the field's own
    EXPECT_EQ(copiesAfterTheForm(), 0u);
}

// As one does whose login failed.
TEST_F(PasswordFieldTest, passwordThatWasTypedTwice_leavesNothingOfItInMemory)
{
    load();
    type();
    deleteAll();
    type();
    EXPECT_EQ(copiesAfterTheForm(), 0u);
}

TEST_F(PasswordFieldTest, passwordThatWasDeleted_leavesNothingOfItInMemory)
{
    load();
    type();
    deleteAll();
    EXPECT_EQ(copiesAfterTheForm(), 0u);
}

TEST_F(PasswordFieldTest, formThatItsOwnerTakesAlong_leavesNothingOfItInMemory)
{
    unique_window owner(
        CreateWindowExW(0, L"STATIC", L"", WS_OVERLAPPED, 0, 0, 200, 100, nullptr, nullptr, nullptr, nullptr));
    setMainWindow(owner.get());
    load();
    setMainWindow(nullptr);
    type();
    owner.reset();
    EXPECT_FALSE(form->isLoaded());
    EXPECT_EQ(copiesAfterTheForm(), 0u);
}

} // namespace
} // namespace velk
