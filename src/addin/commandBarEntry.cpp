#include "addin/commandBarEntry.h"

#include "backend/texts.h"
#include "platform/automation.h"
#include "platform/boundary.h"
#include "platform/picture.h"
#include "ui/messageBox.h"

namespace velk {

void EntryFaces::paste(const com_ptr<IDispatch>& control, int face)
{
    constexpr int attempts = 5;
    constexpr DWORD pause = 20; // milliseconds
    if (!m_usersOwn)
        m_usersOwn.emplace(dialogOwner());
    if (!m_usersOwn->isKept())
        return;
    const unique_bitmap picture = loadBitmap(face);
    for (int left = attempts; left > 0; --left) {
        const auto failure = attempt([&] {
            putBitmapOnClipboard(dialogOwner(), picture.get());
            automation::call(control, L"PasteFace");
        });
        if (!failure)
            return;
        if (left == 1 || failure->number() == errorNoSuchMember)
            throw *failure;
        Sleep(pause);
    }
}

void dressEntry(const Session& session, const com_ptr<IDispatch>& control, int32_t captionText, EntryFaces& faces,
                int face, std::wstring_view action)
{
    const std::wstring caption = getRZString(captionText);
    session.throwIfOver();
    automation::put(control, L"Caption", variant(std::wstring_view(caption)));
    session.throwIfOver();
    if (face != noFace)
        faces.paste(control, face);
    session.throwIfOver();
    automation::put(control, L"OnAction", variant(action));
}

} // namespace velk
