#pragma once

#include <string>
#include <utility>
#include <vector>

namespace velk::test {

inline constexpr wchar_t keptViewKey[] = L"Software\\Velk\\velkviadd\\View";

// Takes away what the server view has kept for this user, so that the next one is a new user's.
void forgetKeptView() noexcept;

// How a user left the server view: the values of the user's key and of the projects below it.
struct LeftView {
    std::vector<std::pair<std::wstring, std::wstring>> values;
    std::vector<std::pair<std::wstring, std::wstring>> projects;
};
LeftView leftView();
// The next view begins like that.
void leaveView(const LeftView& left);

} // namespace velk::test
