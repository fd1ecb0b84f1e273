// The login dialog's captions and its font.
#include "loginFixture.h"
#include "support/shownControls.h"
#include "ui/uiFont.h"

namespace velk {
namespace {

using enum frmVSSLogin::Control;

constexpr int theForm = 0;

struct ControlRow {
    int control;
    const wchar_t* caption; // what it holds when the form is loaded
};

// clang-format off
constexpr ControlRow controls[] = {
    {theForm,       L"#523"},
    {Frame1,        L"#522"},
    {userNameLbl,   L"#515"},
    {txtUserName,   L""},
    {passwordLbl,   L"#516"},
    {txtPassword,   L""},
    {DBLbl,         L"#517"},
    {DBCombo,       L"Main"},
    {loginBtn,      L"#518"},
    {projNameLbl,   L"#519"},
    {projNameCombo, L""},
    {cmdOK,         L"#520"},
    {cmdCancel,     L"#521"},
};
// clang-format on

class LoginLooksTest : public test::LoginFixture, public testing::WithParamInterface<ControlRow> {
protected:
    ~LoginLooksTest() override { uiFont() = {}; }
    HWND window() const { return GetParam().control == theForm ? form.hwnd() : form.item(GetParam().control); }
};

TEST_P(LoginLooksTest, control_hasItsCaption)
{
    loadWithADatabase();
    EXPECT_EQ(GetParam().control == theForm ? test::captionOf(form) : form.text(GetParam().control),
              GetParam().caption);
}

TEST_P(LoginLooksTest, control_hasNameAndSizeOfTheUiFont)
{
    uiFont() = {L"Courier New", 12, 1};
    loadWithADatabase();
    const auto font = reinterpret_cast<HFONT>(SendMessageW(window(), WM_GETFONT, 0, 0));
    LOGFONTW description{};
    ASSERT_NE(GetObjectW(font, sizeof description, &description), 0);
    EXPECT_STREQ(description.lfFaceName, L"Courier New");
    EXPECT_EQ(description.lfHeight, -16); // 12 points at 96 dpi
}

INSTANTIATE_TEST_SUITE_P(All, LoginLooksTest, testing::ValuesIn(controls));

} // namespace
} // namespace velk
