#include "conLstCtlFixture.h"
#include "support/shownControls.h"

namespace velk {
namespace {

using enum conLstCtl::Control;

constexpr int theForm = 0;

struct CaptionRow {
    int control;
    const wchar_t* connection; // naming a connection
    const wchar_t* command;    // naming a command
};

// clang-format off
constexpr CaptionRow captions[] = {
    {theForm,    L"#524",       L"#525"},
    {descLbl,    L"#531",       L"#532"},
    {nameLbl,    L"#527",       L"#526"},
    {conLbl,     L"Connection", L"#530"}, // hidden where a connection is named
    {projLbl,    L"#528",       L"#528"},
    {dataEnvLbl, L"#529",       L"#529"},
    {okBtn,      L"#520",       L"#520"},
    {cancelBtn,  L"#521",       L"#521"},
};
// clang-format on

class conLstCtlCaptionsTest : public test::ConLstCtlFixture, public testing::WithParamInterface<CaptionRow> {
protected:
    std::wstring shown() const
    {
        return GetParam().control == theForm ? test::captionOf(form) : form.text(GetParam().control);
    }
};

TEST_P(conLstCtlCaptionsTest, namingAConnection_hasItsText)
{
    form.setupGUI(L"x", false);
    EXPECT_EQ(shown(), GetParam().connection);
}

TEST_P(conLstCtlCaptionsTest, namingACommand_hasItsText)
{
    form.setupGUI(L"x", true);
    EXPECT_EQ(shown(), GetParam().command);
}

INSTANTIATE_TEST_SUITE_P(All, conLstCtlCaptionsTest, testing::ValuesIn(captions));

} // namespace
} // namespace velk
