#include "platform/clipboard.h"

#include "platform/boundary.h"
#include "platform/unique_any.h"

#include <cstring>

namespace velk {
namespace {

// A copy that the clipboard can own; null for what cannot be copied.
HANDLE copyOf(UINT format, HANDLE data) noexcept
{
    switch (format) {
    case CF_BITMAP:
        return CopyImage(data, IMAGE_BITMAP, 0, 0, 0);
    case CF_ENHMETAFILE:
        return CopyEnhMetaFileW(static_cast<HENHMETAFILE>(data), nullptr);
    case CF_METAFILEPICT:
    case CF_PALETTE:
    case CF_OWNERDISPLAY:
    case CF_DSPBITMAP:
    case CF_DSPMETAFILEPICT:
    case CF_DSPENHMETAFILE:
        return nullptr;
    default:
        break;
    }
    if (format >= CF_PRIVATEFIRST && format <= CF_GDIOBJLAST)
        return nullptr;
    const SIZE_T size = GlobalSize(data);
    const HGLOBAL copy = size ? GlobalAlloc(GMEM_MOVEABLE, size) : nullptr;
    if (!copy)
        return nullptr;
    void* target = GlobalLock(copy);
    const void* source = GlobalLock(data);
    if (target && source)
        std::memcpy(target, source, size);
    GlobalUnlock(data);
    GlobalUnlock(copy);
    return copy;
}

void freeCopy(UINT format, HANDLE data) noexcept
{
    if (format == CF_BITMAP)
        DeleteObject(data);
    else if (format == CF_ENHMETAFILE)
        DeleteEnhMetaFile(static_cast<HENHMETAFILE>(data));
    else
        GlobalFree(data);
}

// Programs that watch the clipboard open it for a moment after each change.
bool openClipboard(HWND owner) noexcept
{
    constexpr int attempts = 20;
    constexpr DWORD pause = 10; // milliseconds
    for (int attempt = 1; attempt < attempts; ++attempt) {
        if (OpenClipboard(owner))
            return true;
        Sleep(pause);
    }
    return OpenClipboard(owner) != FALSE;
}

} // namespace

clipboard_keeper::clipboard_keeper(HWND owner) noexcept : m_owner(owner)
{
    if (!openClipboard(owner))
        return;
    const scope_exit closed([] { CloseClipboard(); });
    m_wasRead = true;
    swallow(L"clipboard_keeper", L"what could not be kept is lost to the user's clipboard only", [this] {
        for (UINT format = EnumClipboardFormats(0); format != 0; format = EnumClipboardFormats(format))
            if (const HANDLE data = GetClipboardData(format))
                if (const HANDLE copy = copyOf(format, data))
                    m_kept.push_back({format, copy});
    });
}

clipboard_keeper::~clipboard_keeper()
{
    // The owner is who emptied it last.
    const bool isOurs = GetClipboardOwner() == m_owner;
    if (m_wasRead && isOurs && openClipboard(m_owner)) {
        EmptyClipboard();
        for (Kept& kept : m_kept)
            if (SetClipboardData(kept.format, kept.data))
                kept.data = nullptr; // the clipboard owns it now
        CloseClipboard();
    }
    for (const Kept& kept : m_kept)
        if (kept.data)
            freeCopy(kept.format, kept.data);
}

void putBitmapOnClipboard(HWND owner, HBITMAP bitmap)
{
    unique_bitmap copy(static_cast<HBITMAP>(CopyImage(bitmap, IMAGE_BITMAP, 0, 0, 0)));
    throwLastErrorUnless(static_cast<bool>(copy));
    throwLastErrorUnless(openClipboard(owner));
    const scope_exit closed([] { CloseClipboard(); });
    throwLastErrorUnless(EmptyClipboard() != FALSE);
    throwLastErrorUnless(SetClipboardData(CF_BITMAP, copy.get()) != nullptr);
    copy.release(); // the clipboard owns it now
    // Programs that keep a history of the clipboard pass over what has this format, whatever it holds.
    static const UINT passOver = RegisterClipboardFormatW(L"ExcludeClipboardContentFromMonitorProcessing");
    if (const HGLOBAL mark = GlobalAlloc(GMEM_MOVEABLE | GMEM_ZEROINIT, sizeof(DWORD)))
        if (!SetClipboardData(passOver, mark))
            GlobalFree(mark);
}

} // namespace velk
