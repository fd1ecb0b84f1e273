#pragma once

#include "support/fakeBackend.h"

#include <array>
#include <cstdint>
#include <string>
#include <vector>

namespace velk::bench {

// A tool with a folder of many procedures that answers at once, from texts that lie ready: what is measured is the
// add-in. Its objects have handles in a row from the first; those behind the folder's count can be asked for, but are
// not enumerated.
class QuickTool {
public:
    static constexpr int32_t folder = 20;
    static constexpr int32_t firstObject = 1000;
    static constexpr size_t textCount = 8; // of a procedure, in the order of its record

    explicit QuickTool(int32_t most);

    // How many objects the folder has.
    void setCount(int32_t objects) { m_count = objects; }
    // The object's texts, one of which is its name.
    static constexpr size_t name = 1;
    std::string_view text(int32_t handle, size_t index) const;
    int32_t resultSets(int32_t handle) const { return handle % 7; }

    // So many notifications of a type wait, the n-th about the object at first + n * step, counted round all objects,
    // or those before a wrap.
    void setWrap(int32_t objects) { m_wrap = objects; }
    void queue(int32_t type, int32_t notifications, int32_t first, int32_t step);
    bool hasMore() const { return m_next < m_queued; }

    test::FakeBackend backend;

private:
    void write(int32_t handle, test::wire::trzProcedure& record) const;
    int32_t next(test::wire::trzNotify& record, int16_t& more);
    void setCalls();

    struct Name {
        char text[23];
        uint8_t length;
    };
    std::vector<Name> m_names;
    int32_t m_count = 0;
    int32_t m_wrap = 0;
    int32_t m_enumerated = 0;
    int32_t m_type = 0, m_next = 0, m_queued = 0, m_first = 0, m_step = 0;
};

} // namespace velk::bench
