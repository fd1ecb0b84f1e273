#include "checker/functions.h"

#include "backend/records.h"

namespace velk::check {
namespace {

// The kinds of arguments that the table names: here only their count matters.
struct Long;
struct LongOut;
struct FlagOut;
struct Text;
struct TextRef;
template <class R>
struct Record;

template <class... Kinds>
constexpr size_t count = sizeof...(Kinds);

constexpr bool isCalled(Fn function)
{
    return function < Fn::RZDoTestAction;
}

constexpr FunctionRow rows[] = {
#define BACKEND_FUNCTION(name, ...) {#name, count<__VA_ARGS__>, isCalled(Fn::name)},
#include "backend/functions.inc"
#undef BACKEND_FUNCTION
};
static_assert(sizeof rows / sizeof *rows == functionCount);

} // namespace

const FunctionRow& rowOf(Fn function) noexcept
{
    return rows[static_cast<size_t>(function)];
}

} // namespace velk::check
