// Tested in tests/forms/serverview/copyRowsTest.cpp.
#include "window/clipboard_text.h"

#include "base/error.h"
#include "base/unique_any.h"
#include "window/clipboard.h"

#include <cstring>
#include <memory>

namespace velk {
namespace {

struct GlobalFreer {
    void operator()(void* memory) const noexcept { GlobalFree(memory); }
};

} // namespace

bool putOnClipboard(HWND owner, const std::wstring& text)
{
    const size_t size = (text.size() + 1) * sizeof(wchar_t);
    std::unique_ptr<void, GlobalFreer> copy(GlobalAlloc(GMEM_MOVEABLE, size));
    void* const characters = copy ? GlobalLock(copy.get()) : nullptr;
    if (!characters)
        throw Error(errorOutOfMemory);
    std::memcpy(characters, text.c_str(), size);
    GlobalUnlock(copy.get());
    if (!openClipboard(owner))
        return false;
    const scope_exit closed([] { CloseClipboard(); });
    throwLastErrorUnless(EmptyClipboard() != FALSE);
    throwLastErrorUnless(SetClipboardData(CF_UNICODETEXT, copy.get()) != nullptr);
    copy.release(); // the clipboard owns it now
    return true;
}

} // namespace velk
