#pragma once

#include "devkit/automation/memberObject.h"
#include "devkit/sourcesafe/failures.h"
#include "devkit/sourcesafe/store.h"

#include <memory>

namespace velk::devkit::vss {

// What an open database object and the items that it gave out have in common.
struct OpenDatabase {
    Store store;
    std::wstring user;
    std::wstring currentProject = L"$/";
};

class VssObject : public MemberObject {
    const wchar_t* errorSource() const override { return failureSource; }
};

inline variant textVariant(const std::wstring& text)
{
    return variant(std::wstring_view(text));
}

} // namespace velk::devkit::vss
