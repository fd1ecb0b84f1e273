// Level 10: right calls in any order, calls that come inside of others, and texts cut in code pages of two bytes.
#include "checker/bench.h"
#include "checker/checks.h"
#include "checker/reentry.h"
#include "checker/texts.h"
#include "checker/walk.h"

namespace velk::check {
namespace {

constexpr int32_t textOfOne = 675;

// A character of two bytes in this code page; empty where there is none.
std::string wideCharacter()
{
    for (const wchar_t letter : {L'\x8868', L'\x4E2D', L'\xAC00'}) { // with a second byte below 0x80 where there is one
        const std::string bytes = toAnsi({&letter, 1});
        if (bytes.size() == 2 && IsDBCSLeadByte(static_cast<BYTE>(bytes[0])))
            return bytes;
    }
    return {};
}

bool endsWhole(const std::string& text)
{
    size_t at = 0;
    while (at < text.size())
        at += IsDBCSLeadByte(static_cast<BYTE>(text[at])) ? 2U : 1U;
    return at == text.size();
}

void checkCut(Bench& bench, const TextAnswer& answer)
{
    if (answer.answer > 0 && (!endsWhole(answer.text) || !isAnsi(answer.text)))
        bench.probe.found(Rule::C3, answer.call, "whole characters of code page " + std::to_string(GetACP()),
                          "half of one at the end, after " + std::to_string(answer.text.size()) + " bytes");
}

} // namespace

void checkRandomWalk(Bench& bench)
{
    Walk(bench).run(bench.asked().steps);
    bench.endSession();
}

void checkReentry(Bench& bench)
{
    if (!Reentry(bench).run())
        throw NotChecked{"the library worked off no messages inside a call"};
}

void checkCutCharacters(Bench& bench)
{
    const std::string character = wideCharacter();
    if (character.empty())
        throw NotChecked{"code page " + std::to_string(GetACP()) + " has no characters of two bytes"};
    bench.load();
    std::string parameter;
    for (int count = 0; count < 600; ++count)
        parameter += character;
    for (const char* const before : {"", "x"})
        checkCut(bench, bench.calls.text(textOfOne, before + parameter));
    for (const int32_t number : {200, 426, 605, 669})
        for (int32_t capacity = 2; capacity < 40; ++capacity)
            checkCut(bench, bench.calls.text(number, capacity));
}

} // namespace velk::check
