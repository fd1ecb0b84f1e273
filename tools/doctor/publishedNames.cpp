// Tested in tests/tools/doctor/machine/registrationTest.cpp.
#include "publishedNames.h"

#include "base/win32.h"

#include <array>
#include <product.h>
#include <typelib/velkviadd.h>

namespace velk::doctor {
namespace {

std::wstring guidText(REFGUID guid)
{
    std::array<wchar_t, 40> text{};
    StringFromGUID2(guid, text.data(), static_cast<int>(text.size()));
    return text.data();
}

} // namespace

const std::vector<PublishedName>& publishedNames()
{
    static const std::vector<PublishedName> names{
#define PUBLISHED_CLASS(name, ...) PublishedName{VELK_OWN_NAME(#name), guidText(CLSID_##name)},
#include "addin/classes.inc"
#undef PUBLISHED_CLASS
    };
    return names;
}

const std::wstring& typeLibraryId()
{
    static const std::wstring id = guidText(LIBID_velkviadd);
    return id;
}

} // namespace velk::doctor
