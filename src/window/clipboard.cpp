#include "window/clipboard.h"

#include "base/error.h"
#include "com/picture.h"

#include <algorithm>
#include <cstring>

namespace velk {
namespace {

constexpr size_t mostFormats = 32;
constexpr SIZE_T mostBytes = 16 * 1024 * 1024;
constexpr DWORD longestReading = 500; // milliseconds, looked at between two formats
constexpr UINT longestSilence = 300;  // milliseconds without an answer of the owner's window

// The clipboard's number when what stands there could not be kept; 0: it always could. For the process, because each
// building step has a keeper of its own. Used from the user-interface thread only.
DWORD givenUp = 0;

bool isPicture(UINT format) noexcept
{
    return format == CF_BITMAP || format == CF_DIB || format == CF_DIBV5;
}

// Handles that only their own program can make or free, and an OLE source's marks, which speak of a source that has
// let go when they come back.
bool isKeepable(UINT format) noexcept
{
    static const UINT dataObject = RegisterClipboardFormatW(L"DataObject");
    static const UINT olePrivate = RegisterClipboardFormatW(L"Ole Private Data");
    constexpr UINT foreign[] = {CF_METAFILEPICT, CF_PALETTE,         CF_OWNERDISPLAY,
                                CF_DSPBITMAP,    CF_DSPMETAFILEPICT, CF_DSPENHMETAFILE};
    return std::find(std::begin(foreign), std::end(foreign), format) == std::end(foreign) &&
           (format < CF_PRIVATEFIRST || format > CF_GDIOBJLAST) && format != dataObject && format != olePrivate;
}

// What has to be asked for, in the owner's order. The system makes the other forms of a text out of the Unicode one,
// and the other forms of a picture out of the first one, which is its owner's own.
std::vector<UINT> neededFormats()
{
    const bool hasUnicode = IsClipboardFormatAvailable(CF_UNICODETEXT) != FALSE;
    bool hasPicture = false;
    std::vector<UINT> needed;
    for (UINT format = EnumClipboardFormats(0); format != 0; format = EnumClipboardFormats(format)) {
        const bool isOtherText = hasUnicode && (format == CF_TEXT || format == CF_OEMTEXT);
        const bool isOtherPicture = hasPicture && isPicture(format);
        hasPicture = hasPicture || isPicture(format);
        if (isKeepable(format) && !isOtherText && !isOtherPicture)
            needed.push_back(format);
    }
    return needed;
}

// 0 for what is no data at all.
SIZE_T sizeOf(UINT format, HANDLE data) noexcept
{
    if (format == CF_ENHMETAFILE)
        return GetEnhMetaFileBits(static_cast<HENHMETAFILE>(data), 0, nullptr);
    if (format != CF_BITMAP)
        return GlobalSize(data);
    BITMAP bitmap{};
    GetObjectW(data, sizeof bitmap, &bitmap);
    return static_cast<SIZE_T>(bitmap.bmWidthBytes) * static_cast<SIZE_T>(bitmap.bmHeight);
}

// A copy that the clipboard can own; null when there is no memory for it.
HANDLE copyOf(UINT format, HANDLE data) noexcept
{
    if (format == CF_BITMAP)
        return CopyImage(data, IMAGE_BITMAP, 0, 0, 0);
    if (format == CF_ENHMETAFILE)
        return CopyEnhMetaFileW(static_cast<HENHMETAFILE>(data), nullptr);
    const SIZE_T size = GlobalSize(data);
    const HGLOBAL copy = GlobalAlloc(GMEM_MOVEABLE, size);
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

// A program that hangs would hang who asks it for data.
bool answers(HWND owner) noexcept
{
    DWORD_PTR result = 0;
    return SendMessageTimeoutW(owner, WM_NULL, 0, 0, SMTO_ABORTIFHUNG | SMTO_BLOCK, longestSilence, &result) != 0;
}

} // namespace

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

clipboard_keeper::Kept::~Kept()
{
    if (!m_data)
        return;
    if (m_format == CF_BITMAP)
        DeleteObject(m_data);
    else if (m_format == CF_ENHMETAFILE)
        DeleteEnhMetaFile(static_cast<HENHMETAFILE>(m_data));
    else
        GlobalFree(m_data);
}

void clipboard_keeper::Kept::putBack() noexcept
{
    if (SetClipboardData(m_format, m_data))
        m_data = nullptr;
}

clipboard_keeper::~clipboard_keeper()
{
    if (!isOurs() || !openClipboard(m_window.get()))
        return;
    const scope_exit closed([] { CloseClipboard(); });
    if (!isOurs())
        return; // somebody was quicker
    EmptyClipboard();
    for (Kept& kept : m_kept)
        kept.putBack();
}

bool clipboard_keeper::put(HBITMAP bitmap)
{
    unique_bitmap copy = copyOfBitmap(bitmap);
    if (!m_window)
        m_window.reset(CreateWindowExW(0, L"STATIC", L"", 0, 0, 0, 0, 0, HWND_MESSAGE, nullptr, nullptr, nullptr));
    throwLastErrorUnless(static_cast<bool>(m_window));
    if (!openClipboard(m_window.get()))
        return false;
    const scope_exit closed([] { CloseClipboard(); });
    if (!isOurs() && !keep())
        return false;
    throwLastErrorUnless(EmptyClipboard() != FALSE);
    throwLastErrorUnless(SetClipboardData(CF_BITMAP, copy.get()) != nullptr);
    copy.release(); // the clipboard owns it now
    // Programs that keep a history of the clipboard pass over what has this format, whatever it holds.
    static const UINT passOver = RegisterClipboardFormatW(L"ExcludeClipboardContentFromMonitorProcessing");
    if (const HGLOBAL mark = GlobalAlloc(GMEM_MOVEABLE | GMEM_ZEROINIT, sizeof(DWORD)))
        if (!SetClipboardData(passOver, mark))
            GlobalFree(mark);
    return true;
}

// Reads what stands on the open clipboard in place of what was kept before.
bool clipboard_keeper::keep()
{
    if (givenUp != 0 && givenUp == GetClipboardSequenceNumber())
        return false;
    std::vector<Kept> kept;
    const bool isWhole = readAll(kept);
    if (isWhole)
        m_kept.swap(kept);
    else
        givenUp = GetClipboardSequenceNumber(); // after the asking: what is delivered counts as a change
    return isWhole;
}

bool clipboard_keeper::readAll(std::vector<Kept>& kept) const
{
    const HWND owner = GetClipboardOwner();
    const std::vector<UINT> needed = neededFormats();
    if (needed.size() > mostFormats)
        return false;
    const DWORD begin = GetTickCount();
    SIZE_T bytes = 0;
    for (const UINT format : needed) {
        if (GetTickCount() - begin > longestReading || (owner && !answers(owner)))
            return false;
        const HANDLE data = GetClipboardData(format);
        const SIZE_T size = data ? sizeOf(format, data) : 0;
        if (size == 0)
            continue; // not even its owner can make it
        bytes += size;
        if (bytes > mostBytes)
            return false;
        Kept copy(format, copyOf(format, data));
        if (!copy.isThere())
            return false;
        kept.push_back(std::move(copy));
    }
    return true;
}

} // namespace velk
