#pragma once

#include "facts.h"

#include <span>
#include <string>
#include <vector>

namespace velk::doctor {

// From the best to the worst. A complaint is a warning or worse.
enum class State { good, note, skipped, warning, wrong };
constexpr bool isComplaint(State state) noexcept
{
    return state >= State::warning;
}
// One word, as lines and JSON have it.
const wchar_t* stateWord(State state) noexcept;

// What --fix does about it.
enum class Remedy { none, registerAgain, removeRegistration, removeUsersRegistration };

struct Verdict {
    State state = State::good;
    std::wstring text;                 // what was found, a sentence or two
    std::wstring wayOut;               // empty unless it is a complaint
    std::vector<std::wstring> details; // more lines, for those who ask
    Remedy remedy = Remedy::none;
};

// One thing that must be true. It judges facts alone, so that every machine can be played to it.
struct CheckRow {
    const wchar_t* id;
    const wchar_t* title;
    const wchar_t* area; // of the facts it judges
    Verdict (*judge)(const Facts& facts);
};
std::span<const CheckRow> checkRows();

struct Finding {
    const CheckRow* row;
    Verdict verdict;
};
// All checks. Those of an area that could not be looked at say so, and a judgement that fails is a finding.
std::vector<Finding> judge(const Facts& facts);
State worstOf(const std::vector<Finding>& findings) noexcept;
// How the report ends.
std::wstring lastSentence(const std::vector<Finding>& findings);

} // namespace velk::doctor
