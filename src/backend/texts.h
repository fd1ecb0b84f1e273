#pragma once

#include <cstdint>
#include <string>

namespace velk {

// The user-visible text of a message number, fetched at every call. Empty when the Backend has none or cannot be
// asked (the failure is reported); callers that need another text then test for that.
std::wstring getRZString(int32_t number) noexcept;

// The same with parameters put into the text. The parameters come back as the Backend left them.
std::wstring getRZStringP1(int32_t number, std::wstring& parameter) noexcept;
std::wstring getRZStringP2(int32_t number, std::wstring& parameter1, std::wstring& parameter2) noexcept;

} // namespace velk
