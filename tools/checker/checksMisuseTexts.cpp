// Level 8: arguments that nobody expects, answers to nothing, project files that are none, questions without an answer.
#include "checker/bench.h"
#include "checker/checks.h"
#include "checker/files.h"
#include "checker/texts.h"

#include <algorithm>
#include <limits>

namespace velk::check {
namespace {

constexpr size_t longest = 65'535;
constexpr int32_t textOfOne = 675;
constexpr int32_t textOfTwo = 683;

void expectSession(Bench& bench, Rule rule)
{
    const int32_t project = bench.opened().project();
    WireRecord record = fetchOfKind(kindProject)->record();
    if (bench.calls.fill(Fn::RZProjectGet, project, record) == 0)
        bench.probe.found(rule, "the session goes on", "the project is there no more");
}

// Asks for something that asks in turn; a session that leaves questions alone.
bool askQuestion(ScriptedSession& session)
{
    const auto isThere = [&] { return std::any_of(session.heard().begin(), session.heard().end(), isQuestion); };
    for (const HeardConnection& connection : std::vector(session.connections())) {
        if (isThere())
            return true;
        session.act(connection.folders[0], actionFilter);
        session.listen();
    }
    return isThere();
}

ScriptedSession& sessionWithQuestion(Bench& bench)
{
    ScriptedSession& session = bench.newSession();
    session.answersQuestions = false;
    session.begin(bench.projectFile());
    session.listen([](const Heard& one) { return isCommand(one, "RZ_INIT_COMPLETE"); });
    session.open();
    if (!askQuestion(session)) {
        bench.endSession();
        throw NotChecked{"nothing that only reads asked a question"};
    }
    return session;
}

// An answer to a question, where there is one: to no question is another rule's.
void answerWith(Bench& bench, const std::string& text)
{
    try {
        sessionWithQuestion(bench);
        if (bench.probe.step())
            bench.calls.button(text, answerCancel);
        bench.endSession();
    } catch (const NotChecked&) {
        return;
    }
}

void openBroken(Bench& bench, const std::string& folder, const std::string& file)
{
    if (!bench.probe.step())
        return;
    ScriptedSession& session = bench.newSession();
    session.begin(bench.projectFile());
    session.listen([](const Heard& one) { return isCommand(one, "RZ_INIT_COMPLETE"); });
    session.open(folder, file);
    const CallText call{"RZProjectDoAccess", shown(folder) + ", " + shown(file) + ", 2"};
    if (session.openAnswer() != 0 && session.project() == 0)
        bench.probe.found(Rule::M11, call, "0, or an empty project", "no project");
    if (session.project() != 0)
        session.close();
    session.open();
    if (session.openAnswer() != 0 && session.project() == 0)
        bench.probe.found(Rule::M11, call, "another project can be opened afterwards", "it was not added");
    bench.endSession();
}

} // namespace

void checkStrings(Bench& bench)
{
    bench.endSession();
    bench.load();
    for (const std::string& text : {std::string(), std::string(longest, 'x')}) {
        if (bench.probe.step()) {
            bench.calls.initialize(text);
            bench.calls.next();
            bench.calls.terminate();
        }
        if (bench.probe.step())
            bench.calls.text(textOfOne, text);
        if (bench.probe.step())
            bench.calls.text(textOfTwo, text, text);
        const int32_t project = bench.opened().project();
        constexpr int32_t language = 3;
        if (bench.probe.step())
            bench.calls.getAdo(project, language, text, text);
        if (bench.probe.step())
            bench.calls.access(text, text, modeOpen);
        bench.opened().listen(); // and answer what may be asked
        bench.endSession();
        answerWith(bench, text);
    }
}

void checkSmallBuffers(Bench& bench)
{
    bench.load();
    constexpr int32_t numbers[] = {200, 426, 605, 669};
    for (const int32_t capacity : {0, 1, 8})
        for (const int32_t number : numbers) {
            if (!bench.probe.step())
                continue;
            const TextAnswer answer = bench.calls.text(number, capacity);
            if (answer.answer > capacity)
                bench.probe.found(Rule::M8, answer.call, "at most " + std::to_string(capacity),
                                  std::to_string(answer.answer));
        }
}

void checkUnknownCodes(Bench& bench)
{
    const int32_t project = bench.opened().project();
    const std::string path = bench.projectFile();
    const size_t backslash = path.rfind('\\');
    constexpr int32_t unknown[] = {
        -1, 0, 1, 99, std::numeric_limits<int32_t>::max(), std::numeric_limits<int32_t>::min()};
    for (const int32_t code : unknown) {
        if (bench.probe.step())
            bench.calls.plain(Fn::RZObjectDoAction, project, code);
        if (bench.probe.step())
            bench.calls.plain(Fn::RZSetCurrentFolder, project, code);
        if (bench.probe.step())
            bench.calls.access(path.substr(0, backslash), path.substr(backslash + 1), code);
    }
    bench.opened().listen();
    expectSession(bench, Rule::M9);
    bench.endSession();
}

void checkUnknownActionAnswers(Bench& bench)
{
    ScriptedSession& session = bench.opened();
    const int32_t project = session.project();
    constexpr int32_t notForProjects[] = {-1, 0, 5, 6, 99, 1000, actionConnect, actionRefresh, actionFilter};
    for (const int32_t action : notForProjects)
        if (const int32_t answer = session.act(project, action); answer != 0)
            bench.probe.found(Rule::A1, "0 for an action that is unknown, or not for a project",
                              std::to_string(answer));
    bench.endSession();
}

void checkAnswerToNothing(Bench& bench)
{
    bench.opened();
    for (const int32_t answer : {1, 2, 6, 7, 0, 3, -1, 99})
        if (bench.probe.step())
            bench.calls.button("User response", answer);
    expectSession(bench, Rule::M10);
    bench.endSession();
    try {
        ScriptedSession& session = sessionWithQuestion(bench);
        for (int twice = 0; twice < 2; ++twice)
            if (bench.probe.step())
                bench.calls.button("User response", answerCancel);
        session.listen();
        bench.endSession();
    } catch (const NotChecked&) {
        bench.endSession(); // without a question there is nothing to answer twice
    }
}

void checkBrokenProjects(Bench& bench)
{
    bench.opened(); // what cannot be opened at all is N4's
    const std::string place = toAnsi(folderOf(fromAnsi(bench.projectFile())));
    const std::wstring folder = fromAnsi(place);
    writeFile(folder + L"\\velkcheck-empty.rzv", "");
    std::string random;
    uint32_t state = bench.asked().seed;
    for (int count = 0; count < 5000; ++count) {
        state = state * 1664525 + 1013904223;
        random += static_cast<char>(state >> 24);
    }
    writeFile(folder + L"\\velkcheck-random.rzv", random);
    CreateDirectoryW((folder + L"\\velkcheck-folder.rzv").c_str(), nullptr);
    openBroken(bench, place, "velkcheck-missing.rzv");
    openBroken(bench, place + "\\velkcheck-missing", "project.rzv");
    openBroken(bench, place, "velkcheck-empty.rzv");
    openBroken(bench, place, "velkcheck-random.rzv");
    openBroken(bench, place, "velkcheck-folder.rzv");
}

void checkQuestionIgnored(Bench& bench)
{
    ScriptedSession& session = sessionWithQuestion(bench);
    const bool couldBegin = session.beginAnswer() != 0;
    bool isHeard = true;
    for (const HeardConnection& connection : std::vector(session.connections()))
        isHeard = session.select(connection.folders[1], folderKinds()[1].folder) && isHeard;
    if (!isHeard)
        bench.probe.found(Rule::P3, "notifications go on while a question has no answer",
                          "a folder's contents were not told");
    bench.endSession();
    const int32_t answer = bench.calls.initialize(bench.projectFile());
    if (answer == 0 && couldBegin)
        bench.probe.found(Rule::P3, "a session that follows", "RZInitialize answers 0");
    bench.calls.terminate();
}

} // namespace velk::check
