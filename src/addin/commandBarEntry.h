#pragma once

#include "base/session.h"
#include "base/win32.h"
#include "com/com_ptr.h"
#include "com/event_sink.h"
#include "window/clipboard.h"

#include <cstdint>
#include <string_view>
#include <utility>

namespace velk {

inline constexpr int32_t controlTypeButton = 1;
inline constexpr int32_t controlTypePopup = 10;
inline constexpr int noFace = 0;
inline constexpr DISPID clickEvent = 1; // of a command bar's control

// Gives entries their faces (bitmap resources of the add-in): by the picture properties of a control that has them,
// else by way of the clipboard, the only one that the IDE's bars take. What the user had on the clipboard comes back at
// the end of this object's life; where it cannot be kept entries stay without a face instead.
class EntryFaces {
public:
    // Each face is given for a session, whose end stops it with Error 5.
    explicit EntryFaces(Session session = {}) : m_session(std::move(session)) {}
    // Throws what the control refuses, after a few attempts: another program may look at the clipboard at that moment.
    void paste(const com_ptr<IDispatch>& control, int face);

private:
    void pasteFromClipboard(const com_ptr<IDispatch>& control, HBITMAP picture);
    bool putPictures(const com_ptr<IDispatch>& control, HBITMAP picture);

    Session m_session;
    clipboard_keeper m_clipboard;
    bool m_mayUseClipboard = true;
};

// Gives a control its caption from the tool, its face (noFace: none), and its action text. Error 5 when the session
// ends in between.
void dressEntry(const Session& session, const com_ptr<IDispatch>& control, int32_t captionText, EntryFaces& faces,
                int face, std::wstring_view action);

} // namespace velk
