#include "faults.h"

#include "base/boundary.h"
#include "base/never_destroyed.h"
#include "devkit/automation/faults.h"
#include "memory.h"

namespace velk::devkit {
namespace {

constexpr wchar_t ideDoor[] = L"IDE";
constexpr wchar_t backendDoor[] = L"Backend";
constexpr wchar_t sourceSafeDoor[] = L"SourceSafe";
constexpr wchar_t memoryDoor[] = L"Memory";
constexpr std::wstring_view lasting = L"-from-here";
constexpr int callsBehind = 3;
constexpr int pollsBehind = 15; // polls come by the clock: a life has some more or less of them

enum class Kind { automation, backend, memory };

struct MannerRow {
    const wchar_t* name;
    Fault fault;
    Kind kind; // of the doors that it is for
};

// clang-format off
constexpr MannerRow manners[] = {
    {L"E_FAIL",              Fault::fail,        Kind::automation},
    {L"E_OUTOFMEMORY",       Fault::outOfMemory, Kind::automation},
    {L"DISP_E_EXCEPTION",    Fault::exception,   Kind::automation},
    {L"RPC_E_CALL_REJECTED", Fault::rejected,    Kind::automation},
    {L"nothing",             Fault::nothing,     Kind::automation},
    {L"zero",                Fault::zero,        Kind::backend},
    {L"negative",            Fault::negative,    Kind::backend},
    {L"absurd",              Fault::absurd,      Kind::backend},
    {L"huge",                Fault::huge,        Kind::backend},
    {L"no-memory",           Fault::outOfMemory, Kind::memory},
};
// clang-format on

Kind kindOf(const std::wstring& door)
{
    return door == backendDoor ? Kind::backend : door == memoryDoor ? Kind::memory : Kind::automation;
}

template <const wchar_t* door>
Fault __stdcall passDoor(const wchar_t* call) noexcept
{
    return faults().pass(door, call);
}

bool mayAllocate(const wchar_t* function) noexcept
{
    return faults().pass(memoryDoor, function) == Fault::none;
}

// Null when the library is not there, or has no such entry.
FARPROC entryOf(HMODULE library, const char* name)
{
    return library ? GetProcAddress(library, name) : nullptr;
}

std::vector<Pair> pairsOfDoor(const std::wstring& door, int calls)
{
    std::vector<Pair> pairs;
    for (int call = 1; call <= calls + (door == backendDoor ? pollsBehind : callsBehind); ++call)
        for (const MannerRow& row : manners) {
            if (row.kind != kindOf(door))
                continue;
            const CallPlace place{door, call, CallMoment::begins};
            pairs.push_back({place, row.name});
            pairs.push_back({place, row.name + std::wstring(lasting)});
        }
    return pairs;
}

// So that about so many of all are met, and all manners among them, of which there are 2, 8 or 10.
size_t stepThrough(size_t all, size_t most)
{
    size_t step = most < all ? all / most : 1;
    while (step > 1 && (step % 2 == 0 || step % 5 == 0))
        ++step;
    return step;
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
    setFaultHook(passDoor<ideDoor>);
    if (const FARPROC found = entryOf(GetModuleHandleW(L"velkvsadd.dll"), "RZStandinSetFaultHook"))
        reinterpret_cast<int32_t(__stdcall*)(FaultHook)>(reinterpret_cast<void*>(found))(passDoor<backendDoor>);
    if (const FARPROC found = entryOf(LoadLibraryW(L"ssapi.dll"), "StandinSetFaultHook"))
        reinterpret_cast<void(__stdcall*)(FaultHook)>(reinterpret_cast<void*>(found))(passDoor<sourceSafeDoor>);
    gateAllocations(L"velkviadd.dll", mayAllocate);
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

std::vector<Pair> faultPairs(const std::map<std::wstring, int>& counts, size_t most)
{
    std::vector<Pair> pairs;
    for (const auto& [door, calls] : counts) {
        const std::vector<Pair> all = pairsOfDoor(door, calls);
        const size_t step = stepThrough(all.size(), most);
        for (size_t index = 0; index < all.size(); index += step)
            pairs.push_back(all[index]);
    }
    return pairs;
}

} // namespace velk::devkit
