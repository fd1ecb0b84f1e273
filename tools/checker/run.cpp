// The parent: starts a child for each level, watches over it, and starts another where one ended before its time.
#include "checker/checker.h"

#include "checker/checks.h"
#include "checker/files.h"
#include "checker/head.h"
#include "checker/pad.h"
#include "checker/texts.h"
#include "checker/watch.h"

#include <algorithm>
#include <cstdlib>
#include <iterator>
#include <memory>

namespace velk::check {
namespace {

using Listener = std::function<void(const std::string&)>;

// The rows of the table that are to be checked at a level.
std::vector<int16_t> rowsOf(const Request& request, int level)
{
    std::vector<int16_t> rows;
    const auto all = checkRows();
    for (size_t row = 0; row < all.size(); ++row)
        if (rowOf(all[row].rule).level == level && (!request.only || *request.only == all[row].rule))
            rows.push_back(static_cast<int16_t>(row));
    return rows;
}

// One level: as many children as it takes until each of its rules was looked at.
class LevelRun {
public:
    LevelRun(const Request& request, int level, const std::wstring& project, Report& report, const Listener& listener)
        : m_request(request), m_level(level), m_report(report), m_listener(listener), m_rows(rowsOf(request, level))
    {
        // A path that is too long for the system is cut: it would not be found either.
        request.library.copy(m_pad->library, std::size(m_pad->library) - 1);
        project.copy(m_pad->project, std::size(m_pad->project) - 1);
        m_pad->level = level;
        m_pad->seed = request.seed;
        m_pad->patience = request.patience;
        m_pad->sessions = request.sessions;
        m_pad->steps = request.steps;
        m_pad->objects = request.objects;
        m_pad->ruleCount = static_cast<int32_t>(m_rows.size());
        std::copy(m_rows.begin(), m_rows.end(), m_pad->rules);
    }

    void run()
    {
        while (m_pad->first < m_pad->ruleCount) {
            m_pad->isInCall = 0;
            m_pad->hasEnded = 0;
            m_pad->messageBytes = 0;
            m_pad->progress[0] = '\0';
            // What acts may take its time, unless something has hung before: then the run is to end some day.
            const unsigned long act = m_report.hasHung ? m_request.longestCall : m_request.longestAct;
            const ChildEnd end = watchChild(m_pad, {m_request.longestCall, act}, m_listener);
            takeMessages();
            if (end.kind == ChildEnd::done)
                return;
            noteDeath(end);
            if (m_report.isBroken(Rule::F2))
                return giveUp("the library cannot be loaded and unloaded (see F2)");
            if (++m_deaths >= mostDeaths)
                return giveUp("the library ended too many processes");
        }
    }

private:
    static constexpr int mostDeaths = 12; // of one level: what killed so many will kill the next

    const CheckRow& current() const
    {
        const auto row = static_cast<size_t>(std::clamp(LONG{m_pad->current}, LONG{0}, LONG{m_pad->ruleCount} - 1));
        return checkRows()[static_cast<size_t>(m_rows[row])];
    }

    void takeMessages()
    {
        for (PadMessage& message : unpacked({m_pad->messages, static_cast<size_t>(m_pad->messageBytes)}))
            take(message);
    }

    void take(PadMessage& message)
    {
        auto& texts = message.texts;
        if (message.kind == 'T' && texts.size() == 3)
            m_report.addSlow({texts[0], texts[1], std::atoll(texts[2].c_str())});
        else if (message.kind == 'W' && texts.size() == 3)
            m_report.addNoticed({texts[0], std::atoll(texts[1].c_str()), std::atoll(texts[2].c_str())});
        else if (!texts.empty())
            if (const auto rule = ruleOf(texts[0]))
                takeOf(*rule, message.kind, texts);
    }

    void takeOf(Rule rule, char kind, const std::vector<std::string>& texts)
    {
        if (kind == 'F' && texts.size() == 6)
            m_report.add({causeOf(rule, texts[1], texts[3]), m_level, texts[1], texts[2], texts[3], texts[4],
                          std::atoi(texts[5].c_str())});
        else if (kind == 'D' && !m_report.isBroken(rule))
            m_report[rule] = {Outcome::holds, ""};
        else if ((kind == 'N' || kind == 'X') && texts.size() == 2 && !m_report.isBroken(rule))
            m_report[rule] = {Outcome::notChecked, texts[1]};
        m_report.hasFailed = m_report.hasFailed || kind == 'X';
    }

    // What a function does in right calls, too, is not blamed once more on misuse.
    Rule causeOf(Rule rule, const std::string& call, const std::string& expected) const
    {
        constexpr Rule ofEveryCall[] = {Rule::F7, Rule::F8, Rule::F9, Rule::R1, Rule::R2, Rule::R5, Rule::R6};
        const auto all = checkRows();
        if (std::none_of(all.begin(), all.end(), [&](const CheckRow& row) { return row.blamed == rule; }))
            return rule;
        for (const Finding& one : m_report.findings)
            if (one.call == call && one.expected == expected &&
                std::count(std::begin(ofEveryCall), std::end(ofEveryCall), one.rule))
                return one.rule;
        return rule;
    }

