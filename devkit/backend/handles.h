#pragma once

#include <cstdint>
#include <unordered_map>

namespace velk::devkit {

// Gives out the handles of projects, connections, folders and objects: from 1001 on, none twice.
class Handles {
public:
    int32_t make(int32_t kind)
    {
        m_live[++m_last] = kind;
        return m_last;
    }
    void end(int32_t handle) { m_live.erase(handle); }
    void endAll() { m_live.clear(); }
    // The kind of a handle that the caller may use; 0 of any other.
    int32_t kindOf(int32_t handle) const
    {
        const auto found = m_live.find(handle);
        return found == m_live.end() ? 0 : found->second;
    }

private:
    int32_t m_last = 1000;
    std::unordered_map<int32_t, int32_t> m_live;
};

} // namespace velk::devkit
