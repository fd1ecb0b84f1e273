#include "addin/commandBarEntry.h"

#include "backend/texts.h"
#include "platform/automation.h"
#include "platform/clipboard.h"
#include "platform/picture.h"
#include "ui/messageBox.h"

namespace velk {

void pasteFace(const com_ptr<IDispatch>& control, int face)
{
    const clipboard_keeper usersOwn(dialogOwner());
    putBitmapOnClipboard(dialogOwner(), loadBitmap(face).get());
    automation::call(control, L"PasteFace");
}

void dressEntry(const com_ptr<IDispatch>& control, int32_t captionText, int face, std::wstring_view action)
{
    const std::wstring caption = getRZString(captionText);
    automation::put(control, L"Caption", variant(std::wstring_view(caption)));
    if (face != noFace)
        pasteFace(control, face);
    automation::put(control, L"OnAction", variant(action));
}

} // namespace velk
