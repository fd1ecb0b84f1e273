#pragma once

#include "base/unique_any.h"
#include "devkit/base/thread.h"
#include "window/clipboard.h"

#include <cwchar>
#include <gtest/gtest.h>
#include <string>
#include <vector>

namespace velk::test {

inline unique_window hiddenWindow()
{
    return unique_window(CreateWindowExW(0, L"STATIC", L"", 0, 0, 0, 0, 0, HWND_MESSAGE, nullptr, nullptr, nullptr));
}

inline HGLOBAL blockOf(const std::wstring& text)
{
    const HGLOBAL block = GlobalAlloc(GMEM_MOVEABLE, (text.size() + 1) * sizeof(wchar_t));
    std::wcscpy(static_cast<wchar_t*>(GlobalLock(block)), text.c_str());
    GlobalUnlock(block);
    return block;
}

// A user's program, which puts data on the clipboard, and the keeper that shows a bitmap meanwhile.
class ClipboardFixture : public testing::Test {
protected:
    ~ClipboardFixture() override { empty(); }
    void empty()
    {
        if (!OpenClipboard(user.get()))
            return;
        EmptyClipboard();
        CloseClipboard();
    }
    // The clipboard holds a text and a registered format then, and nothing else.
    void copy(HWND owner, const std::wstring& text, const std::wstring& special)
    {
        ASSERT_TRUE(OpenClipboard(owner));
        EmptyClipboard();
        SetClipboardData(CF_UNICODETEXT, blockOf(text));
        SetClipboardData(ownFormat, blockOf(special));
        CloseClipboard();
    }
    void copyOne(UINT format, HANDLE data)
    {
        ASSERT_TRUE(OpenClipboard(user.get()));
        EmptyClipboard();
        EXPECT_TRUE(SetClipboardData(format, data) != nullptr);
        CloseClipboard();
    }
    // Shows the bitmap and gives the user's content back.
    bool showBitmap()
    {
        clipboard_keeper keeper;
        return keeper.put(bitmap.get());
    }
    std::wstring content(UINT format) const
    {
        if (!OpenClipboard(user.get()))
            return L"(held)";
        const scope_exit closed([] { CloseClipboard(); });
        const HANDLE block = GetClipboardData(format);
        if (!block)
            return L"(none)";
        const std::wstring text = static_cast<const wchar_t*>(GlobalLock(block));
        GlobalUnlock(block);
        return text;
    }

    const UINT ownFormat = RegisterClipboardFormatW(L"velkviadd test format");
    const unique_window user = hiddenWindow();
    const unique_bitmap bitmap{CreateBitmap(16, 16, 1, 24, nullptr)};
};

} // namespace velk::test
