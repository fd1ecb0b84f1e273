#pragma once

#include "checker/rules.h"

#include <array>
#include <cstdint>
#include <string>
#include <vector>

namespace velk::check {

// A rule that the library broke: in which call, what the contract expects there and what was seen.
struct Finding {
    Rule rule = Rule::F1;
    int level = 0; // that was being looked at
    std::string call, arguments;
    std::string expected, seen;
    int times = 1;
};

enum class Outcome { notRun, notChecked, holds, broken };

struct RuleReport {
    Outcome outcome = Outcome::notRun;
    std::string why; // it was not checked
};

struct LevelReport {
    int level = 0;
    Outcome outcome = Outcome::notRun;
    double seconds = 0;
};

struct SlowCall {
    std::string call, arguments;
    int64_t microseconds = 0;
};

// Of a function, the calls above 50 ms.
struct NoticedFunction {
    std::string call;
    int64_t calls = 0;
    int64_t longest = 0; // microseconds
};

// What was checked, for somebody who was not there.
struct Head {
    std::string library, version, sha256, system, project;
    int64_t size = 0;
    uint32_t seed = 0;
};

struct Report {
    Head head;
    std::vector<LevelReport> levels; // that were asked for
    std::array<RuleReport, ruleCount> rules;
    std::vector<Finding> findings;
    std::vector<SlowCall> slow; // the slowest first
    std::vector<NoticedFunction> noticed;
    bool hasFailed = false; // the checker itself, at a rule that is not checked then
    bool hasHung = false;   // some call

    // One that was there before counts once more.
    void add(Finding finding);
    void addSlow(SlowCall slow);
    void addNoticed(NoticedFunction noticed);
    bool isBroken(Rule rule) const noexcept;
    Outcome outcome() const noexcept;
    RuleReport& operator[](Rule rule) noexcept { return rules[static_cast<size_t>(rule)]; }
    const RuleReport& operator[](Rule rule) const noexcept { return rules[static_cast<size_t>(rule)]; }
};

const char* outcomeText(Outcome outcome) noexcept;

// For people, for programs, and for build servers. The texts are UTF-8.
std::string asText(const Report& report);
std::string asJson(const Report& report);
std::string asJunit(const Report& report);

// A text within quotes of JSON, and within an element or attribute of XML.
std::string jsonEscaped(std::string_view text);
std::string xmlEscaped(std::string_view text);

} // namespace velk::check
