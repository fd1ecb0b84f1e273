#include "base/unique_any.h"
#include "model/ModelUtilVI.h"
#include "support/fakeObject.h"

#include <gtest/gtest.h>

namespace velk {
namespace {

using test::asVariant;
using test::fakeObject;

// A model whose IDE has a status window, and a real field with the focus.
class PrintToFocusedWindowTest : public testing::Test {
protected:
    PrintToFocusedWindowTest()
    {
        SetForegroundWindow(edit.get());
        SetFocus(edit.get());
        const auto nothing = [](const std::vector<variant>&) { return variant(); };
        const auto status = fakeObject(L"Status");
        status->value(L"Type", variant(int32_t{5}))->value(L"Visible", variant(true))->function(L"SetFocus", nothing);
        const auto windows = fakeObject(L"Windows");
        windows->value(L"Count", variant(int32_t{1}))->value(L"Item", asVariant(status));
        const auto ide = fakeObject(L"DTE");
        ide->value(L"Windows", asVariant(windows));
        model->putref_VIInstance(ide.get());
    }
    void print(const wchar_t* keys, bool toStatusWindow) { printBy(*model.get(), keys, toStatusWindow); }
    static void printBy(ModelUtilVI& typist, const wchar_t* keys, bool toStatusWindow)
    {
        bstr text(keys);
        VARIANT_BOOL toStatus = toStatusWindow ? VARIANT_TRUE : VARIANT_FALSE;
        EXPECT_EQ(typist.printToFocusedWindow(text.ref(), &toStatus), S_OK);
    }
    std::wstring text() const
    {
        wchar_t content[64] = L"";
        GetWindowTextW(edit.get(), content, 64);
        return content;
    }

    const unique_window edit{
        CreateWindowExW(0, L"EDIT", L"", WS_POPUP | WS_VISIBLE, 0, 0, 300, 30, nullptr, nullptr, nullptr, nullptr)};
    com_ptr<ModelUtilVI> model = makeObject<ModelUtilVI>();
};

TEST_F(PrintToFocusedWindowTest, statusWindow_hasTheTextWhenTheCallReturns)
{
    print(L"abc", true);
    EXPECT_EQ(text(), L"abc");
}

TEST_F(PrintToFocusedWindowTest, focusedWindow_isTypedIntoWithoutWaiting)
{
    print(L"a", false);
    EXPECT_EQ(text(), L"");
    print(L"b", true); // waits for both
    EXPECT_EQ(text(), L"ab");
}

TEST_F(PrintToFocusedWindowTest, withoutAStatusWindow_onlyTheFocusedWindowCanBeTypedInto)
{
    const auto bare = makeObject<ModelUtilVI>();
    printBy(*bare.get(), L"a", true); // for a status window that is not there
    printBy(*bare.get(), L"b", false);
    print(L"c", true); // waits for what is under way
    EXPECT_EQ(text(), L"bc");
}

} // namespace
} // namespace velk
