#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace velk {

// The description of a prompt's box, taken apart at each "#"; a "#" at the very end belongs to the last field. Error 9
// for more than five fields.
std::vector<std::wstring> splitButtons(const std::wstring& strButtons);

// Style bits of the message box. An unknown keyword means the information icon, an unknown set the OK button.
int16_t iconValue(const std::wstring& keyword);
int16_t buttonValue(const std::wstring& buttonSet);

// What a prompt looks like.
struct PromptLook {
    uint32_t style = 0;
    std::wstring title; // empty without one
};
PromptLook promptLook(const std::wstring& strButtons);

} // namespace velk
