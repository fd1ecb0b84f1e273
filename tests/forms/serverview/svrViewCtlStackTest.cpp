// The system's controls tell their parent what happens on stacks that are aligned to 4 bytes only.
#include "support/stackOff.h"
#include "viewFixture.h"

namespace velk {
namespace {

class StackTest : public test::ViewFixture, public testing::WithParamInterface<uint32_t> {
protected:
    StackTest()
    {
        addProject();
        tree().select(L"K24");
        addViewRow({.lHdl = 300, .strSchema = L"10", .strName = L"first", .strComment = L""});
        addViewRow({.lHdl = 301, .strSchema = L"9", .strName = L"second", .strComment = L""});
    }
    void tell(NMHDR& notification, HWND sender, UINT code)
    {
        notification.hwndFrom = sender;
        notification.code = code;
        const auto procedure = reinterpret_cast<void*>(GetWindowLongPtrW(view.hwnd(), GWLP_WNDPROC));
        test::enterWithStackOff(GetParam(), procedure, view.hwnd(), uint32_t{WM_NOTIFY}, 0, &notification);
    }
};

TEST_P(StackTest, headerClick_ordersByNumbersAndTexts)
{
    NMLISTVIEW click{};
    click.iSubItem = 1;
    tell(click.hdr, list().view().hwnd(), LVN_COLUMNCLICK);
    EXPECT_EQ(cell(0, 0), L"second");
    click.iSubItem = 0;
    tell(click.hdr, list().view().hwnd(), LVN_COLUMNCLICK);
    EXPECT_EQ(cell(0, 0), L"first");
}

TEST_P(StackTest, cellThatIsAskedFor_isGiven)
{
    NMLVDISPINFOW question{};
    wchar_t text[32] = L"";
    question.item.mask = LVIF_TEXT | LVIF_IMAGE;
    question.item.pszText = text;
    question.item.cchTextMax = 32;
    tell(question.hdr, list().view().hwnd(), LVN_GETDISPINFOW);
    EXPECT_STREQ(question.item.pszText, L"first");
}

INSTANTIATE_TEST_SUITE_P(bytes, StackTest, testing::Values(4U, 8U, 12U), testing::PrintToStringParamName());

} // namespace
} // namespace velk
