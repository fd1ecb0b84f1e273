#include "memory.h"

#include "base/error.h"
#include "base/win32.h"

#include <cerrno>
#include <cstring>
#include <oleauto.h>
#include <winternl.h>

namespace velk::devkit {
namespace {

AllocationGate gate = nullptr;
const wchar_t* gatedLibrary = nullptr;

using Address = void*;

// One function that allocates: what it is called, what stands in its place, and where the real one is.
struct Gated {
    const char* name;
    Address inPlace;
    Address* real;
};

// Answers null instead of the function's result when the gate is closed. Convention: as the function's type says.
#define VELK_GATED(convention, name, parameters, arguments)                                                            \
    Address real_##name = nullptr;                                                                                     \
    void* convention gated_##name parameters                                                                           \
    {                                                                                                                  \
        if (!gate(L"" #name)) {                                                                                        \
            errno = ENOMEM;                                                                                            \
            SetLastError(ERROR_NOT_ENOUGH_MEMORY);                                                                     \
            return nullptr;                                                                                            \
        }                                                                                                              \
        return reinterpret_cast<void*(convention*)parameters>(real_##name) arguments;                                  \
    }

VELK_GATED(__cdecl, malloc, (size_t size), (size))
VELK_GATED(__cdecl, calloc, (size_t count, size_t size), (count, size))
VELK_GATED(__cdecl, realloc, (void* block, size_t size), (block, size))
VELK_GATED(__stdcall, SysAllocString, (const OLECHAR* text), (text))
VELK_GATED(__stdcall, SysAllocStringLen, (const OLECHAR* text, UINT length), (text, length))
VELK_GATED(__stdcall, SysAllocStringByteLen, (LPCSTR bytes, UINT length), (bytes, length))
VELK_GATED(__stdcall, CoTaskMemAlloc, (SIZE_T size), (size))
VELK_GATED(__stdcall, HeapAlloc, (HANDLE heap, DWORD flags, SIZE_T size), (heap, flags, size))
VELK_GATED(__stdcall, GlobalAlloc, (UINT flags, SIZE_T size), (flags, size))
VELK_GATED(__stdcall, LocalAlloc, (UINT flags, SIZE_T size), (flags, size))
#undef VELK_GATED

#define VELK_ROW(name) {#name, reinterpret_cast<Address>(gated_##name), &real_##name}
const Gated functions[] = {
    VELK_ROW(malloc),
    VELK_ROW(calloc),
    VELK_ROW(realloc),
    VELK_ROW(SysAllocString),
    VELK_ROW(SysAllocStringLen),
    VELK_ROW(SysAllocStringByteLen),
    VELK_ROW(CoTaskMemAlloc),
    VELK_ROW(HeapAlloc),
    VELK_ROW(GlobalAlloc),
    VELK_ROW(LocalAlloc),
};
#undef VELK_ROW

template <class Type>
Type* at(const void* base, size_t offset)
{
    return reinterpret_cast<Type*>(reinterpret_cast<uintptr_t>(base) + offset);
}

void put(Address* slot, Address value)
{
    DWORD before = 0;
    VirtualProtect(slot, sizeof *slot, PAGE_READWRITE, &before);
    *slot = value;
    VirtualProtect(slot, sizeof *slot, before, &before);
}

void gateImport(const char* library, const char* name, Address* slot)
{
    for (const Gated& row : functions) {
        if (std::strcmp(row.name, name) != 0)
            continue;
        *row.real = reinterpret_cast<Address>(GetProcAddress(GetModuleHandleA(library), name));
        put(slot, row.inPlace);
    }
}

void gateImports(const void* image)
{
    const auto* const dos = at<const IMAGE_DOS_HEADER>(image, 0);
    const auto* const headers = at<const IMAGE_NT_HEADERS>(image, static_cast<size_t>(dos->e_lfanew));
    const DWORD list = headers->OptionalHeader.DataDirectory[IMAGE_DIRECTORY_ENTRY_IMPORT].VirtualAddress;
    for (const auto* library = at<const IMAGE_IMPORT_DESCRIPTOR>(image, list); library->Name; ++library) {
        const auto* name = at<const IMAGE_THUNK_DATA>(image, library->OriginalFirstThunk);
        auto* slot = at<Address>(image, library->FirstThunk);
        for (; name->u1.AddressOfData; ++name, ++slot)
            if (!IMAGE_SNAP_BY_ORDINAL(name->u1.Ordinal))
                gateImport(at<const char>(image, library->Name),
                           at<const IMAGE_IMPORT_BY_NAME>(image, name->u1.AddressOfData)->Name, slot);
    }
}

// The system's record of a library that comes or goes; its header is not in every tool chain.
struct LibraryNews {
    ULONG flags;
    const UNICODE_STRING* path;
    const UNICODE_STRING* name;
    void* image;
    ULONG size;
};
constexpr ULONG libraryCame = 1;

void CALLBACK hear(ULONG reason, const LibraryNews* news, void*) noexcept
{
    const std::wstring_view name(news->name->Buffer, news->name->Length / sizeof(wchar_t));
    if (reason == libraryCame && name == gatedLibrary)
        gateImports(news->image);
}

} // namespace

void gateAllocations(const wchar_t* library, AllocationGate mayAllocate)
{
    gate = mayAllocate;
    gatedLibrary = library;
    using Register = LONG(NTAPI*)(ULONG, decltype(&hear), void*, void**);
    const FARPROC found = GetProcAddress(GetModuleHandleW(L"ntdll.dll"), "LdrRegisterDllNotification");
    throwLastErrorUnless(found != nullptr);
    void* cookie = nullptr;
    reinterpret_cast<Register>(reinterpret_cast<void*>(found))(0, hear, nullptr, &cookie);
}

} // namespace velk::devkit
