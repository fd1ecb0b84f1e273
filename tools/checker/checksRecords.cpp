// Level 4: records and their strings. Level 7: long texts.
#include "checker/bench.h"
#include "checker/checks.h"
#include "checker/texts.h"

#include <algorithm>
#include <iterator>

namespace velk::check {
namespace {

constexpr size_t mostOfAFolder = 50; // objects that are fetched one by one

// Fetches everything that the project has; each call's record is looked at as it comes back.
template <class Look>
void eachObject(Bench& bench, Look look)
{
    ScriptedSession& session = bench.opened();
    look(*fetchOfKind(kindProject), session.project());
    for (const HeardConnection& connection : std::vector(session.connections())) {
        look(*fetchOfKind(kindConnection), connection.handle);
        for (size_t index = 0; index < folderKindCount; ++index) {
            const FolderKind& kind = folderKinds()[index];
            size_t count = 0;
            for (const RecordCopy& object : session.enumerate(connection.folders[index], kind.folder))
                if (++count <= mostOfAFolder)
                    look(*fetchOfKind(kind.object()), object.number("lHdl"));
        }
    }
}

// What asked for more room, in the session of level 7, which asks for all texts that there are.
std::vector<Heard> heardTexts(Bench& bench)
{
    ScriptedSession& session = bench.opened();
    const auto isText = [](const Heard& one) { return one.first.record && one.first.record->has("lTextSz"); };
    if (std::none_of(session.heard().begin(), session.heard().end(),
                     [&](const Heard& one) { return isText(one) && one.notify.type != typeText; }))
        bench.askForTexts(session);
    std::vector<Heard> texts;
    std::copy_if(session.heard().begin(), session.heard().end(), std::back_inserter(texts), isText);
    return texts;
}

std::vector<Heard> longTexts(Bench& bench)
{
    std::vector<Heard> texts = heardTexts(bench);
    std::erase_if(texts, [](const Heard& one) { return !one.asksForMore; });
    if (texts.empty())
        throw NotChecked{"no text of this project is longer than the room that it is given"};
    return texts;
}

} // namespace

void checkAllRecords(Bench& bench)
{
    eachObject(bench, [&](const Fetch& fetch, int32_t handle) {
        WireRecord record = fetch.record();
        bench.calls.fill(fetch.function, handle, record);
    });
    bench.askForTexts(bench.opened());
}

void checkSameTwice(Bench& bench)
{
    const auto differenceOfTwo = [&](const Fetch& fetch, int32_t handle) {
        WireRecord first = fetch.record();
        WireRecord second = fetch.record();
        if (bench.calls.fill(fetch.function, handle, first) == 0 ||
            bench.calls.fill(fetch.function, handle, second) == 0)
            return std::string(); // E7 and N7 tell of that
        return RecordCopy(first).difference(RecordCopy(second));
    };
    eachObject(bench, [&](const Fetch& fetch, int32_t handle) {
        std::string difference = differenceOfTwo(fetch, handle);
        if (!difference.empty() && bench.opened().hearsMore()) // then it may have changed in between
            difference = differenceOfTwo(fetch, handle);
        if (!difference.empty())
            bench.probe.found(Rule::R8, "the same record twice", difference);
    });
}

// A text that fills its room to the last byte was cut, unless it is just as long: with more room that shows.
void checkAsksForRoom(Bench& bench)
{
    for (const Heard& heard : heardTexts(bench)) {
        if (heard.asksForMore || !heard.wide.record || heard.wide.answer == 0)
            continue;
        if (heard.wide.record->text("strText").size() > heard.first.record->text("strText").size())
            bench.probe.found(Rule::L1, heard.first.call, "lTextSz above the room for a text that does not fit",
                              std::to_string(heard.first.record->number("lTextSz")));
    }
}

void checkRoomSuffices(Bench& bench)
{
    for (const Heard& heard : longTexts(bench)) {
        if (!heard.second.record || heard.second.answer == 0)
            continue; // L3 and L4 tell of that
        const int32_t asked = heard.first.record->number("lTextSz");
        const size_t whole =
            heard.wide.record && heard.wide.answer != 0 ? heard.wide.record->text("strText").size() : 0;
        const size_t given = heard.second.record->text("strText").size();
        if (whole > given)
            bench.probe.found(Rule::L2, heard.second.call,
                              "all " + std::to_string(whole) + " bytes in the room that was asked for (lTextSz " +
                                  std::to_string(asked) + ")",
                              std::to_string(given) + " bytes");
        else if (heard.second.record->number("lTextSz") > asked)
            bench.probe.found(Rule::L2, heard.second.call, "lTextSz " + std::to_string(asked) + " as before, or less",
                              std::to_string(heard.second.record->number("lTextSz")));
    }
}

void checkRoomBounded(Bench& bench)
{
    constexpr int32_t most = 16'777'216;
    for (const Heard& heard : heardTexts(bench))
        if (const int32_t asked = heard.first.record->number("lTextSz"); asked > most)
            bench.probe.found(Rule::L3, heard.first.call, "lTextSz of at most 16777216", std::to_string(asked));
}

void checkSecondAttempt(Bench& bench)
{
    for (const Heard& heard : longTexts(bench)) {
        if (!heard.second.record)
            continue; // L3 tells of that
        if (heard.second.answer == 0 && heard.first.answer == 0)
            continue; // N8 tells of that
        if (heard.second.answer == 0) {
            bench.probe.found(Rule::L4, heard.second.call, "an answer that is not 0 when there is room", "0");
            continue;
        }
        const std::string difference = heard.first.record->difference(*heard.second.record, {"strText", "lTextSz"});
        if (!difference.empty())
            bench.probe.found(Rule::L4, heard.second.call, "the other fields as at the first attempt", difference);
    }
}

} // namespace velk::check
