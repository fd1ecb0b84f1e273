#pragma once

#include <string>

namespace velk {

// Where the setting stands: an environment variable, else a value of the user's.
inline constexpr wchar_t traceVariable[] = L"VELKVIADD_TRACE";
inline constexpr wchar_t traceKey[] = L"Software\\Velk\\velkviadd";
inline constexpr wchar_t traceValue[] = L"Trace";

// What the user's setting asks for: the log's file, none when it is empty, and with ";2" behind it all calls instead of
// failures alone.
struct TraceTarget {
    std::wstring path;
    bool isFiner = false;
};
inline TraceTarget traceTarget(std::wstring setting)
{
    constexpr std::wstring_view finerMark = L";2";
    const bool isFiner = setting.ends_with(finerMark);
    if (isFiner)
        setting.erase(setting.size() - finerMark.size());
    return {std::move(setting), isFiner};
}

} // namespace velk
