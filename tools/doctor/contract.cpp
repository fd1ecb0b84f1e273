// Tested in tests/tools/doctor/machine/contractTest.cpp.
#include "contract.h"

#include "checker/checker.h"
#include "utf8.h"

namespace velk::doctor {
namespace {

constexpr int lastLevelWithoutProject = 3;

std::wstring lineOf(const check::Finding& finding)
{
    const check::RuleRow& rule = check::rowOf(finding.rule);
    return fromUtf8(std::string(rule.number) + " " + rule.title + ": " + finding.call + "(" + finding.arguments +
                    ") should give " + finding.expected + ", seen was " + finding.seen);
}

} // namespace

ContractFacts checkContract(const std::wstring& library, uint32_t seconds)
{
    check::Request request;
    request.library = library;
    request.lastLevel = lastLevelWithoutProject;
    request.longestCall = request.longestAct = seconds * 1000;
    const check::Report report = check::checkLibrary(request, [](const std::string&) {});
    ContractFacts facts;
    facts.isChecked = true;
    for (const check::RuleReport& rule : report.rules)
        facts.rulesKept += rule.outcome == check::Outcome::holds;
    for (const check::Finding& finding : report.findings)
        facts.broken.push_back(lineOf(finding));
    return facts;
}

} // namespace velk::doctor
