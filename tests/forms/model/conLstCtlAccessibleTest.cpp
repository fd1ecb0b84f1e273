// What a screen reader can tell of the connection dialog.
#include "conLstCtlFixture.h"
#include "support/accessible.h"

namespace velk {
namespace {

using enum conLstCtl::Control;

class AccessibleConnectionTest : public test::ConLstCtlFixture {
protected:
    AccessibleConnectionTest() { form.setupGUI(L"x", true); }
    // The system names a field after the label before it.
    std::wstring labelBefore(int control) const
    {
        return form.text(GetDlgCtrlID(GetWindow(form.item(control), GW_HWNDPREV)));
    }
};

TEST_F(AccessibleConnectionTest, fields_haveTheNamesOfTheirLabels)
{
    EXPECT_EQ(test::Accessible(form.item(nameTxt)).name(), L"#526");
    EXPECT_EQ(labelBefore(projCombo), L"#528"); // Wine's client library does not name lists
    EXPECT_EQ(labelBefore(dataEnvCombo), L"#529");
    EXPECT_EQ(labelBefore(conCombo), L"#530");
}

TEST_F(AccessibleConnectionTest, form_hasTheNameOfItsCase)
{
    EXPECT_EQ(test::Accessible(form.hwnd()).name(), L"#525");
}

} // namespace
} // namespace velk
