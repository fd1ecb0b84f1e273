// Tested in tests/unit/addin/commandBarEntryTest.cpp.
#include "com/picture.h"

#include "base/error.h"
#include "base/module.h"

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

unique_bitmap copyOfBitmap(HBITMAP bitmap)
{
    unique_bitmap copy(static_cast<HBITMAP>(CopyImage(bitmap, IMAGE_BITMAP, 0, 0, 0)));
    throwLastErrorUnless(static_cast<bool>(copy));
    return copy;
}

unique_bitmap maskOf(HBITMAP bitmap, COLORREF nothing)
{
    const SIZE size = sizeOf(bitmap);
    unique_bitmap mask(CreateBitmap(size.cx, size.cy, 1, 1, nullptr));
    throwLastErrorUnless(static_cast<bool>(mask));
    const unique_memory_dc source(CreateCompatibleDC(nullptr));
    const unique_memory_dc target(CreateCompatibleDC(nullptr));
    const HGDIOBJ oldSource = SelectObject(source.get(), bitmap);
    const HGDIOBJ oldTarget = SelectObject(target.get(), mask.get());
    SetBkColor(source.get(), nothing); // what has this colour becomes white in two colours
    BitBlt(target.get(), 0, 0, size.cx, size.cy, source.get(), 0, 0, SRCCOPY);
    SelectObject(target.get(), oldTarget);
    SelectObject(source.get(), oldSource);
    return mask;
}

com_ptr<IDispatch> pictureObject(unique_bitmap bitmap)
{
    PICTDESC description{};
    description.cbSizeofstruct = sizeof description;
    description.picType = PICTYPE_BITMAP;
    description.bmp.hbitmap = bitmap.get();
    com_ptr<IDispatch> picture;
    throwIfFailed(OleCreatePictureIndirect(&description, IID_IPictureDisp, TRUE, picture.putVoid()));
    bitmap.release();
    return picture;
}

} // namespace velk
