// Level 5: the notifications of a session on the project, and what they bring.
#include "checker/bench.h"
#include "checker/checks.h"
#include "checker/texts.h"

#include <algorithm>
#include <map>
#include <set>

namespace velk::check {
namespace {

std::string shownNotify(const Notify& notify)
{
    return "type " + std::to_string(notify.type) + ", project " + std::to_string(notify.project) + ", connection " +
           std::to_string(notify.connection) + ", kind " + std::to_string(notify.kind) + ", handle " +
           std::to_string(notify.handle);
}

CallText during(const Heard& heard)
{
    return {"RZGetNotification", "during: " + heard.step};
}

bool isThing(const Notify& notify)
{
    return notify.type == typeAdded || notify.type == typeChanged;
}

void checkFetched(Bench& bench, Rule rule, const Heard& heard, const Fetched& fetched, const char* expected)
{
    if (fetched.record && fetched.answer == 0)
        bench.probe.found(rule, fetched.call, expected, "0, after " + shownNotify(heard.notify));
}

// Whether a notification that followed says that the thing is gone: it may have waited already. With a project or a
// connection goes what is below, when that waited without doubt.
bool isGoneAgain(const std::vector<Heard>& all, const Heard& heard)
{
    return std::any_of(all.begin() + (&heard - all.data()), all.end(), [&](const Heard& later) {
        const bool isAbove = later.notify.kind <= kindConnection && later.notify.kind < heard.notify.kind;
        return later.notify.type == typeRemoved &&
               (later.notify.handle == heard.notify.handle || (isAbove && later.pauses == heard.pauses));
    });
}

// The fields of a question's buttons, as the add-in splits them.
std::vector<std::string> fieldsOf(std::string text)
{
    std::vector<std::string> fields;
    for (size_t at = text.find('#'); at != std::string::npos && at + 1 < text.size(); at = text.find('#')) {
        fields.push_back(text.substr(0, at));
        text.erase(0, at + 1);
    }
    fields.push_back(std::move(text));
    return fields;
}

template <class Look>
void eachQuestion(Bench& bench, Look look)
{
    bool isAny = false;
    for (const Heard& heard : bench.script().heard())
        if (isQuestion(heard)) {
            isAny = true;
            look(heard, heard.last().record->text("strButtons"));
        }
    if (!isAny)
        throw NotChecked{"the script met no question"};
}

bool isOneOf(const std::string& text, std::initializer_list<const char*> words)
{
    return std::find(words.begin(), words.end(), text) != words.end();
}

void checkEnds(const ScriptedSession& session)
{
    if (session.isEndless())
        throw NotChecked{"the notifications have no end (see N13)"};
}

void checkSteps(Bench& bench, Rule rule, const std::vector<Bench::Step>& steps, const char* expected)
{
    checkEnds(bench.script());
    if (steps.empty())
        throw NotChecked{"the project has no connection"};
    for (const Bench::Step& step : steps)
        if (!step.isHeard)
            bench.probe.found(rule, {step.name, step.arguments}, expected, "it did not come");
}

} // namespace

void checkEmptyQueue(Bench& bench)
{
    for (const Notify& empty : bench.script().empty())
        if ((empty.type >= typeText && empty.type <= typeCommandDe) || empty.more != 0)
            return bench.probe.found(Rule::N1, {"RZGetNotification", "record, flag"},
                                     "no type from 2 to 10 and flag 0 where the answer is 0",
                                     "type " + std::to_string(empty.type) + ", flag " + std::to_string(empty.more));
}

void checkMoreFlag(Bench& bench)
{
    for (const std::string& step : bench.script().brokenPromises())
        bench.probe.found(Rule::N2, {"RZGetNotification", "during: " + step},
                          "a notification, as the flag of the call before said", "none");
}

void checkInitComplete(Bench& bench)
{
    if (bench.script().beginAnswer() == 0)
        throw NotChecked{"RZInitialize answered 0 (see S1)"};
    const auto& heard = bench.script().heard();
    const auto count =
        std::count_if(heard.begin(), heard.end(), [](const Heard& one) { return isCommand(one, "RZ_INIT_COMPLETE"); });
    if (count != 1)
        bench.probe.found(Rule::N3, {"RZInitialize", ""}, "RZ_INIT_COMPLETE once", std::to_string(count) + " times");
}

void checkProjectAdded(Bench& bench)
{
    const auto& heard = bench.script().heard();
    const auto isAdded = [](const Heard& one) {
        return one.notify.type == typeAdded && one.notify.kind == kindProject;
    };
    if (bench.script().openAnswer() == 0)
        throw NotChecked{"RZProjectDoAccess answered 0"};
    if (std::none_of(heard.begin(), heard.end(), isAdded))
        bench.probe.found(Rule::N4, {"RZProjectDoAccess", "mode 2"}, "the project is added", "it is not");
}

void checkParentsFirst(Bench& bench)
{
    bool isProjectKnown = false;
    bool isConnectionKnown = false; // which one is its own an object's notification need not say
    for (const Heard& heard : bench.script().heard()) {
        const Notify& notify = heard.notify;
        if (notify.type != typeAdded)
            continue;
        if (notify.kind == kindConnection && !isProjectKnown)
            bench.probe.found(Rule::N5, during(heard), "a connection after its project", shownNotify(notify));
        if (isObject(notify.kind) && !isConnectionKnown)
            bench.probe.found(Rule::N5, during(heard), "an object after its connection", shownNotify(notify));
        isProjectKnown = isProjectKnown || notify.kind == kindProject;
        isConnectionKnown = isConnectionKnown || notify.kind == kindConnection;
    }
}

void checkProjectNamed(Bench& bench)
{
    int32_t project = 0;
    for (const Heard& heard : bench.script().heard()) {
        if (heard.notify.type == typeAdded && heard.notify.kind == kindProject)
            project = heard.notify.handle;
        const bool isConnection = heard.notify.type == typeAdded && heard.notify.kind == kindConnection;
        if (isConnection && project != 0 && heard.notify.project != project)
            bench.probe.found(Rule::N6, during(heard), "project " + std::to_string(project), shownNotify(heard.notify));
    }
}

void checkThingsFetched(Bench& bench)
{
    for (const Heard& heard : bench.script().heard())
        if (isThing(heard.notify) && !isGoneAgain(bench.script().heard(), heard))
            checkFetched(bench, Rule::N7, heard, heard.first, "an answer that is not 0 for what was told");
}

void checkPayloadsFetched(Bench& bench)
{
    for (const Heard& heard : bench.script().heard())
        if (!isThing(heard.notify)) {
            // Of a text that asked for more room the second answer counts.
            checkFetched(bench, Rule::N8, heard, heard.last(), "an answer that is not 0 for what was told");
            const std::string difference = heard.first.answer != 0 && heard.again.answer != 0 && heard.first.record
                                               ? heard.first.record->difference(*heard.again.record)
                                               : std::string();
            if (!difference.empty())
                bench.probe.found(Rule::N8, heard.again.call, "the same, when it can be fetched once more", difference);
        }
}

void checkContentsTold(Bench& bench)
{
    bench.script();
    checkSteps(bench, Rule::N9, bench.selections(), "the folder's contents are told");
}

void checkKindsFit(Bench& bench)
{
    std::map<int32_t, int32_t> kinds; // of the handles that a record has shown
    for (const Heard& heard : bench.script().heard()) {
        const Notify& notify = heard.notify;
        if (isThing(notify) && heard.first.record && heard.first.answer != 0)
            kinds[notify.handle] = notify.kind;
        if (isThing(notify) && notify.kind == kindConnection && heard.first.record && heard.first.answer != 0)
            for (const FolderKind& kind : folderKinds())
                kinds[heard.first.record->number(kind.field)] = kind.folder;
        const bool isOther = kinds.contains(notify.handle) && kinds[notify.handle] != notify.kind;
        if ((notify.type == typeContents || isAboutThing(notify)) && isOther)
            bench.probe.found(Rule::N10, during(heard),
                              "kind " + std::to_string(kinds[notify.handle]) + ", as the thing is",
                              shownNotify(notify));
    }
}

void checkProjectRemoved(Bench& bench)
{
    checkEnds(bench.script());
    if (!bench.isClosed())
        throw NotChecked{"no project was closed"};
    const auto& heard = bench.script().heard();
    if (!bench.isCloseHeard() && std::any_of(heard.begin(), heard.end(), [](const Heard& one) {
            return isQuestion(one) && one.step == ScriptedSession::closingStep;
        }))
        throw NotChecked{"the library asked before it closed the project, and was not told Yes"};
    if (!bench.isCloseHeard())
        bench.probe.found(Rule::N11, {"RZObjectDoAction", "project, 21"}, "the project is removed", "it is not");
}

void checkConnectionTold(Bench& bench)
{
    bench.script();
    checkSteps(bench, Rule::N12, bench.connectings(), "the connection is changed, with its flag as it is then");
}

void checkQueueEnds(Bench& bench)
{
    if (bench.script().isEndless())
        bench.probe.found(Rule::N13, {"RZGetNotification", "record, flag"}, "an end of the notifications",
                          "10000 without one");
}

void checkCleanBeginning(Bench& bench)
{
    checkEnds(bench.script());
    ScriptedSession& first = bench.newSession();
    first.begin(bench.projectFile());
    first.listen([](const Heard& one) { return isCommand(one, "RZ_INIT_COMPLETE"); });
    first.listen();
    std::set<std::pair<int32_t, int32_t>> usual; // what a session tells by itself: type and kind
    for (const Heard& heard : first.heard())
        usual.emplace(heard.notify.type, heard.notify.kind);
    first.open();
    for (const HeardConnection& connection : std::vector(first.connections())) // what comes of it is not waited for
        bench.calls.plain(Fn::RZSetCurrentFolder, connection.folders[0], kindFirstFolder);
    ScriptedSession& second = bench.newSession();
    second.begin(bench.projectFile());
    second.listen();
    checkEnds(second);
    for (const Heard& heard : second.heard())
        if (heard.notify.type != typeText && !usual.contains({heard.notify.type, heard.notify.kind}))
            bench.probe.found(Rule::S5, during(heard), "until a project is opened, what the session before told, too",
                              shownNotify(heard.notify));
}

void checkButtonFields(Bench& bench)
{
    constexpr size_t mostFields = 5;
    eachQuestion(bench, [&](const Heard& heard, const std::string& buttons) {
        if (fieldsOf(buttons).size() > mostFields)
            bench.probe.found(Rule::P1, heard.last().call, "at most five fields in strButtons", shown(buttons));
    });
}

void checkButtonWords(Bench& bench)
{
    eachQuestion(bench, [&](const Heard& heard, const std::string& buttons) {
        const std::vector<std::string> fields = fieldsOf(buttons);
        if (fields.size() > 1 &&
            !isOneOf(fields[0], {"IDE_CRITICAL", "IDE_WARNING", "IDE_QUESTION", "IDE_INFORMATION"}))
            bench.probe.found(Rule::P2, heard.last().call, "one of the four icons", shown(buttons));
        if (fields.size() > 1 && !isOneOf(fields[1], {"672", "67", "1"}))
            bench.probe.found(Rule::P2, heard.last().call, "one of the three sets of buttons", shown(buttons));
    });
}

} // namespace velk::check
