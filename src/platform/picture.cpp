#include "platform/picture.h"

#include "platform/error.h"
#include "platform/module.h"

#include <cstring>

namespace velk {
namespace {

SIZE sizeOf(HBITMAP bitmap)
{
    BITMAP description{};
    GetObjectW(bitmap, sizeof description, &description);
    return {description.bmWidth, description.bmHeight};
}

} // namespace

com_ptr<IPicture> loadPicture(int resource)
{
    const HINSTANCE instance = module::instance();
    const HRSRC found = FindResourceW(instance, MAKEINTRESOURCEW(resource), RT_RCDATA);
    throwLastErrorUnless(found != nullptr);
    const DWORD size = SizeofResource(instance, found);
    const void* bytes = LockResource(LoadResource(instance, found));
    throwLastErrorUnless(bytes != nullptr);
    com_ptr<IStream> stream;
    throwIfFailed(CreateStreamOnHGlobal(nullptr, TRUE, stream.put()));
    throwIfFailed(stream->Write(bytes, size, nullptr));
    throwIfFailed(stream->Seek({}, STREAM_SEEK_SET, nullptr));
    com_ptr<IPicture> picture;
    throwIfFailed(OleLoadPicture(stream.get(), static_cast<LONG>(size), FALSE, IID_IPicture, picture.putVoid()));
    return picture;
}

void drawPicture(IPicture* picture, HDC target, int left, int top)
{
    OLE_HANDLE handle = 0;
    throwIfFailed(picture->get_Handle(&handle));
    const auto bitmap = reinterpret_cast<HBITMAP>(static_cast<UINT_PTR>(handle));
    const unique_memory_dc source(CreateCompatibleDC(target));
    const HGDIOBJ old = SelectObject(source.get(), bitmap);
    const SIZE size = sizeOf(bitmap);
    BitBlt(target, left, top, size.cx, size.cy, source.get(), 0, 0, SRCCOPY);
    SelectObject(source.get(), old);
}

unique_bitmap loadBitmap(int resource)
{
    unique_bitmap bitmap(static_cast<HBITMAP>(
        LoadImageW(module::instance(), MAKEINTRESOURCEW(resource), IMAGE_BITMAP, 0, 0, LR_DEFAULTCOLOR)));
    throwLastErrorUnless(static_cast<bool>(bitmap));
    return bitmap;
}

} // namespace velk
