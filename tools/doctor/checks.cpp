#include "checks.h"

#include "base/boundary.h"
#include "base/text.h"
#include "judgements.h"

#include <algorithm>

namespace velk::doctor {
namespace {

// clang-format off
constexpr CheckRow rows[] = {
    {L"windows",              L"Windows",                   L"system",       judgeWindows},
    {L"registry-view",        L"Registry view",             L"system",       judgeRegistryView},
    {L"rights",               L"Rights",                    L"system",       judgeRights},
    {L"addin-file",           L"Add-in file",               L"addin",        judgeAddinFile},
    {L"addin-bits",           L"Add-in bits",               L"addin",        judgeAddinBits},
    {L"addin-version",        L"Add-in version",            L"addin",        judgeAddinVersion},
    {L"addin-bytes",          L"Add-in bytes",              L"addin",        judgeAddinBytes},
    {L"addin-folder",         L"Add-in folder",             L"addin",        judgeAddinFolder},
    {L"addin-load",           L"Add-in loads",              L"addin",        judgeAddinLoad},
    {L"installed",            L"Installed programs",        L"installed",    judgeInstalled},
    {L"registered-classes",   L"Registered classes",        L"registration", judgeClasses},
    {L"registered-names",     L"Registered names",          L"registration", judgeProgIds},
    {L"registered-library",   L"Registered type library",   L"registration", judgeTypeLibrary},
    {L"registered-copy",      L"Registered copy",           L"registration", judgeCopy},
    {L"registered-user",      L"User's registration",       L"registration", judgeUsersRegistration},
    {L"registered-leftovers", L"Leftovers",                 L"registration", judgeLeftovers},
    {L"ide-key",              L"IDE's list of add-ins",     L"ide",          judgeIdeKey},
    {L"ide-switch",           L"Add-In Manager",            L"ide",          judgeAddinManager},
    {L"backend-file",         L"Tool's library",            L"backend",      judgeBackendFile},
    {L"backend-bits",         L"Tool's library, bits",      L"backend",      judgeBackendBits},
    {L"backend-functions",    L"Tool's library, functions", L"backend",      judgeBackendFunctions},
    {L"backend-needs",        L"Tool's library, needs",     L"backend",      judgeBackendDependencies},
    {L"backend-load",         L"Tool's library loads",      L"backend",      judgeBackendLoad},
    {L"backend-texts",        L"Tool's texts",              L"backend",      judgeTexts},
    {L"backend-contract",     L"Tool's library, contract",  L"backend",      judgeContract},
    {L"sourcesafe",           L"SourceSafe",                L"sourcesafe",   judgeSourceSafe},
    {L"odbc",                 L"ODBC",                      L"odbc",         judgeOdbc},
    {L"code-page",            L"Code page",                 L"language",     judgeCodePage},
    {L"fonts",                L"Fonts",                     L"language",     judgeFonts},
    {L"log",                  L"Log",                       L"log",          judgeLog},
    {L"log-failures",         L"Failures in the log",       L"log",          judgeLogFailures},
    {L"host-members",         L"Members of the IDE",        L"log",          judgeHostMembers},
    {L"host-bars",            L"Command bars of the IDE",   L"log",          judgeHostBars},
    {L"running-addin",        L"Running IDE",               L"running",      judgeRunningAddin},
    {L"running-answers",      L"Running IDE answers",       L"running",      judgeRunningAnswers},
};
// clang-format on

constexpr const wchar_t* words[] = {L"OK", L"NOTE", L"SKIPPED", L"WARNING", L"WRONG"};

Verdict notLookedAt(const std::wstring& why)
{
    return warning(L"This could not be looked at: " + why, L"Start the doctor again, as administrator if it is not.");
}

Verdict verdictOf(const CheckRow& row, const Facts& facts)
{
    for (const auto& [area, why] : facts.failures)
        if (area == row.area)
            return notLookedAt(why);
    Verdict verdict;
    if (const auto failure = attempt([&] { verdict = row.judge(facts); }))
        return notLookedAt(failure->description());
    return verdict;
}

std::wstring counted(size_t count, const wchar_t* one, const wchar_t* many)
{
    return numberText(static_cast<int32_t>(count)) + (count == 1 ? one : many);
}

} // namespace

const wchar_t* stateWord(State state) noexcept
{
    return words[static_cast<size_t>(state)];
}

std::span<const CheckRow> checkRows()
{
    return rows;
}

std::vector<Finding> judge(const Facts& facts)
{
    std::vector<Finding> findings;
    for (const CheckRow& row : rows)
        findings.push_back({&row, verdictOf(row, facts)});
    return findings;
}

State worstOf(const std::vector<Finding>& findings) noexcept
{
    State worst = State::good;
    for (const Finding& finding : findings)
        if (isComplaint(finding.verdict.state))
            worst = std::max(worst, finding.verdict.state);
    return worst;
}

std::wstring lastSentence(const std::vector<Finding>& findings)
{
    const State worst = worstOf(findings);
    if (!isComplaint(worst))
        return L"Everything that the add-in needs is in order.";
    const auto isWorst = [worst](const Finding& finding) { return finding.verdict.state == worst; };
    const auto first = std::find_if(findings.begin(), findings.end(), isWorst);
    const auto count = static_cast<size_t>(std::count_if(findings.begin(), findings.end(), isWorst));
    const bool isWrong = worst == State::wrong;
    const std::wstring begin = isWrong ? L"The add-in cannot work as it is; " : L"The add-in can work, but ";
    return begin +
           counted(count, isWrong ? L" thing is wrong" : L" thing deserves a look",
                   isWrong ? L" things are wrong" : L" things deserve a look") +
           (count == 1 ? L": " : L", first of all: ") + first->row->title + L". " + first->verdict.wayOut;
}

} // namespace velk::doctor
