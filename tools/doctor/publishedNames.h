#pragma once

#include <string>
#include <vector>

namespace velk::doctor {

// The classes that the add-in publishes, the entry object first, and its type library.
struct PublishedName {
    std::wstring progId;
    std::wstring clsid; // with its braces
};
const std::vector<PublishedName>& publishedNames();
const std::wstring& typeLibraryId();

} // namespace velk::doctor
