#include "com/host_report.h"

#include "base/boundary.h"
#include "base/text.h"
#include "base/trace.h"
#include "com/automation.h"

#include <algorithm>

namespace velk {
namespace {

constexpr wchar_t where[] = L"host report";
constexpr wchar_t why[] = L"the log does not tell what the host can do";
constexpr int32_t mostBars = 200;

struct MemberRow {
    HostObject object;
    const wchar_t* name;
};
#define HOST_OBJECT(name)
#define HOST_MEMBER(object, member, without) {HostObject::object, L## #member},
#define HOST_OTHER_WAY(object, member, without) {HostObject::object, L## #member},
constexpr MemberRow members[] = {
#include "com/hostMembers.inc"
};
#undef HOST_OBJECT
#undef HOST_MEMBER
#undef HOST_OTHER_WAY

#define HOST_OBJECT(name) L## #name,
#define HOST_MEMBER(object, member, without)
#define HOST_OTHER_WAY(object, member, without)
constexpr const wchar_t* objects[] = {
#include "com/hostMembers.inc"
};
#undef HOST_OBJECT
#undef HOST_MEMBER
#undef HOST_OTHER_WAY

static_assert(std::size(objects) <= 32);
uint32_t told = 0; // a bit a kind

std::wstring lineOf(HostObject kind, const com_ptr<IDispatch>& object)
{
    std::wstring has;
    std::wstring lacks;
    for (const MemberRow& row : members)
        if (row.object == kind)
            (automation::hasMember(object.get(), row.name) ? has : lacks) += L' ' + std::wstring(row.name);
    return std::wstring(L"host members: ") + objects[static_cast<size_t>(kind)] + L" has" +
           (has.empty() ? L" none" : has) + L"; lacks" + (lacks.empty() ? L" none" : lacks);
}

// In quotes, those inside doubled, on one line: whatever the host's words are, they end where the quotes do.
std::wstring quoted(const std::wstring& words)
{
    std::wstring text = L"\"";
    for (const wchar_t character : words) {
        text += character < L' ' ? L'?' : character;
        if (character == L'"')
            text += character;
    }
    return text + L'"';
}

std::wstring nameOf(const com_ptr<IDispatch>& bars, int32_t number)
{
    std::wstring name;
    const auto failure = attempt([&] {
        const com_ptr<IDispatch> bar = automation::getObject(bars, L"Item", {variant(number)});
        name = automation::get(bar, L"Name").asText();
    });
    return failure ? L'(' + quoted(failure->description()) + L')' : quoted(name);
}

} // namespace

void beginHostReports() noexcept
{
    told = 0;
}

void reportHost(HostObject kind, IDispatch* object) noexcept
{
    const uint32_t bit = 1u << static_cast<unsigned>(kind);
    if (!trace::isOn(trace::Level::calls) || (told & bit) != 0 || !object)
        return;
    told |= bit;
    const com_ptr<IDispatch> kept(object);
    swallow(where, why, [&] { trace::write(trace::Level::calls, lineOf(kind, kept)); });
}

void reportBars(IDispatch* object, int32_t entryBar) noexcept
{
    if (!trace::isOn(trace::Level::calls) || !object)
        return;
    const com_ptr<IDispatch> bars(object);
    swallow(where, why, [&] {
        std::wstring names;
        const int32_t count = std::min(automation::get(bars, L"Count").asLong(), mostBars);
        for (int32_t number = 1; number <= count; ++number)
            names += (number == 1 ? L"" : L", ") + numberText(number) + L' ' + nameOf(bars, number);
        trace::write(trace::Level::calls, L"host bars: " + (names.empty() ? std::wstring(L"none") : names) +
                                              L"; the entry goes to " + numberText(entryBar));
    });
}

} // namespace velk