    // What ended the child counts for a rule; the next child goes on behind it.
    void noteDeath(const ChildEnd& end)
    {
        const CheckRow& row = current();
        const std::string call = m_pad->isInCall ? m_pad->call : "(between calls)";
        const std::string arguments = m_pad->isInCall ? m_pad->arguments : std::string("after ") + m_pad->call;
        const auto add = [&](Rule usual, const char* expected, const std::string& seen) {
            const bool isLoading = call == "LoadLibrary" || (call == "FreeLibrary" && !row.blamed);
            const Rule cause = isLoading ? row.blamed.value_or(Rule::F2) : row.blamed.value_or(usual);
            m_report.add({causeOf(cause, call, expected), m_level, call, arguments, expected, seen, 1});
        };
        if (end.kind == ChildEnd::hung)
            add(Rule::F9, m_pad->isInCall ? "the call comes back" : "the messages of the thread are worked off",
                "it did not within " + std::to_string(end.passed / 1000) + " s");
        else if (end.kind == ChildEnd::threadEnded)
            add(Rule::F8, "the call comes back", "the thread ended in it");
        else if (end.kind == ChildEnd::died && end.code != childTold)
            add(isCrash(end.code) ? Rule::F7 : Rule::F8, "the call comes back",
                "the process ended with code " + hexadecimal(end.code));
        m_report.hasHung = m_report.hasHung || end.kind == ChildEnd::hung || end.kind == ChildEnd::waited;
        if (m_report[row.rule].outcome == Outcome::notRun)
            m_report[row.rule] = {Outcome::notChecked, whyNotChecked(end, call)};
        if (m_pad->begun > 0)
            m_pad->skip = m_pad->begun;
        else
            m_pad->skip = 0;
        m_pad->first = m_pad->begun > 0 ? m_pad->current : m_pad->current + 1;
    }

    static std::string whyNotChecked(const ChildEnd& end, const std::string& call)
    {
        if (end.kind == ChildEnd::waited)
            return call + " waits for a user, in the window " + toUtf8(end.window);
        return "the process ended in " + call;
    }

    // An exception's code, which an ended process has when nobody could tell of it.
    static bool isCrash(DWORD code) { return (code & 0xF0000000) == 0xC0000000; }

    void giveUp(const char* why)
    {
        for (const int16_t row : m_rows) {
            const Rule rule = checkRows()[static_cast<size_t>(row)].rule;
            if (m_report[rule].outcome == Outcome::notRun)
                m_report[rule] = {Outcome::notChecked, why};
        }
    }

    const Request& m_request;
    int m_level;
    Report& m_report;
    const Listener& m_listener;
    std::vector<int16_t> m_rows;
    Pad m_pad;
    int m_deaths = 0;
};

void checkLevel(const Request& request, int level, const std::wstring& project, Report& report,
                const Listener& listener)
{
    listener("level " + std::to_string(level) + ": " + levelTitle(level));
    const DWORD began = GetTickCount();
    LevelRun(request, level, project, report, listener).run();
    LevelReport one;
    one.level = level;
    one.seconds = (GetTickCount() - began) / 1000.0;
    for (const int16_t row : rowsOf(request, level))
        one.outcome = std::max(one.outcome, report[checkRows()[static_cast<size_t>(row)].rule].outcome);
    for (const Finding& finding : report.findings)
        if (finding.level == level)
            one.outcome = Outcome::broken;
    report.levels.push_back(one);
}

void leaveOut(const Request& request, int level, const std::string& why, Report& report)
{
    for (const int16_t row : rowsOf(request, level))
        if (RuleReport& one = report[checkRows()[static_cast<size_t>(row)].rule]; one.outcome == Outcome::notRun)
            one = {Outcome::notChecked, why};
    report.levels.push_back({level, Outcome::notChecked, 0});
}

} // namespace

Report checkLibrary(const Request& asked, const std::function<void(const std::string&)>& listener)
{
    Request request = asked;
    request.library = wholePath(asked.library);
    request.project = asked.project.empty() ? L"" : wholePath(asked.project);
    Report report;
    report.head = headOf(request.library);
    report.head.project = toUtf8(request.project);
    report.head.seed = request.seed;
    std::unique_ptr<ProjectCopy> copy;
    for (int level = request.firstLevel; level <= request.lastLevel; ++level) {
        if (rowsOf(request, level).empty())
            continue;
        if (report.isBroken(Rule::F1) || report.isBroken(Rule::F2)) {
            leaveOut(request, level, "the library cannot be loaded and unloaded", report);
            continue;
        }
        if (level > lastReadingLevel && !copy && !request.project.empty())
            copy = std::make_unique<ProjectCopy>(request.project);
        if (level > lastReadingLevel && copy && !copy->trouble().empty()) {
            leaveOut(request, level, copy->trouble(), report);
            continue;
        }
        const bool isCopied = level > lastReadingLevel && copy;
        checkLevel(request, level, isCopied ? copy->projectFile() : request.project, report, listener);
    }
    return report;
}

} // namespace velk::check
