#include "checker/report.h"

#include <algorithm>

namespace velk::check {
namespace {

constexpr size_t slowest = 10;
constexpr size_t mostOfARule = 20; // findings that are kept one by one

} // namespace

void Report::add(Finding finding)
{
    const auto isSame = [&](const Finding& one) {
        return one.rule == finding.rule && one.call == finding.call && one.expected == finding.expected &&
               one.seen == finding.seen;
    };
    const auto known = std::find_if(findings.begin(), findings.end(), isSame);
    if (known != findings.end()) {
        known->times += finding.times;
        return;
    }
    (*this)[finding.rule].outcome = Outcome::broken;
    const auto ofRule =
        std::count_if(findings.begin(), findings.end(), [&](const Finding& one) { return one.rule == finding.rule; });
    if (static_cast<size_t>(ofRule) < mostOfARule)
        findings.push_back(std::move(finding));
}

void Report::addSlow(SlowCall one)
{
    const auto place = std::find_if(slow.begin(), slow.end(),
                                    [&](const SlowCall& other) { return other.microseconds < one.microseconds; });
    slow.insert(place, std::move(one));
    if (slow.size() > slowest)
        slow.pop_back();
}

void Report::addNoticed(NoticedFunction one)
{
    const auto known = std::find_if(noticed.begin(), noticed.end(),
                                    [&](const NoticedFunction& other) { return other.call == one.call; });
    if (known == noticed.end())
        return noticed.push_back(std::move(one));
    known->calls += one.calls;
    known->longest = std::max(known->longest, one.longest);
}

bool Report::isBroken(Rule rule) const noexcept
{
    return (*this)[rule].outcome == Outcome::broken;
}

Outcome Report::outcome() const noexcept
{
    Outcome worst = Outcome::notRun;
    for (const LevelReport& level : levels)
        worst = std::max(worst, level.outcome);
    return worst;
}

const char* outcomeText(Outcome outcome) noexcept
{
    constexpr const char* texts[] = {"not run", "not checked", "holds", "broken"};
    return texts[static_cast<size_t>(outcome)];
}

} // namespace velk::check
