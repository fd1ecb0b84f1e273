#pragma once

#include "base/error.h"

#include <string>

namespace velk::devkit::vss {

// What SourceSafe's callers may be told, by SourceSafe's own numbers.
// clang-format off
enum class Code : int32_t {
    fileShare           = -10181,
    noIniFile           = -10403,
    checkedOutByYou     = -10406,
    noLocalFile         = -10421,
    badSpec             = -10515,
    badPassword         = -10551,
    noUser              = -10558,
    corrupt             = -10600,
    exists              = -10604,
    badName             = -10605,
    notCheckedOut       = -10608,
    notFound            = -10609,
    checkedOutByAnother = -10614,
    wantFile            = -10616,
    wantProject         = -10617,
};
// clang-format on

constexpr HRESULT resultOf(Code code)
{
    return MAKE_HRESULT(SEVERITY_ERROR, FACILITY_ITF, static_cast<uint16_t>(code));
}
static_assert(resultOf(Code::notFound) == static_cast<HRESULT>(0x8004D68F));
static_assert(resultOf(Code::badPassword) == static_cast<HRESULT>(0x8004D6C9));

// The source that every failure names.
inline constexpr wchar_t failureSource[] = L"SourceSafe";

// A failure for a caller. The description is shown to users: it names the item, never a password.
inline Error failure(Code code, std::wstring description)
{
    return Error(resultOf(code), std::move(description), failureSource, resultOf(code));
}

} // namespace velk::devkit::vss
