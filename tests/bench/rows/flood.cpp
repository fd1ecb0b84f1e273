// Floods of notifications: how long the IDE's window leaves a message of another thread without an answer while its own
// message loop works them off.
#include "measure.h"
#include "screen.h"

#include <algorithm>
#include <atomic>
#include <cstdlib>
#include <devkit/base/thread.h>

namespace velk::bench {
namespace {

constexpr int32_t objectChanged = 6;
constexpr int32_t objectRemoved = 7;
constexpr int32_t objectAdded = 8;

constexpr double longestSilence = 200; // milliseconds
constexpr int rounds = 3;

// Sends one message after the other to a window, and knows for how long the slowest answer was waited.
class Probe {
public:
    explicit Probe(HWND window) : m_thread([this, window] { probe(window); }) {}
    // The time in milliseconds; nothing is sent any more. The caller's thread answers until then.
    double end()
    {
        m_isOver = true;
        while (!m_hasEnded)
            answer();
        m_thread.join();
        return m_longest;
    }
    static void answer()
    {
        MSG message{};
        MsgWaitForMultipleObjects(0, nullptr, FALSE, 5, QS_ALLINPUT);
        if (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
            TranslateMessage(&message);
            DispatchMessageW(&message);
        }
    }

private:
    void probe(HWND window)
    {
        constexpr DWORD pause = 3;
        constexpr UINT patience = 60000;
        while (!m_isOver) {
            DWORD_PTR result = 0;
            m_longest = std::max(m_longest, milliseconds([&] {
                                     SendMessageTimeoutW(window, WM_NULL, 0, 0, SMTO_NORMAL, patience, &result);
                                 }));
            Sleep(pause);
        }
        m_hasEnded = true;
    }

    std::atomic<bool> m_isOver{false};
    std::atomic<bool> m_hasEnded{false};
    double m_longest = 0;
    devkit::Thread m_thread; // the last member: it uses the others
};

// The longest silence while notifications come, which the function sees to: false when there will be no more.
double silenceDuring(Screen& screen, const std::function<bool()>& comes)
{
    Probe probe(GetAncestor(screen.list(), GA_ROOT));
    while (comes() || screen.tool().hasMore())
        Probe::answer();
    screen.paint();
    return probe.end();
}

Outcome atOnce(int32_t objects, int32_t type, int32_t notifications, int32_t first)
{
    Screen screen(objects);
    screen.enterFolder();
    screen.orderBy(0);
    Outcome outcome;
    for (int round = 0; round < rounds; ++round) {
        screen.fill(objects);
        screen.tool().queue(type, notifications, first, 1);
        outcome.pairs.push_back({silenceDuring(screen, [] { return false; }), longestSilence});
    }
    return outcome;
}

Outcome changes(int32_t objects)
{
    return atOnce(objects, objectChanged, objects, 0);
}

Outcome removals(int32_t objects)
{
    return atOnce(objects, objectRemoved, objects, 0);
}

Outcome additions(int32_t objects)
{
    return atOnce(objects, objectAdded, objects / 10, objects);
}

double steadySeconds()
{
    const char* const wanted = std::getenv("VELK_FLOOD_SECONDS");
    const int seconds = wanted ? std::atoi(wanted) : 0;
    return seconds > 0 ? seconds : 10;
}

Outcome steadyChanges(int32_t objects)
{
    const double seconds = steadySeconds();
    constexpr double eachSecond = 10000;
    Screen screen(objects);
    screen.enterFolder();
    screen.fill(objects);
    screen.tool().setWrap(objects);
    const DWORD begun = GetTickCount();
    int32_t sent = 0;
    const auto comes = [&] {
        const double elapsed = std::min(seconds, (GetTickCount() - begun) / 1000.0);
        const int32_t due = static_cast<int32_t>(elapsed * eachSecond) - sent;
        if (due > 0 && !screen.tool().hasMore()) {
            screen.tool().queue(objectChanged, due, sent % objects, 7);
            sent += due;
        }
        return sent < static_cast<int32_t>(seconds * eachSecond);
    };
    return {{{silenceDuring(screen, comes), longestSilence}}};
}

// clang-format off
constexpr Row rows[] = {
    {"flood-change", "ms", 1, false, "100,000 changes at once of 100,000 rows, longest silence", "200 ms", changes},
    {"flood-remove", "ms", 1, false, "100,000 removals at once of 100,000 rows, longest silence", "200 ms", removals},
    {"flood-add",    "ms", 1, false, "10,000 additions at once to 100,000 ordered rows, longest silence", "200 ms",
     additions},
    {"flood-steady", "ms", 1, false, "10,000 changes a second for ten seconds, longest silence", "200 ms",
     steadyChanges},
};
// clang-format on

} // namespace

std::span<const Row> floodRows()
{
    return rows;
}

} // namespace velk::bench
