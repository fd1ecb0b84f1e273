#define RZ_NO_PROTOTYPES
#include "sdk/velkbackend.h"

#include "sources.h"

#include <gmock/gmock.h>
#include <map>

namespace velk::test {
namespace {

struct Rule {
    bool bindsLibrary;
    int level;
    std::string title, anchor;
    bool operator==(const Rule&) const = default;
    friend std::ostream& operator<<(std::ostream& out, const Rule& rule)
    {
        return out << (rule.bindsLibrary ? "library, level " : "caller, level ") << rule.level << ", " << rule.title
                   << ", #" << rule.anchor;
    }
};

constexpr bool library = true;
constexpr bool caller = false;
const std::map<std::string, Rule> rules{
#define RZ_RULE(number, party, level, title, anchor) {#number, {party, level, title, anchor}},
#include "sdk/rules.inc"
#undef RZ_RULE
};

struct Fault {
    std::string name, rule, functions;
};

const std::vector<Fault> faults{
#define FAULT(name, rule, functions, text) {#name, #rule, functions},
#include "sdk/faults.inc"
#undef FAULT
};

std::string between(const std::string& text, const std::string& before, const std::string& behind)
{
    const size_t start = text.find(before);
    const size_t end = start == std::string::npos ? start : text.find(behind, start + before.size());
    return end == std::string::npos ? "" : text.substr(start + before.size(), end - start - before.size());
}

TEST(Rules, ofTheTable_standInTheContractWordForWord)
{
    std::map<std::string, Rule> contract;
    std::istringstream lines(sourceText("backend-contract.md"));
    std::string number;
    for (std::string line; std::getline(lines, line);)
        if (line.starts_with("### ")) {
            const std::string heading = between(line, "</a>", " ") + " ";
            number = heading.substr(0, heading.size() - 1);
            contract[number] = {caller, 0, line.substr(line.find(heading) + heading.size()),
                                between(line, "<a id=\"", "\"")};
        } else if (line.starts_with("*The library, from level ")) {
            contract[number].bindsLibrary = library;
            contract[number].level = std::stoi(between(line, "level ", " "));
        }
    EXPECT_EQ(contract, rules);
}

TEST(Rules, thatBindTheLibrary_haveALevelAndThoseThatBindTheCallerNone)
{
    for (const auto& [number, rule] : rules)
        EXPECT_TRUE(rule.bindsLibrary ? rule.level >= 1 && rule.level <= 10 : rule.level == 0) << number;
}

TEST(Rules, thatBindTheLibrary_areEachBrokenByAFaultyOne)
{
    std::set<std::string> bound;
    std::set<std::string> broken;
    for (const auto& [number, rule] : rules)
        if (rule.bindsLibrary)
            bound.insert(number);
    for (const Fault& fault : faults)
        broken.insert(fault.rule);
    EXPECT_EQ(broken, bound);
}

// A figure of the contract that is a constant of the product: both say the same.
struct Figure {
    const char* said;
    const char* file;
    const char* constant;
};

// clang-format off
constexpr Figure figures[] = {
    {"A timer of 100 ms calls",                 "notify/notificationThreadFrm.cpp", "timerInterval = 100;"},
    {"A tick that has taken 100 ms",            "notify/notificationThreadFrm.cpp", "longestTick = 100;"},
    {"up to 30 boxes deep",                     "notify/notificationThreadFrm.cpp", "deepest = 30;"},
    {"after 1,000 in a row or a second",        "notify/notificationThreadFrm.cpp", "first{1000, 1000};"},
    {"the next time after 50 or 50 ms",         "notify/notificationThreadFrm.cpp", "further{50, 50};"},
    {"After 1,000,000 objects",                 "serverview/folderKinds.cpp",       "mostObjects = 1'000'000;"},
    {"or 1,000 in a row that had come before", "serverview/folderKinds.cpp",       "mostAgain = 1'000;"},
    {"After the third fault in a session",      "backend/library.cpp",              "mostFaults = 3;"},
    {"A counted string of 1024 NULs",           "backend/texts.cpp",                "capacity = 1024;"},
    {"One to five;",                            "notify/promptLook.cpp",            "mostFields = 5;"},
};
// clang-format on

class Figures : public testing::TestWithParam<Figure> {};

TEST_P(Figures, ofTheContract_isAConstantOfTheProduct)
{
    std::string contract = sourceText("backend-contract.md");
    std::replace(contract.begin(), contract.end(), '\n', ' ');
    EXPECT_THAT(contract, testing::HasSubstr(GetParam().said));
    EXPECT_THAT(sourceText(GetParam().file), testing::HasSubstr(GetParam().constant));
}

INSTANTIATE_TEST_SUITE_P(All, Figures, testing::ValuesIn(figures));

TEST(Faults, areInFunctionsThatAreCalled)
{
    std::set<std::string> called;
#define FUNCTION(name, bytes, parameters, arguments) called.insert(#name);
    RZ_CALLED_FUNCTIONS(FUNCTION)
#undef FUNCTION
    for (const Fault& fault : faults) {
        std::istringstream names(fault.functions);
        for (std::string name; names >> name;)
            EXPECT_TRUE(name == "-" || called.contains(name)) << fault.name;
    }
}

} // namespace
} // namespace velk::test
