#include "support/keptView.h"

#include "base/win32.h"

#include <string>

namespace velk::test {

void forgetKeptView() noexcept
{
    // The registry removes only keys without keys below them.
    RegDeleteKeyW(HKEY_CURRENT_USER, (std::wstring(keptViewKey) + L"\\Projects").c_str());
    RegDeleteKeyW(HKEY_CURRENT_USER, keptViewKey);
}

} // namespace velk::test
