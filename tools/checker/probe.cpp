#include "checker/probe.h"

#include <algorithm>
#include <utility>

namespace velk::check {

void Probe::found(Rule rule, const std::string& expected, const std::string& seen)
{
    found(rule, lastCall, expected, seen);
}

void Probe::found(Rule rule, const CallText& call, const std::string& expected, const std::string& seen)
{
    std::vector<Found>& all = m_found[static_cast<size_t>(rule)];
    const auto known = std::find_if(all.begin(), all.end(), [&](const Found& one) {
        return one.call.name == call.name && one.expected == expected && one.seen == seen;
    });
    if (known != all.end())
        ++known->again;
    else if (all.size() < mostOfARule)
        tell(rule, all.emplace_back(Found{call, expected, seen}), 1);
}

void Probe::tellRepeated()
{
    for (size_t row = 0; row < ruleCount; ++row)
        for (Found& one : m_found[row])
            if (const int times = std::exchange(one.again, 0); times > 0)
                tell(static_cast<Rule>(row), one, times);
}

void Probe::tell(Rule rule, const Found& found, int times)
{
    m_pad.say({'F',
               {rowOf(rule).number, found.call.name, found.call.arguments, found.expected, found.seen,
                std::to_string(times)}});
}

bool Probe::step() noexcept
{
    const LONG begun = InterlockedIncrement(&m_pad->begun);
    return begun > m_skip;
}

void Probe::begin(int row, Rule rule, std::optional<Rule> blamed) noexcept
{
    m_current = rule;
    m_blamed = blamed;
    m_skip = row == m_pad->first ? m_pad->skip : 0;
    m_pad->begun = 0;
    m_pad->current = row;
}

} // namespace velk::check
