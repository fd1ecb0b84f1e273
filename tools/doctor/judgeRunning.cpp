// The log, and an IDE that is running now.
// Tested in tests/tools/doctor/machine/surroundingsTest.cpp.
#include "addin/traceTarget.h"
#include "base/text.h"
#include "judgements.h"

namespace velk::doctor {
namespace {

std::wstring processText(const IdeProcess& process)
{
    return L"process " + numberText(static_cast<int32_t>(process.id)) + L" (" + shownText(process.path) + L")";
}

// Whether something that has its own line keeps an IDE from loading the add-in.
bool isKeptOut(const Facts& facts)
{
    for (const auto judge :
         {judgeAddinFile, judgeAddinBits, judgeAddinLoad, judgeClasses, judgeProgIds, judgeIdeKey, judgeAddinManager})
        if (isComplaint(judge(facts).state))
            return true;
    return false;
}

// What the IDE has loaded.
Verdict judgeProcess(const Facts& facts, const IdeProcess& process)
{
    if (process.addins.empty() && isKeptOut(facts))
        return skipped(L"An IDE runs without the add-in, for a reason above: " + processText(process) + L".");
    if (process.addins.empty())
        return warning(L"An IDE runs without the add-in: " + processText(process) + L".",
                       L"Choose the add-in in the IDE's Add-In Manager.");
    for (const std::wstring& path : process.addins) {
        if (isSameText(path, registeredPath(facts)) && isComplaint(judgeCopy(facts).state))
            return skipped(L"An IDE runs with the copy that is registered: " + processText(process) + L".");
        if (!isSameText(path, facts.addin.file.path))
            return wrong(L"An IDE runs with another copy of the add-in: " + processText(process) + L" has " +
                             quoted(path) + L".",
                         L"End the IDE, register this copy, and start the IDE again.");
    }
    const std::wstring& library = facts.backend.file.path;
    for (const std::wstring& path : process.libraries)
        if (!library.empty() && !isSameText(path, library))
            return warning(L"An IDE runs with another copy of the tool's library: " + processText(process) + L" has " +
                               quoted(path) + L", not " + quoted(library) + L".",
                           L"Put the add-in into the folder of the library that is right, and start the IDE again.");
    return good({});
}

bool isOff(const LogFacts& log)
{
    return log.path.empty();
}

} // namespace

Verdict judgeLog(const Facts& facts)
{
    const LogFacts& log = facts.log;
    const std::wstring place =
        log.isFromEnvironment ? L"the environment variable " + std::wstring(traceVariable)
                              : L"the value " + std::wstring(traceValue) + L" under HKEY_CURRENT_USER\\" + traceKey;
    const std::wstring wayOut = L"Set " + place + L" to the full path of a file in a folder that is there.";
    if (!log.isFromEnvironment && !log.setting.isMissing() && !log.setting.isText())
        return warning(L"The log's setting is damaged: " + place + L" has " + shown(log.setting) + L".", wayOut);
    if (isOff(log))
        return good(L"The log is off.");
    if (!log.isFullPath)
        return warning(L"The log's file has no full path: " + quoted(log.path) + L", by " + place + L".", wayOut);
    if (!log.hasFolder)
        return warning(L"The log is on, but the folder of its file is not there: " + quoted(log.path) + L".", wayOut);
    if (log.writeCode != 0)
        return warning(L"The log is on, but its file cannot be written: " + quoted(log.path) + L". " +
                           systemText(log.writeCode),
                       wayOut);
    return good(L"The log is on, " + std::wstring(log.isFiner ? L"with every call" : L"failures only") + L": " +
                quoted(log.path) + (log.isThere ? L"." : L", which is not there yet."));
}

Verdict judgeLogFailures(const Facts& facts)
{
    const LogFacts& log = facts.log;
    if (isOff(log) || !log.isThere)
        return skipped(L"There is no log.");
    if (log.failures.empty())
        return good(L"There are none at its end.");
    return note(L"The last one: " + shownText(log.failures.back()), log.failures);
}

Verdict judgeRunningAddin(const Facts& facts)
{
    const RunningFacts& running = facts.running;
    if (running.processes.empty())
        return good(L"No IDE (" + shownText(running.program) + L") is running.");
    Verdict worst = good(L"The add-in is in every IDE that runs and can be looked into.");
    std::vector<std::wstring> details;
    for (const IdeProcess& process : running.processes) {
        for (const auto* modules : {&process.addins, &process.libraries})
            for (const std::wstring& path : *modules)
                details.push_back(processText(process) + L" has " + quoted(path));
        if (!process.areModulesKnown)
            details.push_back(processText(process) + L" does not let itself be looked into");
        else if (Verdict verdict = judgeProcess(facts, process); verdict.state > worst.state)
            worst = std::move(verdict);
    }
    worst.details = std::move(details);
    return worst;
}

Verdict judgeRunningAnswers(const Facts& facts)
{
    const RunningFacts& running = facts.running;
    if (running.processes.empty())
        return skipped(L"No IDE is running.");
    for (const IdeProcess& process : running.processes)
        if (process.hasWindow && !process.answers)
            return wrong(L"An IDE hangs: the main window of " + processText(process) + L" does not answer.",
                         L"Wait, or end it in the Task Manager; then look at the failures in the log.");
    return good(L"Every IDE that runs answers.");
}

} // namespace velk::doctor
