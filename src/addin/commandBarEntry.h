#pragma once

#include "platform/com_ptr.h"
#include "platform/event_sink.h"
#include "platform/win32.h"

#include <cstdint>
#include <string_view>

namespace velk {

inline constexpr int32_t controlTypeButton = 1;
inline constexpr int32_t controlTypePopup = 10;
inline constexpr int noFace = 0;

// Gives a control its caption from the tool, its face (a bitmap resource of the add-in, by way of the clipboard), and
// its action text. The face is put on after the caption, so that a control whose face fails can still be used.
void dressEntry(const com_ptr<IDispatch>& control, int32_t captionText, int face, std::wstring_view action);
void pasteFace(const com_ptr<IDispatch>& control, int face);

} // namespace velk
