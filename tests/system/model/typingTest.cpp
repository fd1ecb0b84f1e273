// Typing into the IDE's windows.
#include "devkit/ide/shell.h"
#include "model/ModelUtilVI.h"

#include <gtest/gtest.h>

namespace velk {
namespace {

class TypingTest : public testing::Test {
protected:
    TypingTest()
    {
        ShowWindow(shell.hwnd(), SW_SHOW);
        SetForegroundWindow(shell.hwnd());
        EXPECT_EQ(model->putref_VIInstance(&shell.dte()), S_OK);
    }
    HRESULT type(const wchar_t* keys, bool toStatusWindow)
    {
        bstr text(keys);
        VARIANT_BOOL toStatus = toStatusWindow ? VARIANT_TRUE : VARIANT_FALSE;
        return model->printToFocusedWindow(text.ref(), &toStatus);
    }
    HWND immediate() const { return FindWindowExW(shell.hwnd(), nullptr, L"Edit", nullptr); }
    static std::wstring textOf(HWND window)
    {
        wchar_t text[256] = L"";
        GetWindowTextW(window, text, 256);
        return text;
    }

    devkit::Shell shell{true};
    com_ptr<ModelUtilVI> model = makeObject<ModelUtilVI>();
};

TEST_F(TypingTest, statusWindow_getsTheKeysAndTheCallWaitsForThem)
{
    EXPECT_EQ(type(L"? 1{+}1~done", true), S_OK);
    EXPECT_EQ(textOf(immediate()), L"? 1+1\r\ndone");
    EXPECT_EQ(GetFocus(), immediate());
}

TEST_F(TypingTest, badSyntax_isErrorFiveAndTypesNothing)
{
    EXPECT_EQ(type(L"abc{", true), Error(errorInvalidCall).result());
    EXPECT_EQ(type(L"", true), S_OK);
    EXPECT_EQ(textOf(immediate()), L"");
}

TEST_F(TypingTest, otherwiseTheFocusedWindow_getsTheKeys)
{
    const HWND edit =
        CreateWindowExW(0, L"EDIT", L"", WS_CHILD | WS_VISIBLE, 0, 0, 100, 20, shell.hwnd(), nullptr, nullptr, nullptr);
    SetFocus(edit);
    EXPECT_EQ(type(L"abc", false), S_OK);
    MSG message{};
    for (int tries = 0; tries < 100 && textOf(edit) != L"abc"; ++tries) {
        while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
            TranslateMessage(&message);
            DispatchMessageW(&message);
        }
        Sleep(10);
    }
    EXPECT_EQ(textOf(edit), L"abc");
    EXPECT_EQ(textOf(immediate()), L"");
}

TEST_F(TypingTest, withoutAStatusWindow_nothingIsTyped)
{
    const auto bare = makeObject<ModelUtilVI>();
    bstr text(L"abc");
    VARIANT_BOOL toStatus = VARIANT_TRUE;
    EXPECT_EQ(bare->printToFocusedWindow(text.ref(), &toStatus), S_OK);
    EXPECT_EQ(textOf(immediate()), L"");
}

} // namespace
} // namespace velk
