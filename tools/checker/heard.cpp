#include "checker/heard.h"

#include <algorithm>

namespace velk::check {
namespace {

constexpr int32_t longestText = 16 * 1024 * 1024;

bool hasText(const Heard& heard)
{
    return heard.notify.type == typeText && heard.last().record && heard.last().answer != 0;
}

Fetched attempt(Calls& calls, const Probe& probe, Fn function, int32_t handle, WireRecord& record)
{
    Fetched fetched;
    fetched.answer = calls.fill(function, handle, record);
    fetched.record.emplace(record);
    fetched.call = probe.lastCall;
    return fetched;
}

// The second attempt of the caller: more room for the text, and the rest as the first one left it.
WireRecord withMoreRoom(const Fetch& with, const WireRecord& first, int32_t wanted)
{
    WireRecord second = with.record();
    for (const FieldRow& row : second.layout().fields)
        if (row.kind == FieldKind::number)
            second.setNumber(row.name, first.number(row.name));
        else if (row.kind == FieldKind::text)
            second.fillText(row.name, first.text(row.name));
    second.replaceText("strText", static_cast<size_t>(wanted) + 1);
    return second;
}

// What was cut before shows with more room than the text needs or asks for.
WireRecord withRoomToSpare(const Fetch& with, size_t room, int32_t wanted)
{
    const size_t wide = std::max(4 * room, 2 * static_cast<size_t>(std::max(wanted, 0)));
    WireRecord record = with.record();
    record.replaceText("strText", wide);
    record.setNumber("lTextSz", static_cast<int32_t>(wide));
    return record;
}

} // namespace

bool isAboutThing(const Notify& notify) noexcept
{
    return notify.type == typeAdded || notify.type == typeChanged || notify.type == typeRemoved;
}

bool isCommand(const Heard& heard, std::string_view word)
{
    return hasText(heard) && heard.last().record->number("lTextType") == 1 &&
           heard.last().record->text("strText") == word;
}

bool isQuestion(const Heard& heard)
{
    return hasText(heard) && heard.last().record->number("lTextType") == 1 &&
           !heard.last().record->text("strButtons").empty() && !isCommand(heard, "RZ_TASK_COMPLETE") &&
           !isCommand(heard, "MINIMIZE_MSWIN") && !isCommand(heard, "RZ_INIT_COMPLETE");
}

int32_t harmlessAnswer(std::string_view buttons, bool isClosing)
{
    const size_t first = buttons.find('#');
    const std::string_view rest = first == std::string_view::npos ? std::string_view() : buttons.substr(first + 1);
    const std::string_view set = rest.substr(0, rest.find('#'));
    if (set == "672")
        return isClosing ? answerNo : answerCancel;
    return set == "67" ? answerNo : answerOk;
}

void fetch(Calls& calls, const Probe& probe, const Fetching& how, Heard& heard)
{
    const bool isThing = heard.notify.type == typeAdded || heard.notify.type == typeChanged;
    const Fetch* const with = isThing ? fetchOfKind(heard.notify.kind) : fetchOfType(heard.notify.type);
    if (!with)
        return;
    const int32_t handle = heard.notify.handle;
    WireRecord record = with->record();
    heard.first = attempt(calls, probe, with->function, handle, record);
    if (record.has("lTextSz")) {
        const int32_t wanted = record.number("lTextSz");
        const CountedBuffer& text = record.text("strText");
        heard.asksForMore = wanted > static_cast<int32_t>(text.capacity());
        if (heard.asksForMore && wanted <= longestText) {
            WireRecord second = withMoreRoom(*with, record, wanted);
            heard.second = attempt(calls, probe, with->function, handle, second);
        }
        constexpr size_t oneCharacter = 4; // whose half was not written where the text was cut
        const bool mayBeCut = text.text().size() + oneCharacter >= text.capacity();
        if (how.isWide && wanted <= longestText && (heard.asksForMore || mayBeCut)) {
            WireRecord wide = withRoomToSpare(*with, text.capacity(), wanted);
            heard.wide = attempt(calls, probe, with->function, handle, wide);
        }
    }
    if (how.isTwice) {
        WireRecord again = with->record();
        heard.again = attempt(calls, probe, with->function, handle, again);
    }
}

void KnownProject::learn(const Heard& heard)
{
    if (heard.notify.type == typeRemoved)
        forget(heard.notify);
    if (heard.notify.type == typeAdded && heard.notify.kind == kindProject) {
        m_handle = heard.notify.handle;
        m_connections.clear();
    }
    const bool isThing = heard.notify.type == typeAdded || heard.notify.type == typeChanged;
    if (isThing && heard.notify.kind == kindConnection && heard.first.answer != 0)
        learnConnection(heard);
}

void KnownProject::learnConnection(const Heard& heard)
{
    const auto known = std::find_if(m_connections.begin(), m_connections.end(),
                                    [&](const HeardConnection& one) { return one.handle == heard.notify.handle; });
    HeardConnection& connection = known == m_connections.end() ? m_connections.emplace_back() : *known;
    connection.handle = heard.notify.handle;
    connection.project = heard.notify.project;
    connection.isConnected = heard.first.record->flag("bConnected");
    for (size_t index = 0; index < folderKindCount; ++index)
        connection.folders[index] = heard.first.record->number(folderKinds()[index].field);
}

void KnownProject::forget(const Notify& notify)
{
    if (notify.kind == kindProject && notify.handle == m_handle)
        clear();
    if (notify.kind == kindConnection)
        std::erase_if(m_connections, [&](const HeardConnection& one) { return one.handle == notify.handle; });
}

} // namespace velk::check
