#include "addin/commandBarEntry.h"

#include "backend/texts.h"
#include "base/boundary.h"
#include "com/automation.h"
#include "com/picture.h"

namespace velk {

namespace {

constexpr COLORREF faceBackground = RGB(192, 192, 192); // of the bitmaps, and what pasting takes for nothing

} // namespace

// The mask comes after the picture, which resets it. False for a control that has no such properties or refuses them.
bool EntryFaces::putPictures(const com_ptr<IDispatch>& control, HBITMAP picture)
{
    if (!automation::hasMember(control.get(), L"Picture") || !automation::hasMember(control.get(), L"Mask"))
        return false;
    return swallow(L"EntryFaces.paste", L"the face goes by the clipboard instead", [&] {
        automation::put(control, L"Picture", variant(pictureObject(copyOfBitmap(picture))));
        m_session.throwIfOver();
        automation::put(control, L"Mask", variant(pictureObject(maskOf(picture, faceBackground))));
    });
}

void EntryFaces::paste(const com_ptr<IDispatch>& control, int face)
{
    const unique_bitmap picture = loadBitmap(face);
    const bool isThere = putPictures(control, picture.get());
    m_session.throwIfOver();
    if (!isThere)
        pasteFromClipboard(control, picture.get());
}

void EntryFaces::pasteFromClipboard(const com_ptr<IDispatch>& control, HBITMAP picture)
{
    constexpr int attempts = 5;
    constexpr DWORD pause = 20; // milliseconds
    for (int left = attempts; left > 0 && m_mayUseClipboard; --left) {
        const auto failure = attempt([&] {
            m_mayUseClipboard = m_clipboard.put(picture);
            if (m_mayUseClipboard)
                automation::call(control, L"PasteFace");
        });
        if (!failure)
            return;
        if (left == 1 || m_session.isOver() || failure->number() == errorNoSuchMember)
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
