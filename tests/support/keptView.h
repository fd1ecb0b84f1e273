#pragma once

namespace velk::test {

inline constexpr wchar_t keptViewKey[] = L"Software\\Velk\\velkviadd\\View";

// Takes away what the server view has kept for this user, so that the next one is a new user's.
void forgetKeptView() noexcept;

} // namespace velk::test
