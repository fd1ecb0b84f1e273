// What the last connection found of the IDE, as the log tells it.
#include "hostBars.h"
#include "judgements.h"

#include <algorithm>
#include <sstream>

namespace velk::doctor {
namespace {

struct MemberRow {
    const wchar_t* object;
    const wchar_t* member;
    const wchar_t* without; // what does not work, or how it works then
    bool isNeeded;
};
#define HOST_OBJECT(name)
#define HOST_MEMBER(object, member, without) {L## #object, L## #member, L##without, true},
#define HOST_OTHER_WAY(object, member, without) {L## #object, L## #member, L##without, false},
constexpr MemberRow members[] = {
#include "com/hostMembers.inc"
};
#undef HOST_OBJECT
#undef HOST_MEMBER
#undef HOST_OTHER_WAY

constexpr std::wstring_view membersBegin = L"host members: ";
constexpr std::wstring_view lacksMark = L"; lacks ";

const wchar_t notTold[] =
    L"The log does not tell: it is off, not that fine (\";2\" behind the path), or of another time.";
const wchar_t sendLog[] = L"This IDE is another one than the add-in was made for: send the log to its makers.";

// "Windows has Count Item; lacks CreateToolWindow"; nothing of a line that is none.
std::vector<const MemberRow*> missingOf(const std::wstring& line)
{
    std::vector<const MemberRow*> missing;
    const size_t has = line.find(L" has ");
    const size_t lacks = line.find(lacksMark);
    if (!line.starts_with(membersBegin) || has == std::wstring::npos || lacks == std::wstring::npos)
        return missing;
    const std::wstring object = line.substr(membersBegin.size(), has - membersBegin.size());
    std::wistringstream names(line.substr(lacks + lacksMark.size()));
    for (std::wstring name; names >> name;)
        for (const MemberRow& row : members)
            if (object == row.object && name == row.member)
                missing.push_back(&row);
    return missing;
}

std::wstring lineOf(const MemberRow& row)
{
    return std::wstring(row.object) + L"." + row.member + L": " + row.without;
}

} // namespace

Verdict judgeHostMembers(const Facts& facts)
{
    std::vector<std::wstring> needed;
    std::vector<std::wstring> others;
    bool isTold = false;
    for (const std::wstring& line : facts.log.host) {
        isTold = isTold || line.starts_with(membersBegin);
        for (const MemberRow* row : missingOf(line))
            (row->isNeeded ? needed : others).push_back(lineOf(*row));
    }
    if (!isTold)
        return skipped(notTold);
    if (needed.empty() && others.empty())
        return good(L"All that the add-in came upon are there.");
    if (needed.empty())
        return note(L"Some are missing for which there is another way.", others);
    const std::wstring text =
        L"Without " + needed.front() + (needed.size() == 1 ? L"." : L"; and others are missing, too.");
    needed.insert(needed.end(), others.begin(), others.end());
    return warning(text, sendLog, needed);
}

Verdict judgeHostBars(const Facts& facts)
{
    std::optional<HostBars> told;
    std::vector<std::wstring> details;
    for (const std::wstring& line : facts.log.host)
        if (auto one = readHostBars(line)) {
            told = std::move(one);
            details = {line};
        }
    if (!told)
        return skipped(notTold);
    const auto bar = std::ranges::find(told->bars, told->entry, &HostBar::number);
    const std::wstring which = told->entry + L", which gets the entry of the add-in";
    if (bar == told->bars.end())
        return warning(L"There is no bar " + which + L".", sendLog, details);
    if (!bar->hasName)
        return warning(L"Bar " + which + L", cannot be read: " + quoted(bar->words) + L".", sendLog, details);
    return good(L"The entry is on bar " + told->entry + L", " + quoted(bar->words) + L".", details);
}

} // namespace velk::doctor
