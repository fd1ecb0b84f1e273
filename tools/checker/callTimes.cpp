#include "checker/callTimes.h"

#include "base/win32.h"

#include <algorithm>
#include <string_view>

namespace velk::check {

int64_t CallTimes::now() noexcept
{
    LARGE_INTEGER frequency{};
    LARGE_INTEGER count{};
    QueryPerformanceFrequency(&frequency);
    QueryPerformanceCounter(&count);
    constexpr double million = 1e6;
    return static_cast<int64_t>(static_cast<double>(count.QuadPart) / static_cast<double>(frequency.QuadPart) *
                                million);
}

void CallTimes::reserve()
{
    for (std::vector<int64_t>& all : m_all)
        all.reserve(mostKept);
}

void CallTimes::add(Fn function, const std::string& arguments, int64_t microseconds)
{
    const Slow one{function, arguments, microseconds};
    std::vector<int64_t>& all = m_all[static_cast<size_t>(function)];
    if (all.size() < mostKept)
        all.push_back(microseconds);
    if (Noticed& noticed = m_noticed[static_cast<size_t>(function)]; microseconds > longest) {
        ++noticed.calls;
        noticed.longest = std::max(noticed.longest, microseconds);
    }
    const auto place = std::find_if(m_slow.begin(), m_slow.end(),
                                    [&](const Slow& other) { return other.microseconds < microseconds; });
    if (place == m_slow.end() && m_slow.size() == slowest)
        return;
    m_slow.insert(place, one);
    if (m_slow.size() > slowest)
        m_slow.pop_back();
}

int64_t CallTimes::middle(Fn function) const
{
    std::vector<int64_t> all = m_all[static_cast<size_t>(function)];
    if (all.empty())
        return 0;
    const auto place = all.begin() + static_cast<ptrdiff_t>(all.size() / 2);
    std::nth_element(all.begin(), place, all.end());
    return *place;
}

bool mustBeQuick(Fn function) noexcept
{
    const std::string_view name = rowOf(function).name;
    constexpr std::string_view acting[] = {"RZInitialize",      "RZTerminate",         "RZButtonDoAction",
                                           "RZProjectDoAccess", "RZSetCurrentFolder",  "RZObjectDoAction",
                                           "RZObjectDoGetADO",  "RZConnectionDoGetDE", "RZCommandDoGetDE",
                                           "RZLaunchApp",       "RZLaunchVelkTool"};
    return std::find(std::begin(acting), std::end(acting), name) == std::end(acting);
}

} // namespace velk::check
