#pragma once

#include "platform/clipboard.h"
#include "platform/com_ptr.h"
#include "platform/event_sink.h"
#include "platform/session.h"
#include "platform/win32.h"

#include <cstdint>
#include <optional>
#include <string_view>

namespace velk {

inline constexpr int32_t controlTypeButton = 1;
inline constexpr int32_t controlTypePopup = 10;
inline constexpr int noFace = 0;

// Pastes faces (bitmap resources of the add-in) by way of the clipboard, the only way that the IDE's bars take. What
// the user had on the clipboard comes back at the end of this object's life; where it cannot be kept, because another
// program holds the clipboard, entries stay without a face instead.
class EntryFaces {
public:
    // Throws what the control refuses, after a few attempts: another program may look at the clipboard at that moment.
    void paste(const com_ptr<IDispatch>& control, int face);

private:
    std::optional<clipboard_keeper> m_usersOwn; // from the first face on
};

// Gives a control its caption from the tool, its face (noFace: none), and its action text. Error 5 when the session
// ends in between.
void dressEntry(const Session& session, const com_ptr<IDispatch>& control, int32_t captionText, EntryFaces& faces,
                int face, std::wstring_view action);

} // namespace velk
