#include "timeLimit.h"

#include <atomic>

namespace velk::devkit {
namespace {

constexpr UINT exitHang = 3;
constexpr int longestPair = 30000;   // milliseconds
constexpr int longestSilence = 5000; // milliseconds

std::atomic<DWORD> pairBegan{0};
std::atomic<DWORD> lastBeat{0};
std::atomic<bool> isSilenceLimited{false};
void (*tellHang)() = nullptr;

DWORD WINAPI watchTime(void*) noexcept
{
    for (;; Sleep(200)) {
        const DWORD now = GetTickCount();
        // A moment may come just after the clock was read.
        const auto isOver = [&](DWORD since, int limit) { return static_cast<int>(now - since) > limit; };
        if (!isOver(pairBegan, longestPair) && !(isSilenceLimited && isOver(lastBeat, longestSilence)))
            continue;
        tellHang();
        TerminateProcess(GetCurrentProcess(), exitHang);
    }
}

} // namespace

void startTimeLimit(void (*sayHang)())
{
    tellHang = sayHang;
    beginPair(false);
    CloseHandle(CreateThread(nullptr, 0, watchTime, nullptr, 0, nullptr));
}

void beginPair(bool limitsSilence)
{
    beat();
    pairBegan = GetTickCount();
    isSilenceLimited = limitsSilence;
}

void beat() noexcept
{
    lastBeat = GetTickCount();
}

} // namespace velk::devkit
