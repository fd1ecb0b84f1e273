#include "support/processCounts.h"

#include <tlhelp32.h>
#include <winternl.h>

#include <bitset>
#include <vector>

namespace velk::test {
namespace {

constexpr SYSTEM_INFORMATION_CLASS allHandles = static_cast<SYSTEM_INFORMATION_CLASS>(16);
constexpr NTSTATUS lengthMismatch = static_cast<NTSTATUS>(0xC0000004);

struct HandleRow {
    ULONG process;
    UCHAR type;
    UCHAR flags;
    USHORT value;
    void* object;
    ACCESS_MASK access;
};
struct HandleTable {
    ULONG count;
    HandleRow rows[1];
};
static_assert(sizeof(HandleRow) == 16);

// The table that the system shows a process: rows of 24 bytes, a type in byte 14 for those in use.
constexpr size_t gdiTableInPeb = 0x94;
constexpr size_t gdiRows = 0x4000;
struct GdiRow {
    unsigned char before[14];
    unsigned char type;
    unsigned char after[9];
};
static_assert(sizeof(GdiRow) == 24);

using QuerySystem = NTSTATUS(WINAPI*)(SYSTEM_INFORMATION_CLASS, void*, ULONG, ULONG*);

QuerySystem querySystem()
{
    return reinterpret_cast<QuerySystem>(
        reinterpret_cast<void*>(GetProcAddress(GetModuleHandleW(L"ntdll.dll"), "NtQuerySystemInformation")));
}

unsigned char* peb()
{
    return static_cast<unsigned char*>(reinterpret_cast<void*>(__readfsdword(0x30)));
}

BOOL CALLBACK countWindow(HWND window, LPARAM count)
{
    ++*reinterpret_cast<size_t*>(count);
    if (GetAncestor(window, GA_PARENT) == GetDesktopWindow())
        EnumChildWindows(window, countWindow, count);
    return TRUE;
}

// The reader's own memory is not counted: the walk takes none.
void walkHeaps(size_t& blocks, size_t& bytes)
{
    HANDLE heaps[64];
    const DWORD count = GetProcessHeaps(64, heaps);
    for (DWORD index = 0; index < count; ++index) {
        HeapLock(heaps[index]);
        PROCESS_HEAP_ENTRY entry{};
        while (HeapWalk(heaps[index], &entry))
            if (entry.wFlags & PROCESS_HEAP_ENTRY_BUSY) {
                ++blocks;
                bytes += entry.cbData;
            }
        HeapUnlock(heaps[index]);
    }
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

template <size_t bits>
size_t bitsIn(const void* words)
{
    size_t count = 0;
    for (size_t word = 0; word < bits / 32; ++word)
        count += std::bitset<32>(static_cast<const ULONG*>(words)[word]).count();
    return count;
}

} // namespace

size_t handleCount()
{
    std::vector<unsigned char> room(1 << 20);
    while (querySystem()(allHandles, room.data(), static_cast<ULONG>(room.size()), nullptr) == lengthMismatch)
        room.resize(room.size() * 2);
    const auto* const table = reinterpret_cast<const HandleTable*>(room.data());
    size_t count = 0;
    for (ULONG row = 0; row < table->count; ++row)
        count += table->rows[row].process == GetCurrentProcessId() ? 1u : 0u;
    return count;
}

size_t gdiObjectCount()
{
    const auto* const rows = *reinterpret_cast<const GdiRow* const*>(peb() + gdiTableInPeb);
    size_t count = 0;
    for (size_t row = 0; row < gdiRows; ++row)
        count += rows[row].type != 0 ? 1u : 0u;
    return count;
}

size_t windowCount()
{
    size_t count = 0;
    EnumThreadWindows(GetCurrentThreadId(), countWindow, reinterpret_cast<LPARAM>(&count));
    for (HWND window = nullptr; (window = FindWindowExW(HWND_MESSAGE, window, nullptr, nullptr)) != nullptr;)
        count += GetWindowThreadProcessId(window, nullptr) == GetCurrentThreadId() ? 1u : 0u;
    return count;
}

size_t heapBlockCount()
{
    size_t blocks = 0;
    size_t bytes = 0;
    walkHeaps(blocks, bytes);
    return blocks;
}

bool areHeapBlocksCounted()
{
    constexpr size_t size = 344;   // bytes; nobody else's
    constexpr size_t often = 5000; // enough for any system to begin with groups
    std::array<void*, often> blocks{};
    for (void*& block : blocks)
        block = HeapAlloc(GetProcessHeap(), 0, size);
    const size_t before = heapBlockCount();
    for (void*& block : blocks)
        HeapFree(GetProcessHeap(), 0, std::exchange(block, nullptr));
    return before - heapBlockCount() == often;
}

size_t heapByteCount()
{
    size_t blocks = 0;
    size_t bytes = 0;
    walkHeaps(blocks, bytes);
    return bytes;
}

size_t threadCount()
{
    return countInSnapshot<THREADENTRY32>(
        TH32CS_SNAPTHREAD, Thread32First, Thread32Next,
        [](const THREADENTRY32& entry) { return entry.th32OwnerProcessID == GetCurrentProcessId(); });
}

size_t moduleCount()
{
    return countInSnapshot<MODULEENTRY32W>(TH32CS_SNAPMODULE, Module32FirstW, Module32NextW,
                                           [](const MODULEENTRY32W&) { return true; });
}

size_t threadSlotCount()
{
    struct Bitmap {
        ULONG size;
        const ULONG* bits;
    };
    const auto* const first = *reinterpret_cast<const Bitmap* const*>(peb() + 0x40);
    const auto* const further = *reinterpret_cast<const Bitmap* const*>(peb() + 0x150);
    return bitsIn<64>(first->bits) + bitsIn<1024>(further->bits);
}

ProcessCounts processCounts()
{
    return {{{L"handles", handleCount()},
             {L"GDI objects", gdiObjectCount()},
             {L"windows", windowCount()},
             {L"heap blocks", heapBlockCount()},
             {L"heap bytes", heapByteCount()},
             {L"threads", threadCount()},
             {L"modules", moduleCount()},
             {L"slots of threads", threadSlotCount()}}};
}

} // namespace velk::test
