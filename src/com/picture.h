#pragma once

#include "base/unique_any.h"
#include "com/com_ptr.h"

namespace velk {

// A picture (GIF, BMP, JPEG) out of this module's RCDATA resources. Throws when there is none of that number.
com_ptr<IPicture> loadPicture(int resource);

// Copies a picture's bitmap to a device context at a position in pixels, at its own size.
void drawPicture(IPicture* picture, HDC target, int left, int top);

// A bitmap resource of this module, in the colours it was drawn in. Throws when there is none of that number.
unique_bitmap loadBitmap(int resource);

unique_bitmap copyOfBitmap(HBITMAP bitmap);

// What of a bitmap is to be seen, as a bitmap of two colours: black where it is, white where the bitmap has the colour
// that stands for nothing.
unique_bitmap maskOf(HBITMAP bitmap, COLORREF nothing);

// A picture object for automation, which owns the bitmap.
com_ptr<IDispatch> pictureObject(unique_bitmap bitmap);

} // namespace velk
