#pragma once

#include "checker/bench.h"

#include <cstdint>

namespace velk::check {

// Right calls in an order that a number decides: the same number, the same order. None of them is carried out in a
// database.
class Walk {
public:
    explicit Walk(Bench& bench) : m_bench(bench), m_state(bench.asked().seed) {}
    Walk(const Walk&) = delete;
    Walk& operator=(const Walk&) = delete;

    void run(int steps);

private:
    uint32_t random(size_t below);
    const HeardConnection* connection();
    int32_t object(const FolderKind& kind, int32_t folder);

    void oneStep();
    // What a step may be.
    void begin();
    void again();
    void reopen();
    void text();
    void hear();
    void select();
    void refresh();
    void properties();
    void enumerate();
    void leaveEnumeration();
    void fetch();
    void switchConnection();
    void source();
    void filter();
    void save();

    Bench& m_bench;
    ScriptedSession* m_session = nullptr;
    uint32_t m_state;
};

} // namespace velk::check
