#include "faults.h"

#include "base/boundary.h"
#include "base/never_destroyed.h"
#include "devkit/automation/faults.h"

namespace velk::devkit {
namespace {

constexpr wchar_t ide[] = L"IDE";
constexpr wchar_t backend[] = L"Backend";
constexpr wchar_t sourceSafe[] = L"SourceSafe";
constexpr std::wstring_view lasting = L"-from-here";
constexpr int callsBehind = 3;
constexpr int pollsBehind = 15; // polls come by the clock: a life has some more or less of them

struct MannerRow {
    const wchar_t* name;
    Fault fault;
    bool isOfBackend;
};

// clang-format off
constexpr MannerRow manners[] = {
    {L"E_FAIL",              Fault::fail,        false},
    {L"E_OUTOFMEMORY",       Fault::outOfMemory, false},
    {L"DISP_E_EXCEPTION",    Fault::exception,   false},
    {L"RPC_E_CALL_REJECTED", Fault::rejected,    false},
    {L"nothing",             Fault::nothing,     false},
    {L"zero",                Fault::zero,        true},
    {L"negative",            Fault::negative,    true},
    {L"absurd",              Fault::absurd,      true},
    {L"huge",                Fault::huge,        true},
};
// clang-format on

template <const wchar_t* door>
Fault __stdcall passDoor(const wchar_t* call) noexcept
{
    return faults().pass(door, call);
}

// Null when the library is not there, or has no such entry.
FARPROC entryOf(HMODULE library, const char* name)
{
    return library ? GetProcAddress(library, name) : nullptr;
}

} // namespace

std::optional<FaultManner> faultManner(const std::wstring& text)
{
    const bool isLasting = text.ends_with(lasting);
    const std::wstring name = isLasting ? text.substr(0, text.size() - lasting.size()) : text;
    for (const MannerRow& row : manners)
        if (name == row.name)
            return FaultManner{row.fault, isLasting};
    return std::nullopt;
}

void Faults::count()
{
    m_counts.clear();
    m_place.reset();
    m_hit.clear();
}

void Faults::plan(const CallPlace& place, FaultManner manner)
{
    count();
    m_place = place;
    m_manner = manner;
}

void Faults::hook()
{
    setFaultHook(passDoor<ide>);
    if (const FARPROC found = entryOf(GetModuleHandleW(L"velkvsadd.dll"), "RZStandinSetFaultHook"))
        reinterpret_cast<int32_t(__stdcall*)(FaultHook)>(reinterpret_cast<void*>(found))(passDoor<backend>);
    if (const FARPROC found = entryOf(LoadLibraryW(L"ssapi.dll"), "StandinSetFaultHook"))
        reinterpret_cast<void(__stdcall*)(FaultHook)>(reinterpret_cast<void*>(found))(passDoor<sourceSafe>);
}

Fault Faults::pass(const wchar_t* door, const wchar_t* call) noexcept
{
    bool fails = false;
    swallow(L"faults", L"the call goes on", [&] {
        const int number = ++m_counts[door];
        const bool isHere = m_place && m_place->call == door;
        fails = isHere && (m_manner.isLasting ? number >= m_place->occurrence : number == m_place->occurrence);
        if (fails && m_hit.empty())
            m_hit = call;
    });
    return fails ? m_manner.fault : Fault::none;
}

Faults& faults()
{
    static never_destroyed<Faults> only;
    return only.get();
}

std::vector<Pair> faultPairs(const std::map<std::wstring, int>& counts)
{
    std::vector<Pair> pairs;
    for (const auto& [door, calls] : counts)
        for (int call = 1; call <= calls + (door == backend ? pollsBehind : callsBehind); ++call)
            for (const MannerRow& row : manners) {
                if (row.isOfBackend != (door == backend))
                    continue;
                const CallPlace place{door, call, CallMoment::begins};
                pairs.push_back({place, row.name});
                pairs.push_back({place, row.name + std::wstring(lasting)});
            }
    return pairs;
}

} // namespace velk::devkit
