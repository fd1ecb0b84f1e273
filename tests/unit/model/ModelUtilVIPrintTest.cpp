#include "ideWithWindows.h"
#include "model/ModelUtilVI.h"

#include <gtest/gtest.h>

namespace velk {
namespace {

using test::FakeObject;
using Journal = FakeObject::Journal;

// A model bound to an IDE whose status window is a fake. No text is typed: what the window is asked is the subject.
class PrintToFocusedWindowTest : public testing::Test {
protected:
    PrintToFocusedWindowTest()
    {
        window->value(L"Type", variant(int32_t{5}))->value(L"Visible", variant(false));
        model->putref_VIInstance(test::ideWith({window}).get());
        journal.clear();
    }
    HRESULT print(bool toStatusWindow)
    {
        bstr text(L"");
        VARIANT_BOOL toStatus = toStatusWindow ? VARIANT_TRUE : VARIANT_FALSE;
        return model->printToFocusedWindow(text.ref(), &toStatus);
    }
    static variant nothing(const std::vector<variant>&) { return {}; }

    Journal journal;
    com_ptr<FakeObject> window = test::fakeObject(L"Status", &journal);
    com_ptr<ModelUtilVI> model = makeObject<ModelUtilVI>();
};

TEST_F(PrintToFocusedWindowTest, statusWindow_isMadeVisibleAndThenGetsTheFocus)
{
    window->function(L"SetFocus", nothing)->function(L"Activate", nothing);
    EXPECT_EQ(print(true), S_OK);
    EXPECT_EQ(journal, (Journal{L"Status.Visible = True", L"Status.SetFocus()"}));
}

TEST_F(PrintToFocusedWindowTest, windowWithoutSetFocus_isActivated)
{
    window->function(L"Activate", nothing);
    EXPECT_EQ(print(true), S_OK);
    EXPECT_EQ(journal, (Journal{L"Status.Visible = True", L"Status.Activate()"}));
}

TEST_F(PrintToFocusedWindowTest, withoutTheStatusWindowWanted_itIsLeftAlone)
{
    window->function(L"SetFocus", nothing);
    EXPECT_EQ(print(false), S_OK);
    EXPECT_EQ(journal, Journal{});
}

TEST_F(PrintToFocusedWindowTest, windowThatCannotBeShown_failsTheCallBeforeTheFocus)
{
    window->function(L"SetFocus", nothing)->failing(L"Visible", Error(errorPermissionDenied));
    EXPECT_EQ(print(true), Error(errorPermissionDenied).result());
    EXPECT_EQ(journal, Journal{L"Status.Visible fails"});
}

TEST_F(PrintToFocusedWindowTest, windowThatTakesNoFocus_failsTheCall)
{
    window->function(L"SetFocus", nothing)->failing(L"SetFocus", Error(errorPermissionDenied));
    EXPECT_EQ(print(true), Error(errorPermissionDenied).result());
}

} // namespace
} // namespace velk
