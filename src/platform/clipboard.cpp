#include "platform/clipboard.h"

#include "platform/error.h"
#include "platform/unique_any.h"

namespace velk {

void putBitmapOnClipboard(HWND owner, HBITMAP bitmap)
{
    unique_bitmap copy(static_cast<HBITMAP>(CopyImage(bitmap, IMAGE_BITMAP, 0, 0, 0)));
    throwLastErrorUnless(static_cast<bool>(copy));
    throwLastErrorUnless(OpenClipboard(owner) != FALSE);
    const scope_exit closed([] { CloseClipboard(); });
    throwLastErrorUnless(EmptyClipboard() != FALSE);
    throwLastErrorUnless(SetClipboardData(CF_BITMAP, copy.get()) != nullptr);
    copy.release(); // the clipboard owns it now
}

} // namespace velk
