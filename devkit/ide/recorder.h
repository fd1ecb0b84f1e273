#pragma once

#include <set>
#include <string>
#include <vector>

namespace velk::devkit {

// The journal of what an add-in asks of the IDE, and the members that are to fail. One for the process, used on the
// user-interface thread.
class Recorder {
public:
    // Lines are also appended to this file, as UTF-8; empty for no file.
    void setFile(const std::wstring& path) { m_path = path; }
    void write(const std::wstring& line);
    const std::vector<std::wstring>& lines() const { return m_lines; }
    void clear() { m_lines.clear(); }

    // Members by "Class.Member": not known at all, or known and failing.
    void setMissing(const std::wstring& list);
    void setFailing(const std::wstring& list);
    bool isMissing(const std::wstring& member) const { return m_missing.contains(member); }
    bool isFailing(const std::wstring& member) const { return m_failing.contains(member); }

private:
    std::wstring m_path;
    std::vector<std::wstring> m_lines;
    std::set<std::wstring> m_missing;
    std::set<std::wstring> m_failing;
};

Recorder& recorder();

} // namespace velk::devkit
