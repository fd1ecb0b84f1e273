// What of the compiler's run-time library is done otherwise in a DLL that a host loads and unloads, and whose host may
// run out of memory.
// Tested in tests/system/reentry/cyclesTest.cpp.
#include "addin/entry/runTime.h"

#include "base/unique_any.h"

#include <array>
#include <cstdlib>
#include <cstring>
#include <exception>

namespace velk {
namespace {

// Exceptions. The run-time's own memory for them is a block of the heap that it never gives back, with a lock.
constexpr size_t headerRoom = 128; // before the object; the run-time's own header takes less
constexpr size_t placeSize = 512;
constexpr size_t placeCount = 32; // at once, of all that are being thrown and handled

alignas(16) std::array<std::array<unsigned char, placeSize>, placeCount> places;
std::array<volatile LONG, placeCount> isTaken;

void* placeFor(size_t size) noexcept
{
    for (size_t index = 0; size <= placeSize && index < placeCount; ++index)
        if (InterlockedExchange(&isTaken[index], TRUE) == FALSE)
            return places[index].data();
    return std::malloc(size);
}

void* cleanPlaceFor(size_t size) noexcept
{
    void* const place = placeFor(size);
    if (!place)
        std::terminate();
    std::memset(place, 0, headerRoom);
    return place;
}

void letGoOf(void* place) noexcept
{
    for (size_t index = 0; index < placeCount; ++index)
        if (places[index].data() == place) {
            InterlockedExchange(&isTaken[index], FALSE);
            return;
        }
    std::free(place);
}

// Locks and slots of threads, which nothing but the run-time makes here.
constexpr size_t mostKept = 8;
std::array<HANDLE, mostKept> semaphores;
std::array<DWORD, mostKept> slots;
size_t semaphoreCount = 0;
size_t slotCount = 0;

using CreateSemaphoreFunction = HANDLE(WINAPI*)(LPSECURITY_ATTRIBUTES, LONG, LONG, LPCWSTR);
using TlsAllocFunction = DWORD(WINAPI*)();

template <class Function>
Function systemFunction(const char* name) noexcept
{
    return reinterpret_cast<Function>(reinterpret_cast<void*>(GetProcAddress(GetModuleHandleW(L"kernel32.dll"), name)));
}

HANDLE WINAPI createSemaphore(LPSECURITY_ATTRIBUTES security, LONG first, LONG most, LPCWSTR name) noexcept
{
    const HANDLE made = systemFunction<CreateSemaphoreFunction>("CreateSemaphoreW")(security, first, most, name);
    if (made && semaphoreCount < mostKept)
        semaphores[semaphoreCount++] = made;
    return made;
}

DWORD WINAPI allocateSlot() noexcept
{
    const DWORD slot = systemFunction<TlsAllocFunction>("TlsAlloc")();
    if (slot != TLS_OUT_OF_INDEXES && slotCount < mostKept)
        slots[slotCount++] = slot;
    return slot;
}

// Unwind tables. As the module begins, the run-time gives its tables to its shared library if another module brought
// that into the process, but looks for them in itself: the first exception would find nobody. It must not see that
// library.
using GetModuleFunction = HMODULE(WINAPI*)(LPCSTR);

HMODULE WINAPI moduleByName(LPCSTR name) noexcept
{
    if (name && std::strcmp(name, "libgcc_s_dw2-1.dll") == 0)
        return nullptr;
    return systemFunction<GetModuleFunction>("GetModuleHandleA")(name);
}

} // namespace

void giveBackRunTime() noexcept
{
    while (semaphoreCount > 0)
        unique_kernel_handle(semaphores[--semaphoreCount]).reset();
    while (slotCount > 0)
        TlsFree(slots[--slotCount]);
}

} // namespace velk

extern "C" {

// The run-time's functions of these names are taken from here then, and its own are not linked.
void* __cxa_allocate_exception(size_t size) noexcept;
void __cxa_free_exception(void* object) noexcept;
void* __cxa_allocate_dependent_exception() noexcept;
void __cxa_free_dependent_exception(void* header) noexcept;

void* __cxa_allocate_exception(size_t size) noexcept
{
    return static_cast<unsigned char*>(velk::cleanPlaceFor(velk::headerRoom + size)) + velk::headerRoom;
}

void __cxa_free_exception(void* object) noexcept
{
    velk::letGoOf(static_cast<unsigned char*>(object) - velk::headerRoom);
}

void* __cxa_allocate_dependent_exception() noexcept
{
    return velk::cleanPlaceFor(velk::headerRoom);
}

void __cxa_free_dependent_exception(void* header) noexcept
{
    velk::letGoOf(header);
}

// The names under which the linker looks for the addresses of imported functions.
extern const velk::CreateSemaphoreFunction importedCreateSemaphore __asm__("__imp__CreateSemaphoreW@16");
const velk::CreateSemaphoreFunction importedCreateSemaphore = velk::createSemaphore;
extern const velk::TlsAllocFunction importedTlsAlloc __asm__("__imp__TlsAlloc@0");
const velk::TlsAllocFunction importedTlsAlloc = velk::allocateSlot;
extern const velk::GetModuleFunction importedGetModule __asm__("__imp__GetModuleHandleA@4");
const velk::GetModuleFunction importedGetModule = velk::moduleByName;
}

namespace __gnu_cxx {

// An exception that nobody catches ends the process. The run-time's own handler would first print its type's name in
// plain words; what makes them is larger than a floor of ours.
void __verbose_terminate_handler()
{
    std::abort();
}

} // namespace __gnu_cxx
