// The words that the judgements share.
// Tested in tests/tools/doctor/checksTest.cpp.
#include "judgements.h"

#include "base/error.h"
#include "base/text.h"

#include <algorithm>

namespace velk::doctor {

const wchar_t registerByHand[] =
    L"Let the doctor put it right (Fix, or velkdoctor --fix, as administrator), or run regsvr32 on the add-in in a "
    L"32-bit command prompt as administrator.";

Verdict good(std::wstring text, std::vector<std::wstring> details)
{
    return {State::good, std::move(text), {}, std::move(details), Remedy::none};
}

Verdict note(std::wstring text, std::vector<std::wstring> details)
{
    return {State::note, std::move(text), {}, std::move(details), Remedy::none};
}

Verdict skipped(std::wstring why)
{
    return {State::skipped, std::move(why), {}, {}, Remedy::none};
}

Verdict warning(std::wstring text, std::wstring wayOut, std::vector<std::wstring> details)
{
    return {State::warning, std::move(text), std::move(wayOut), std::move(details), Remedy::none};
}

Verdict wrong(std::wstring text, std::wstring wayOut, std::vector<std::wstring> details)
{
    return {State::wrong, std::move(text), std::move(wayOut), std::move(details), Remedy::none};
}

Verdict withRemedy(Verdict verdict, Remedy remedy)
{
    verdict.remedy = remedy;
    return verdict;
}

std::wstring quoted(const std::wstring& text)
{
    return L"\"" + shownText(text) + L"\"";
}

bool isSameText(const std::wstring& one, const std::wstring& other) noexcept
{
    // By the letters alone, as the system compares names of files: by its dictionaries, different ones are alike.
    const auto upper = [](wchar_t letter) {
        return CharUpperW(reinterpret_cast<wchar_t*>(static_cast<UINT_PTR>(letter)));
    };
    return std::equal(one.begin(), one.end(), other.begin(), other.end(),
                      [upper](wchar_t left, wchar_t right) { return upper(left) == upper(right); });
}

std::wstring bitsText(const check::PeFile& program)
{
    switch (program.machine) {
    case 0x014C:
        return program.isWide ? L"64-bit" : L"32-bit";
    case 0x8664:
    case 0xAA64:
    case 0x0200:
        return L"64-bit";
    default:
        return L"for another processor";
    }
}

std::wstring systemText(DWORD code)
{
    std::wstring words = Error::fromWin32(code).description();
    // The system leaves a gap for the file's name in some of its texts.
    if (const size_t gap = words.find(L"%1"); gap != std::wstring::npos)
        words.replace(gap, 2, L"The file");
    return words + L" (" + numberText(static_cast<int32_t>(code)) + L")";
}

std::wstring childText(const ChildFacts& child)
{
    using enum ChildFacts::Outcome;
    wchar_t code[16];
    wsprintfW(code, L"0x%08lX", child.code);
    const std::wstring at = child.stage.empty() ? L"." : L" at " + child.stage + L".";
    switch (child.outcome) {
    case crashed:
        return L"it crashed with " + std::wstring(code) + at;
    case hung:
        return L"it did not come back" + at;
    case ended:
        return L"it ended the whole process with exit code " + std::wstring(code) + at;
    case notStarted:
        return L"the process for it could not be started: " + systemText(child.code);
    case notRun:
        return L"it was not tried.";
    default:
        break;
    }
    return child.systemCode == 0 ? L"it loads." : L"Windows says: " + systemText(child.systemCode);
}

} // namespace velk::doctor
