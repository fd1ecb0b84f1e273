// What a screen reader can tell of the login dialog.
#include "loginFixture.h"
#include "support/accessible.h"

namespace velk {
namespace {

using enum frmVSSLogin::Control;

class AccessibleLoginTest : public test::LoginFixture {
protected:
    AccessibleLoginTest() { loadWithADatabase(); }
    test::Accessible accessible(int control) const { return test::Accessible(form.item(control)); }
    // The system names a field after the label before it.
    std::wstring labelBefore(int control) const
    {
        return form.text(GetDlgCtrlID(GetWindow(form.item(control), GW_HWNDPREV)));
    }
};

TEST_F(AccessibleLoginTest, fields_haveTheNamesOfTheirLabels)
{
    EXPECT_EQ(accessible(txtUserName).name(), L"#515");
    EXPECT_EQ(accessible(txtPassword).name(), L"#516");
    EXPECT_EQ(labelBefore(DBCombo), L"#517"); // Wine's client library does not name lists
    EXPECT_EQ(labelBefore(projNameCombo), L"#519");
}

TEST_F(AccessibleLoginTest, fields_tellWhatStandsInThemButForThePassword)
{
    form.setText(txtUserName, L"ann");
    form.setText(txtPassword, L"secret");
    EXPECT_EQ(accessible(txtUserName).value(), L"ann");
    EXPECT_EQ(accessible(txtPassword).value(), L"(none)");
    EXPECT_NE(accessible(txtPassword).state() & STATE_SYSTEM_PROTECTED, 0);
}

TEST_F(AccessibleLoginTest, buttonThatCannotBePressed_saysSo)
{
    EXPECT_NE(accessible(loginBtn).state() & STATE_SYSTEM_UNAVAILABLE, 0);
    form.setText(txtUserName, L"ann");
    EXPECT_EQ(accessible(loginBtn).state() & STATE_SYSTEM_UNAVAILABLE, 0);
    EXPECT_EQ(accessible(loginBtn).name(), L"#518");
}

} // namespace
} // namespace velk
