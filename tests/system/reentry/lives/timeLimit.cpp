#include "timeLimit.h"

#include <atomic>

namespace velk::devkit {
namespace {

constexpr UINT exitHang = 3;
// Milliseconds. A machine that is busy with other things gives a program little time: what works without an end shows
// by the time that it has used, and only what waits by the clock.
constexpr int64_t longestWork = 5000;
constexpr int64_t longestWait = 30000;
constexpr int64_t longestPair = 120000;

std::atomic<DWORD> pairBegan{0};
std::atomic<DWORD> lastBeat{0};
void (*tellHang)(const wchar_t*) = nullptr;

int64_t workSoFar()
{
    FILETIME ignored[2]{};
    FILETIME times[2]{};
    GetProcessTimes(GetCurrentProcess(), &ignored[0], &ignored[1], &times[0], &times[1]);
    int64_t total = 0;
    for (const FILETIME& time : times)
        total += static_cast<int64_t>((static_cast<uint64_t>(time.dwHighDateTime) << 32) | time.dwLowDateTime);
    return total / 10000;
}

// A moment may come just after the clock was read.
int64_t timeSince(DWORD moment)
{
    return static_cast<int32_t>(GetTickCount() - moment);
}

DWORD WINAPI watchTime(void*) noexcept
{
    DWORD beatSeen = 0;
    for (int64_t workThen = 0;; Sleep(200)) {
        if (beatSeen != lastBeat) {
            beatSeen = lastBeat;
            workThen = workSoFar();
        }
        const bool isInside = workSoFar() - workThen > longestWork || timeSince(beatSeen) > longestWait;
        if (!isInside && timeSince(pairBegan) <= longestPair)
            continue;
        tellHang(isInside ? L"inside one call" : L"never done");
        TerminateProcess(GetCurrentProcess(), exitHang);
    }
}

} // namespace

void startTimeLimit(void (*sayHang)(const wchar_t* how))
{
    tellHang = sayHang;
    beginPair();
    CloseHandle(CreateThread(nullptr, 0, watchTime, nullptr, 0, nullptr));
}

void beginPair()
{
    beat();
    pairBegan = GetTickCount();
}

void beat() noexcept
{
    lastBeat = GetTickCount();
}

} // namespace velk::devkit
