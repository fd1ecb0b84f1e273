#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>

namespace velk::check {

// The rules of the contract by number.
enum class Rule : int16_t {
#define RZ_RULE(number, side, level, title, anchor) number,
#include "sdk/rules.inc"
#undef RZ_RULE
    count
};

inline constexpr size_t ruleCount = static_cast<size_t>(Rule::count);

struct RuleRow {
    const char* number;
    bool bindsLibrary; // else the caller, whom nobody checks here
    int level;         // at which it is looked at first
    const char* title;
    const char* anchor; // in the contract
};

const RuleRow& rowOf(Rule rule) noexcept;
std::optional<Rule> ruleOf(std::string_view number) noexcept;

inline constexpr int lastLevel = 10;
inline constexpr int lastReadingLevel = 7; // those behind it work on a copy of the project
const char* levelTitle(int level) noexcept;

} // namespace velk::check
