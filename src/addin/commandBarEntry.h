#pragma once

#include "platform/clipboard.h"
#include "platform/com_ptr.h"
#include "platform/event_sink.h"
#include "platform/win32.h"

#include <cstdint>
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
    EntryFaces() noexcept;
    // Throws what the control refuses.
    void paste(const com_ptr<IDispatch>& control, int face) const;

private:
    clipboard_keeper m_usersOwn;
};

// Gives a control its caption from the tool, its face (noFace: none), and its action
// text. The face is put on after the caption, so that a control whose face fails can still be used.
void dressEntry(const com_ptr<IDispatch>& control, int32_t captionText, const EntryFaces& faces, int face,
                std::wstring_view action);

} // namespace velk
