#pragma once

#include <cstdint>
#include <map>
#include <vector>

namespace velk::devkit {

// An enumeration that the caller has begun.
struct OpenEnumeration {
    int32_t kind = 0; // of what it gives
    std::vector<int32_t> handles;
    size_t next = 0;
};

// There because the caller enumerates in steps and has to end each enumeration: all that are open, by handles of their
// own, none twice.
class Enumerations {
public:
    int32_t begin(int32_t kind, std::vector<int32_t> handles)
    {
        m_open.emplace(++m_last, OpenEnumeration{kind, std::move(handles)});
        return m_last;
    }
    // Null when no such enumeration is open.
    OpenEnumeration* find(int32_t handle, int32_t kind)
    {
        const auto found = m_open.find(handle);
        return found == m_open.end() || found->second.kind != kind ? nullptr : &found->second;
    }
    void end(int32_t handle) { m_open.erase(handle); }
    void endAll() { m_open.clear(); }
    const std::map<int32_t, OpenEnumeration>& open() const { return m_open; }

private:
    std::map<int32_t, OpenEnumeration> m_open;
    int32_t m_last = 800000;
};

} // namespace velk::devkit
