// Level 2: a session begins and ends. Level 3: texts.
#include "checker/bench.h"
#include "checker/checks.h"
#include "checker/textNumbers.h"
#include "checker/texts.h"

#include <cstdlib>
#include <limits>

namespace velk::check {
namespace {

constexpr int32_t anyText = 200;
const std::string firstMark = "Qx1z";
const std::string secondMark = "Jw2v";

std::string shownAnswer(const TextAnswer& answer)
{
    return std::to_string(answer.answer) + " and " + shown(answer.text);
}

TextAnswer textOf(Bench& bench, const TextNumber& row)
{
    if (row.parameters == 0)
        return bench.calls.text(row.number);
    return row.parameters == 1 ? bench.calls.text(row.number, firstMark)
                               : bench.calls.text(row.number, firstMark, secondMark);
}

// Calls a function with every text that the add-in asks for, in a session.
template <class Look>
void eachText(Bench& bench, Look look)
{
    bench.load();
    bench.calls.initialize(bench.anyProjectFile());
    for (const TextNumber& row : textNumbers())
        look(row, textOf(bench, row));
    bench.calls.terminate();
}

// The wide characters of a text, which the add-in counts in, and its bytes.
int32_t characters(const std::string& text)
{
    return static_cast<int32_t>(fromAnsi(text).size());
}
int32_t bytes(const std::string& text)
{
    return static_cast<int32_t>(text.size());
}

// Whether a session does not begin though the first one of all did, which may be this one.
bool isRefused(Bench& bench, int32_t answer)
{
    if (!bench.firstAnswer)
        bench.firstAnswer = answer;
    return *bench.firstAnswer != 0 && answer == 0;
}

} // namespace

void checkBeginning(Bench& bench)
{
    bench.load();
    bench.firstAnswer = bench.calls.initialize(bench.anyProjectFile());
    if (*bench.firstAnswer == 0)
        bench.probe.found(Rule::S1, "an answer that is not 0", "0");
    bench.calls.next();
    bench.calls.terminate();
}

void checkSecondSession(Bench& bench)
{
    bench.load();
    for (int session = 0; session < 3; ++session) {
        const int32_t answer = bench.calls.initialize(bench.anyProjectFile());
        if (isRefused(bench, answer))
            bench.probe.found(Rule::S2, "an answer that is not 0, after a session that ended", "0");
        bench.calls.next();
        bench.calls.terminate();
    }
}

void checkTextsWithoutSession(Bench& bench)
{
    bench.load();
    const TextAnswer before = bench.calls.text(anyText);
    bench.calls.initialize(bench.anyProjectFile());
    const TextAnswer inside = bench.calls.text(anyText);
    bench.calls.terminate();
    const TextAnswer after = bench.calls.text(anyText);
    for (const TextAnswer* const one : {&before, &after})
        if (inside.answer > 0 && one->text != inside.text)
            bench.probe.found(Rule::S3, one->call,
                              shown(inside.text) + " as in a session, " +
                                  (one == &before ? "before the first one" : "after it"),
                              shownAnswer(*one));
}

void checkLoadingAgain(Bench& bench)
{
    bench.load();
    for (int load = 0; load < 3; ++load) {
        std::string reason;
        if (!bench.library.isLoaded() && !bench.library.load(reason))
            return bench.probe.found(Rule::S4, "it loads again", reason);
        const int32_t answer = bench.calls.initialize(bench.anyProjectFile());
        if (isRefused(bench, answer) && load > 0)
            bench.probe.found(Rule::S4, "an answer that is not 0, when it was loaded again", "0");
        bench.calls.next();
        bench.calls.terminate();
        if (!bench.library.unload())
            bench.probe.found(Rule::S4, "it unloads after a session", "it does not");
        constexpr DWORD untilThreadsRan = 200; // milliseconds
        Sleep(untilThreadsRan);
    }
}

void checkTextIsThere(Bench& bench)
{
    constexpr int32_t mayBeEmpty = 101;
    eachText(bench, [&](const TextNumber& row, const TextAnswer& answer) {
        if (row.number != mayBeEmpty && (answer.answer <= 0 || answer.text.empty()))
            bench.probe.found(Rule::T1, answer.call, "a text", shownAnswer(answer));
    });
}

void checkTextLength(Bench& bench)
{
    eachText(bench, [&](const TextNumber&, const TextAnswer& answer) {
        if (!answer.hasNul)
            bench.probe.found(Rule::T2, answer.call, "at most 1023 bytes and a NUL behind them",
                              "no NUL in 1024 bytes");
    });
}

void checkTextAnswer(Bench& bench)
{
    eachText(bench, [&](const TextNumber&, const TextAnswer& answer) {
        const int32_t seen = answer.answer < 0 ? 0 : answer.answer;
        if (seen != bytes(answer.text) && seen != characters(answer.text))
            bench.probe.found(Rule::T3, answer.call, std::to_string(bytes(answer.text)), shownAnswer(answer));
    });
}

void checkTextCodePage(Bench& bench)
{
    eachText(bench, [&](const TextNumber&, const TextAnswer& answer) {
        if (!isAnsi(answer.text) || looksLikeUtf8(answer.text))
            bench.probe.found(Rule::T4, answer.call, "characters of code page " + std::to_string(GetACP()),
                              shown(answer.text));
    });
}

void checkParameters(Bench& bench)
{
    eachText(bench, [&](const TextNumber& row, const TextAnswer& answer) {
        const bool hasFirst = row.parameters < 1 || answer.text.find(firstMark) != std::string::npos;
        const bool hasSecond = row.parameters < 2 || answer.text.find(secondMark) != std::string::npos;
        if (answer.answer > 0 && (!hasFirst || !hasSecond))
            bench.probe.found(Rule::T5, answer.call, "a text that holds what was put into it", shown(answer.text));
    });
}

void checkUnknownNumbers(Bench& bench)
{
    bench.load();
    bench.calls.initialize(bench.anyProjectFile());
    for (const int32_t number : {-1, 900, 950, 999, 10'001, std::numeric_limits<int32_t>::max()}) { // nobody's
        const TextAnswer answer = bench.calls.text(number);
        if (answer.answer > 0)
            bench.probe.found(Rule::T6, answer.call, "0 or less", shownAnswer(answer));
    }
    bench.calls.terminate();
}

void checkFontSize(Bench& bench)
{
    constexpr int32_t fontSize = 101;
    bench.load();
    const TextAnswer answer = bench.calls.text(fontSize);
    const int size = std::atoi(answer.text.c_str());
    constexpr int smallest = 4;
    constexpr int largest = 72;
    if (answer.answer > 0 && !answer.text.empty() && (size < smallest || size > largest))
        bench.probe.found(Rule::T7, answer.call, "nothing, or a number from 4 to 72", shown(answer.text));
}

void checkParameterVariables(Bench& bench)
{
    eachText(bench, [&](const TextNumber& row, const TextAnswer& answer) {
        if (row.parameters > 0 && !answer.areCounted)
            bench.probe.found(Rule::T8, answer.call, "variables that hold counted strings afterwards",
                              "one holds something else");
    });
}

} // namespace velk::check
