#include "checker/counts.h"

#include "base/win32.h"

#include <tlhelp32.h>
#include <vector>
#include <winternl.h>

namespace velk::check {
namespace {

constexpr SYSTEM_INFORMATION_CLASS allHandles = static_cast<SYSTEM_INFORMATION_CLASS>(16);
constexpr NTSTATUS lengthMismatch = static_cast<NTSTATUS>(0xC0000004);

struct HandleRow {
    ULONG process;
    UCHAR type, flags;
    USHORT value;
    void* object;
    ACCESS_MASK access;
};
struct HandleTable {
    ULONG count;
    HandleRow rows[1];
};

// The table that Wine shows a process: rows of 24 bytes, a type in byte 14 for those in use.
constexpr size_t gdiTableInPeb = 0x94;
constexpr size_t gdiRows = 0x4000;
struct GdiRow {
    unsigned char before[14], type, after[9];
};

FARPROC systemFunction(const wchar_t* library, const char* name) noexcept
{
    return GetProcAddress(GetModuleHandleW(library), name);
}

// Wine counts neither for a process; Windows does, and has other tables.
bool isWine() noexcept
{
    return systemFunction(L"ntdll.dll", "wine_get_version") != nullptr;
}

size_t countKernelHandles()
{
    // Windows XP before its first service pack has no such function.
    using Count = BOOL(WINAPI*)(HANDLE, DWORD*);
    const auto counted =
        reinterpret_cast<Count>(reinterpret_cast<void*>(systemFunction(L"kernel32.dll", "GetProcessHandleCount")));
    DWORD handles = 0;
    if (!isWine() && counted && counted(GetCurrentProcess(), &handles))
        return handles;
    using Query = NTSTATUS(WINAPI*)(SYSTEM_INFORMATION_CLASS, void*, ULONG, ULONG*);
    static const auto query =
        reinterpret_cast<Query>(reinterpret_cast<void*>(systemFunction(L"ntdll.dll", "NtQuerySystemInformation")));
    static std::vector<unsigned char> room(1 << 20);
    while (query(allHandles, room.data(), static_cast<ULONG>(room.size()), nullptr) == lengthMismatch)
        room.resize(room.size() * 2);
    const auto* const table = reinterpret_cast<const HandleTable*>(room.data());
    size_t count = 0;
    for (ULONG row = 0; row < table->count; ++row)
        count += table->rows[row].process == GetCurrentProcessId() ? 1u : 0u;
    return count;
}

size_t countGdiObjects()
{
    if (!isWine())
        return GetGuiResources(GetCurrentProcess(), GR_GDIOBJECTS);
    using Peb = unsigned char*(WINAPI*)();
    const auto current =
        reinterpret_cast<Peb>(reinterpret_cast<void*>(systemFunction(L"ntdll.dll", "RtlGetCurrentPeb")));
    const unsigned char* const peb = current();
    const auto* const rows = *reinterpret_cast<const GdiRow* const*>(peb + gdiTableInPeb);
    size_t count = 0;
    for (size_t row = 0; rows && row < gdiRows; ++row)
        count += rows[row].type != 0 ? 1u : 0u;
    return count;
}

BOOL CALLBACK countWindow(HWND, LPARAM count) noexcept
{
    ++*reinterpret_cast<size_t*>(count);
    return TRUE;
}

size_t countWindows()
{
    size_t count = 0;
    EnumThreadWindows(GetCurrentThreadId(), countWindow, reinterpret_cast<LPARAM>(&count));
    for (HWND window = nullptr; (window = FindWindowExW(HWND_MESSAGE, window, nullptr, nullptr)) != nullptr;)
        count += GetWindowThreadProcessId(window, nullptr) == GetCurrentThreadId() ? 1u : 0u;
    return count;
}

size_t countHeapBytes()
{
    HANDLE heaps[64];
    const DWORD count = GetProcessHeaps(64, heaps);
    size_t bytes = 0;
    for (DWORD index = 0; index < count && index < 64; ++index) {
        HeapLock(heaps[index]);
        PROCESS_HEAP_ENTRY entry{};
        while (HeapWalk(heaps[index], &entry))
            if (entry.wFlags & PROCESS_HEAP_ENTRY_BUSY)
                bytes += entry.cbData;
        HeapUnlock(heaps[index]);
    }
    return bytes;
}

size_t countPrivateBytes()
{
    size_t bytes = 0;
    MEMORY_BASIC_INFORMATION region{};
    for (const char* at = nullptr; VirtualQuery(at, &region, sizeof region) == sizeof region;) {
        if (region.State == MEM_COMMIT && region.Type == MEM_PRIVATE)
            bytes += region.RegionSize;
        const char* const next = static_cast<const char*>(region.BaseAddress) + region.RegionSize;
        if (next <= at)
            break;
        at = next;
    }
    return bytes;
}

template <class Entry, class Step>
size_t countInSnapshot(DWORD kind, Step first, Step next, bool (*isOurs)(const Entry&))
{
    const HANDLE snapshot = CreateToolhelp32Snapshot(kind, GetCurrentProcessId());
    Entry entry{};
    entry.dwSize = sizeof entry;
    size_t count = 0;
    for (BOOL found = first(snapshot, &entry); found; found = next(snapshot, &entry))
        count += isOurs(entry) ? 1u : 0u;
    CloseHandle(snapshot);
    return count;
}

} // namespace

Counts Counts::now()
{
    Counts counts;
    counts.threads =
        countInSnapshot<THREADENTRY32>(TH32CS_SNAPTHREAD, Thread32First, Thread32Next, [](const THREADENTRY32& entry) {
            return entry.th32OwnerProcessID == GetCurrentProcessId();
        });
    counts.modules = countInSnapshot<MODULEENTRY32W>(TH32CS_SNAPMODULE, Module32FirstW, Module32NextW,
                                                     [](const MODULEENTRY32W&) { return true; });
    counts.kernelHandles = countKernelHandles();
    counts.gdiObjects = countGdiObjects();
    counts.windows = countWindows();
    counts.heapBytes = countHeapBytes();
    counts.privateBytes = countPrivateBytes();
    return counts;
}

} // namespace velk::check
