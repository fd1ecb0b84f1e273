#pragma once

#include "checker/pad.h"
#include "checker/rules.h"

#include <optional>
#include <string>
#include <vector>

namespace velk::check {

// Ends the check of a rule: there is nothing here that it could be looked at.
struct NotChecked {
    std::string why;
};

// The last call of the library, as a finding names it.
struct CallText {
    std::string name;
    std::string arguments;
};

// What the checks of the child have in common: which rule is being looked at, where findings go, and what was asked.
class Probe {
public:
    explicit Probe(Pad& pad) : m_pad(pad) {}
    Probe(const Probe&) = delete;
    Probe& operator=(const Probe&) = delete;

    Pad& pad() noexcept { return m_pad; }

    // A rule that is broken by the call made last, or by another.
    void found(Rule rule, const std::string& expected, const std::string& seen);
    void found(Rule rule, const CallText& call, const std::string& expected, const std::string& seen);
    bool hasFound(Rule rule) const noexcept { return !m_found[static_cast<size_t>(rule)].empty(); }
    // How often what was found came again since then.
    void tellRepeated();

    // A part of a check that may end the process: false for one that did so before. The next process goes on behind it.
    bool step() noexcept;

    void begin(int row, Rule rule, std::optional<Rule> blamed) noexcept;
    Rule current() const noexcept { return m_current; }
    // The rule that a fault counts for, or another harm that a call may do: that one, unless the check has its own.
    Rule blamed(Rule usual) const noexcept { return m_blamed.value_or(usual); }

    CallText lastCall;

private:
    Pad& m_pad;
    Rule m_current = Rule::F1;
    std::optional<Rule> m_blamed;
    struct Found {
        CallText call;
        std::string expected, seen;
        int again = 0;
    };
    static constexpr size_t mostOfARule = 20; // a report has no more
    void tell(Rule rule, const Found& found, int times);
    std::vector<Found> m_found[ruleCount];
    LONG m_skip = 0;
};

} // namespace velk::check
