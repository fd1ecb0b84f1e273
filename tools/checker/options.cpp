#include "checker/options.h"

#include "checker/texts.h"

#include <algorithm>
#include <cwchar>
#include <optional>

namespace velk::check {
namespace {

std::optional<unsigned long> numberOf(const std::wstring& text)
{
    if (text.empty() || text.size() > 9 || text.find_first_not_of(L"0123456789") != std::wstring::npos)
        return std::nullopt;
    return std::wcstoul(text.c_str(), nullptr, 10);
}

// "5" are the levels up to it, "4-6" those between.
bool setLevels(Request& request, const std::wstring& text)
{
    const size_t dash = text.find(L'-');
    const auto first = dash == std::wstring::npos ? 1 : numberOf(text.substr(0, dash));
    const auto last = numberOf(dash == std::wstring::npos ? text : text.substr(dash + 1));
    if (!first || !last || *first < 1 || *last < *first || *last > lastLevel || request.only)
        return false;
    request.firstLevel = static_cast<int>(*first);
    request.lastLevel = static_cast<int>(*last);
    return true;
}

bool setRule(Request& request, const std::wstring& text)
{
    const auto rule = ruleOf(toUtf8(text));
    const bool areLevelsAsked = request.lastLevel != 0;
    if (!rule || !rowOf(*rule).bindsLibrary || areLevelsAsked)
        return false;
    request.only = rule;
    request.firstLevel = request.lastLevel = rowOf(*rule).level;
    return true;
}

// What lies outside its limits would make a finding of every library, or no end of the run.
struct Limits {
    unsigned long least, most;
};
constexpr Limits anyNumber{0, 999'999'999};
constexpr Limits counts{1, 1'000'000};
constexpr Limits seconds{1, 3'600};
constexpr Limits milliseconds{10, 600'000};

template <class Number>
bool setNumber(Number& target, const std::wstring& text, const Limits& limits, unsigned long factor = 1)
{
    const auto number = numberOf(text);
    if (!number || *number < limits.least || *number > limits.most)
        return false;
    target = static_cast<Number>(*number * factor);
    return true;
}

// A call that acts may take longer by as much as it may without the option.
bool setTimes(Request& request, const std::wstring& text)
{
    const unsigned long times = request.longestAct / request.longestCall;
    const bool isSet = setNumber(request.longestCall, text, seconds, 1000);
    request.longestAct = request.longestCall * times;
    return isSet;
}

struct OptionRow {
    const wchar_t* name;
    bool (*set)(Options&, const std::wstring& value);
};

// clang-format off
constexpr OptionRow rows[] = {
    {L"--level",    [](Options& all, const std::wstring& value) { return setLevels(all.request, value); }},
    {L"--rule",     [](Options& all, const std::wstring& value) { return setRule(all.request, value); }},
    {L"--seed",     [](Options& all, const std::wstring& value) { return setNumber(all.request.seed, value, anyNumber); }},
    {L"--sessions", [](Options& all, const std::wstring& value) { return setNumber(all.request.sessions, value, counts); }},
    {L"--steps",    [](Options& all, const std::wstring& value) { return setNumber(all.request.steps, value, counts); }},
    {L"--objects",  [](Options& all, const std::wstring& value) { return setNumber(all.request.objects, value, counts); }},
    {L"--timeout",  [](Options& all, const std::wstring& value) { return setTimes(all.request, value); }},
    {L"--patience", [](Options& all, const std::wstring& value) { return setNumber(all.request.patience, value, milliseconds); }},
    {L"--junit",    [](Options& all, const std::wstring& value) { all.junit = value; return !value.empty(); }},
};
struct Switch {
    const wchar_t* name;
    bool Options::*flag;
};
constexpr Switch switches[] = {
    {L"--list",  &Options::isList},
    {L"--json",  &Options::isJson},
    {L"--quiet", &Options::isQuiet},
    {L"--help",  &Options::isHelp},
};
// clang-format on

void setPlain(Options& options, const std::wstring& argument)
{
    std::wstring& target = options.request.library.empty() ? options.request.library : options.request.project;
    if (!target.empty())
        options.trouble = "there is one library and one project";
    target = argument;
}

// How many arguments the option took; 0 when it is none.
size_t setOption(Options& options, std::span<const std::wstring> arguments)
{
    for (const Switch& one : switches)
        if (arguments[0] == one.name) {
            options.*one.flag = true;
            return 1;
        }
    for (const OptionRow& row : rows)
        if (arguments[0] == row.name) {
            if (arguments.size() < 2 || !row.set(options, arguments[1]))
                options.trouble = toUtf8(arguments[0]) + " needs another value";
            return 2;
        }
    return 0;
}

} // namespace

Options optionsOf(std::span<const std::wstring> arguments)
{
    Options options;
    options.request.lastLevel = 0; // as nothing was said
    while (!arguments.empty() && options.trouble.empty()) {
        size_t taken = setOption(options, arguments);
        if (taken == 0 && arguments[0].starts_with(L"--"))
            options.trouble = "there is no option " + toUtf8(arguments[0]);
        else if (taken == 0) {
            setPlain(options, arguments[0]);
            taken = 1;
        }
        arguments = arguments.subspan(std::min(taken, arguments.size()));
    }
    if (options.request.lastLevel == 0)
        options.request.lastLevel = options.request.project.empty() ? 3 : lastReadingLevel;
    if (options.trouble.empty() && options.request.library.empty() && !options.isList && !options.isHelp)
        options.trouble = "no library was named";
    return options;
}

const char* helpText() noexcept
{
    return "velkcheck LIBRARY [PROJECT.rzv] [options]\n"
           "Checks a library behind the Backend's interface, rule by rule (docs/backend-contract.md).\n"
           "Levels 1 to 7 only read: no action is carried out that builds, runs, drops, removes or saves. Level 8 and\n"
           "up work on a copy of the project's folder, which is removed afterwards; they change that copy, and carry\n"
           "out nothing in a database.\n"
           "\n"
           "  --level N       levels 1 to N (without a project 3, with one 7); --level M-N those between\n"
           "  --rule N7       this rule alone, at its level\n"
           "  --list          all rules, with their levels\n"
           "  --json          the report as JSON\n"
           "  --junit FILE    the report as JUnit's XML, too\n"
           "  --quiet         no progress\n"
           "  --seed N        of the random walk (1)\n"
           "  --steps N       of the random walk (2000)\n"
           "  --sessions N    of level 9 (100)\n"
           "  --objects N     after which a folder has no end (1000000)\n"
           "  --timeout N     seconds until a call counts as one that does not come back (10)\n"
           "  --patience N    milliseconds without a notification until none is expected any more (1000);\n"
           "                  what must come is waited for thirty times as long\n"
           "\n"
           "Exit codes: 0 what was checked holds, 1 a rule is broken, 2 wrong use, 3 the checker itself failed.\n";
}

std::string ruleList()
{
    std::string text;
    for (size_t row = 0; row < ruleCount; ++row) {
        const RuleRow& rule = rowOf(static_cast<Rule>(row));
        std::string line = rule.number;
        line.resize(5, ' ');
        line += rule.bindsLibrary ? "level " + std::to_string(rule.level) : "caller";
        line.resize(15, ' ');
        text += line + rule.title + "\n";
    }
    return text;
}

} // namespace velk::check
