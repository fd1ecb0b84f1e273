#include "addin/commandBarEntry.h"

#include "backend/texts.h"
#include "platform/automation.h"
#include "platform/picture.h"
#include "ui/messageBox.h"

namespace velk {

EntryFaces::EntryFaces() noexcept : m_usersOwn(dialogOwner())
{
}

void EntryFaces::paste(const com_ptr<IDispatch>& control, int face) const
{
    if (!m_usersOwn.isKept())
        return;
    putBitmapOnClipboard(dialogOwner(), loadBitmap(face).get());
    automation::call(control, L"PasteFace");
}

void dressEntry(const com_ptr<IDispatch>& control, int32_t captionText, const EntryFaces& faces, int face,
                std::wstring_view action)
{
    const std::wstring caption = getRZString(captionText);
    automation::put(control, L"Caption", variant(std::wstring_view(caption)));
    if (face != noFace)
        faces.paste(control, face);
    automation::put(control, L"OnAction", variant(action));
}

} // namespace velk
