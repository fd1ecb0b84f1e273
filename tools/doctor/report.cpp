#include "report.h"

#include "base/text.h"

#include <algorithm>
#include <product.h>

namespace velk::doctor {
namespace {

constexpr size_t wordWidth = 9;
constexpr wchar_t lineEnd[] = L"\r\n";

std::wstring escaped(const std::wstring& text)
{
    std::wstring result = L"\"";
    for (const wchar_t character : text) {
        if (character == L'"' || character == L'\\') {
            result += L'\\';
            result += character;
        } else if (character < L' ') {
            wchar_t code[8];
            wsprintfW(code, L"\\u%04x", character);
            result += code;
        } else {
            result += character;
        }
    }
    return result + L"\"";
}

std::wstring field(const wchar_t* name, const std::wstring& value)
{
    return std::wstring(L"\"") + name + L"\": " + value;
}

std::wstring listed(const std::vector<std::wstring>& texts, const wchar_t* between)
{
    std::wstring result;
    for (const std::wstring& text : texts)
        result += (result.empty() ? L"" : between) + text;
    return result;
}

std::wstring jsonOf(const Finding& finding)
{
    const Verdict& verdict = finding.verdict;
    std::vector<std::wstring> details;
    for (const std::wstring& line : verdict.details)
        details.push_back(escaped(line));
    return L"{" +
           listed({field(L"id", escaped(finding.row->id)), field(L"title", escaped(finding.row->title)),
                   field(L"state", escaped(stateWord(verdict.state))), field(L"text", escaped(verdict.text)),
                   field(L"wayOut", escaped(verdict.wayOut)),
                   field(L"canFix", verdict.remedy == Remedy::none ? L"false" : L"true"),
                   field(L"details", L"[" + listed(details, L", ") + L"]")},
                  L", ") +
           L"}";
}

std::wstring jsonOf(const Mended& mended)
{
    return L"{" +
           listed({field(L"text", escaped(mended.text)), field(L"done", mended.isDone ? L"true" : L"false")}, L", ") +
           L"}";
}

template <class Rows>
std::wstring jsonList(const Rows& rows)
{
    std::vector<std::wstring> texts;
    for (const auto& row : rows)
        texts.push_back(L"\r\n  " + jsonOf(row));
    return L"[" + listed(texts, L",") + L"]";
}

// Text that came from elsewhere keeps to its line.
std::wstring oneLine(std::wstring text)
{
    for (wchar_t& character : text)
        if (character < L' ')
            character = L' ';
    return text;
}

std::wstring lineOf(const Finding& finding, Details details)
{
    const Verdict& verdict = finding.verdict;
    std::wstring line = stateWord(verdict.state);
    line.resize(std::max(wordWidth, line.size() + 1), L' ');
    line += std::wstring(finding.row->title) + L": " + oneLine(verdict.text);
    if (!verdict.wayOut.empty())
        line += L" " + verdict.wayOut;
    line += lineEnd;
    if (details == Details::ofAll || isComplaint(verdict.state))
        for (const std::wstring& more : verdict.details)
            line += std::wstring(wordWidth, L' ') + L"  " + oneLine(more) + lineEnd;
    return line;
}

} // namespace

ExitCode exitCodeOf(const Report& report) noexcept
{
    for (const Mended& mended : report.mended)
        if (!mended.isDone)
            return exitNotFixed;
    const State worst = worstOf(report.findings);
    return worst == State::wrong ? exitWrong : worst == State::warning ? exitWarning : exitGood;
}

std::wstring linesOf(const Report& report, Details details)
{
    std::wstring text;
    for (const Mended& mended : report.mended)
        text += std::wstring(mended.isDone ? L"DONE     " : L"NOT DONE ") + oneLine(mended.text) + lineEnd;
    for (const Finding& finding : report.findings)
        text += lineOf(finding, details);
    return text + lineEnd + lastSentence(report.findings) + lineEnd;
}

std::wstring jsonOf(const Report& report)
{
    const std::wstring exitCode = numberText(exitCodeOf(report));
    return L"{" +
           listed({field(L"program", escaped(L"velkdoctor")), field(L"version", escaped(productVersion)),
                   field(L"state", escaped(stateWord(worstOf(report.findings)))), field(L"exitCode", exitCode),
                   field(L"sentence", escaped(lastSentence(report.findings))), field(L"fixes", jsonList(report.mended)),
                   field(L"checks", jsonList(report.findings))},
                  L",\r\n") +
           L"}" + lineEnd;
}

} // namespace velk::doctor
