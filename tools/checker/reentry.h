#pragma once

#include "checker/bench.h"

namespace velk::check {

// A message waits whenever a call begins. Should the library work off messages inside of it, something else is asked of
// it there.
class Reentry {
public:
    explicit Reentry(Bench& bench) : m_bench(bench) {}
    Reentry(const Reentry&) = delete;
    Reentry& operator=(const Reentry&) = delete;
    ~Reentry();

    // False when no call worked off messages.
    bool run();

private:
    enum Inner { hears, selects, acts, enumerates, ends, innerCount };
    static LRESULT CALLBACK procedure(HWND window, UINT message, WPARAM first, LPARAM second) noexcept;
    void makeWindow();
    void happen();
    void open(Inner inner);
    void settle();
    void tryAll(Inner inner);

    Bench& m_bench;
    HWND m_window = nullptr;
    Inner m_inner = hears;
    HeardConnection m_connection;
    int m_times = 0;
    bool m_isEnded = false;
};

} // namespace velk::check
