#define RZ_NO_PROTOTYPES
#include "sdk/velkbackend.h"

#include "backend/calls.h"
#include "sources.h"

#include <gmock/gmock.h>

namespace velk::test {
namespace {

using namespace velk::arguments;

// How the header declares what the product calls an argument of some kind.
template <class Kind>
struct Declared;
template <>
struct Declared<Long> {
    using Type = long;
};
template <>
struct Declared<LongOut> {
    using Type = long*;
};
template <>
struct Declared<FlagOut> {
    using Type = short*;
};
template <>
struct Declared<Text> {
    using Type = char*;
};
template <>
struct Declared<TextRef> {
    using Type = char**;
};
#define RECORD(name, bytes)                                                                                            \
    template <>                                                                                                        \
    struct Declared<Record<velk::name>> {                                                                              \
        using Type = ::name*;                                                                                          \
    };
RZ_RECORDS(RECORD)
#undef RECORD

template <class... Kinds>
using Expected = long RZ_CALL(typename Declared<Kinds>::Type...);

#define BACKEND_FUNCTION(name, ...) static_assert(std::is_same_v<::name##Function, Expected<__VA_ARGS__>>);
#include "backend/functions.inc"
#undef BACKEND_FUNCTION

struct Function {
    std::string name;
    size_t bytes;
    bool operator==(const Function&) const = default;
};

const std::vector<Function> called{
#define FUNCTION(name, bytes, parameters, arguments) {#name, bytes},
    RZ_CALLED_FUNCTIONS(FUNCTION)};
const std::vector<Function> offered{RZ_OFFERED_FUNCTIONS(FUNCTION)
#undef FUNCTION
};

TEST(Functions, ofTheHeader_areTheProductsInTheirOrder)
{
    const std::vector<Function> product{
#define BACKEND_FUNCTION(name, ...) {#name, 4 * std::tuple_size_v<std::tuple<__VA_ARGS__>>},
#include "backend/functions.inc"
#undef BACKEND_FUNCTION
    };
    std::vector<Function> header = called;
    header.insert(header.end(), offered.begin(), offered.end());
    EXPECT_EQ(header, product);
}

TEST(Functions, ofTheFirstList_areThoseThatTheProductCalls)
{
    const std::string table = sourceText("backend/functions.inc");
    const size_t border = table.find("without a caller in the add-in");
    ASSERT_NE(border, std::string::npos);
    for (const Function& function : called)
        EXPECT_LT(table.find("(" + function.name + (function.bytes ? "," : ")")), border) << function.name;
    for (const Function& function : offered)
        EXPECT_GT(table.find("(" + function.name + (function.bytes ? "," : ")")), border) << function.name;
}

TEST(Functions, ofTheLinkersFile_areThoseOfTheHeader)
{
    std::istringstream lines(sourceText("velkbackend.def"));
    std::vector<std::string> plain;
    std::vector<std::string> commented;
    for (std::string line; std::getline(lines, line);)
        if (line.starts_with("    RZ"))
            plain.push_back(line.substr(4));
        else if (line.starts_with(";   RZ"))
            commented.push_back(line.substr(4));
    const auto names = [](const std::vector<Function>& functions) {
        std::vector<std::string> result;
        for (const Function& function : functions)
            result.push_back(function.name);
        return result;
    };
    EXPECT_EQ(plain, names(called));
    EXPECT_EQ(commented, names(offered));
}

} // namespace
} // namespace velk::test
