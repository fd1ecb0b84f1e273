#pragma once

namespace velk {

// Horizontal measures that mean the same on screens of other resolutions: a twip is the 1,440th part of an inch.
int toTwips(int pixels) noexcept;
int toPixels(int twips) noexcept;

} // namespace velk
