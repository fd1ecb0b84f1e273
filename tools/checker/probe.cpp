#include "checker/probe.h"

namespace velk::check {

void Probe::found(Rule rule, const std::string& expected, const std::string& seen)
{
    found(rule, lastCall, expected, seen);
}

void Probe::found(Rule rule, const CallText& call, const std::string& expected, const std::string& seen)
{
    m_found[static_cast<size_t>(rule)] = true;
    m_pad.say({'F', {rowOf(rule).number, call.name, call.arguments, expected, seen}});
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
