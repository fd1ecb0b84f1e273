#include "checker/rules.h"

namespace velk::check {
namespace {

constexpr std::string_view library = "library";

constexpr RuleRow rows[] = {
#define RZ_RULE(number, side, level, title, anchor) {#number, #side == library, level, title, anchor},
#include "sdk/rules.inc"
#undef RZ_RULE
};

constexpr const char* levels[] = {
    "",
    "file and exports",
    "session begins and ends",
    "texts",
    "records",
    "notifications of a session on a project",
    "enumerations and handles",
    "long texts",
    "misuse",
    "a hundred sessions",
    "a random walk, re-entry, code pages",
};
static_assert(sizeof levels / sizeof *levels == lastLevel + 1);

} // namespace

const RuleRow& rowOf(Rule rule) noexcept
{
    return rows[static_cast<size_t>(rule)];
}

std::optional<Rule> ruleOf(std::string_view number) noexcept
{
    for (size_t row = 0; row < ruleCount; ++row)
        if (number == rows[row].number)
            return static_cast<Rule>(row);
    return std::nullopt;
}

const char* levelTitle(int level) noexcept
{
    return levels[level];
}

} // namespace velk::check
