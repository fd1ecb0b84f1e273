#include "checker/report.h"

#include <algorithm>
#include <cstdio>

namespace velk::check {
namespace {

constexpr int64_t named = 50'000; // microseconds that somebody notices

std::string padded(std::string text, size_t width)
{
    text.resize(std::max(text.size(), width), ' ');
    return text;
}

std::string milliseconds(int64_t microseconds)
{
    char text[32]{};
    std::snprintf(text, sizeof text, "%.1f ms", static_cast<double>(microseconds) / 1000.0);
    return text;
}

std::string headText(const Head& head)
{
    std::string text = "library  " + head.library + "\nversion  " + head.version + ", " + std::to_string(head.size) +
                       " bytes\nSHA-256  " + head.sha256 + "\nsystem   " + head.system + "\n";
    if (!head.project.empty())
        text += "project  " + head.project + "\n";
    return text + "\n";
}

std::string findingText(const Finding& finding)
{
    std::string text = "       in " + finding.call;
    if (!finding.arguments.empty())
        text += "(" + finding.arguments + ")";
    if (finding.times > 1)
        text += ", " + std::to_string(finding.times) + " times";
    return text + "\n         expected " + finding.expected + "\n         seen     " + finding.seen + "\n";
}

std::string ruleText(const Report& report, Rule rule)
{
    const RuleReport& one = report[rule];
    const RuleRow& row = rowOf(rule);
    std::string text = "  " + padded(row.number, 5) + padded(outcomeText(one.outcome), 13) + row.title + "\n";
    if (one.outcome == Outcome::notChecked && !one.why.empty())
        text += "       " + one.why + "\n";
    for (const Finding& finding : report.findings)
        if (finding.rule == rule)
            text += findingText(finding);
    if (one.outcome == Outcome::broken)
        text += std::string("       see docs/backend-contract.md#") + row.anchor + "\n";
    return text;
}

std::string levelText(const Report& report, const LevelReport& level)
{
    std::string text = "level " + std::to_string(level.level) + ": " + levelTitle(level.level) + "\n";
    for (size_t row = 0; row < ruleCount; ++row) {
        const Rule rule = static_cast<Rule>(row);
        if (rowOf(rule).level == level.level && report[rule].outcome != Outcome::notRun)
            text += ruleText(report, rule);
    }
    return text;
}

std::string slowText(const Report& report)
{
    if (report.slow.empty())
        return {};
    std::string text = "the slowest calls\n";
    for (const SlowCall& slow : report.slow)
        text += "  " + padded(milliseconds(slow.microseconds), 11) + slow.call + "(" + slow.arguments + ")" +
                (slow.microseconds > named ? "  holds up the IDE" : "") + "\n";
    for (const NoticedFunction& one : report.noticed)
        text += "  " + one.call + " took more than 50 ms " + std::to_string(one.calls) + " times, the longest was " +
                milliseconds(one.longest) + "\n";
    return text + "\n";
}

std::string verdictText(const Report& report)
{
    std::string text = "verdict\n";
    for (const LevelReport& level : report.levels) {
        char seconds[32]{};
        std::snprintf(seconds, sizeof seconds, "%.1f s", level.seconds);
        text += "  level " + padded(std::to_string(level.level), 3) + padded(outcomeText(level.outcome), 13) +
                padded(seconds, 9) + levelTitle(level.level) + "\n";
    }
    if (report.hasFailed)
        text += "The checker itself failed: what it says of the rules that are not checked for that is not the "
                "library's.\n";
    const Outcome outcome = report.outcome();
    return text + (outcome == Outcome::broken  ? "The library breaks rules of the contract.\n"
                   : outcome == Outcome::holds ? "The library holds what was checked.\n"
                                               : "Nothing was checked.\n");
}

} // namespace

std::string asText(const Report& report)
{
    std::string text = headText(report.head);
    for (const LevelReport& level : report.levels)
        text += levelText(report, level) + "\n";
    // A rule of a lower level that was found broken at a level of the asked ones.
    for (size_t row = 0; row < ruleCount; ++row) {
        const Rule rule = static_cast<Rule>(row);
        const int level = rowOf(rule).level;
        const bool isAsked =
            !report.levels.empty() && level >= report.levels.front().level && level <= report.levels.back().level;
        if (!isAsked && report.isBroken(rule))
            text += ruleText(report, rule) + "\n";
    }
    return text + slowText(report) + verdictText(report);
}

} // namespace velk::check
