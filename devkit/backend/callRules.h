#pragma once

#include "devkit/backend/counted.h"
#include "devkit/backend/handles.h"
#include "devkit/backend/journal.h"
#include "devkit/backend/records.h"

#include <string>

namespace velk::devkit {

// There because the interface has rules that no compiler sees: writes down every call, and every rule that the caller
// broke in it.
class CallRules {
public:
    explicit CallRules(const Handles& handles) : m_handles(handles) {}
    CallRules(const CallRules&) = delete;
    CallRules& operator=(const CallRules&) = delete;

    Journal& journal() noexcept { return m_journal; }

    // A call begins, for those that write no line, or write it later.
    void begin(const wchar_t* name) { m_call = name; }
    // The line "name(arguments)".
    template <class... Arguments>
    std::wstring write(const wchar_t* name, Arguments... arguments)
    {
        std::wstring list;
        ((list += (list.empty() ? L"" : L", ") + shown(arguments)), ...);
        std::wstring line = std::wstring(name) + L"(" + list + L")";
        m_journal.line(line);
        return line;
    }
    // Both, and whether the session may be used.
    template <class... Arguments>
    bool enter(const wchar_t* name, Arguments... arguments)
    {
        m_call = write(name, arguments...);
        return mayUseSession();
    }
    // The session has begun; that it is used on another thread than that is a breach.
    bool mayUseSession();
    void sessionBegins();
    void sessionEnds() { m_isOpen = false; }

    void breach(const std::wstring& what) { m_journal.breach(m_call + L": " + what); }

    // A string argument of the caller.
    std::wstring input(char* text);
    // These are false when what they check cannot be used.
    bool checkPreset(const std::wstring& name, char* text, size_t capacity);
    template <class Record>
    bool checkPresets(const Record* record)
    {
        return checkPresets(record, textRows(record));
    }
    bool checkLive(int32_t handle);
    bool checkHandle(int32_t handle, int32_t kind);
    bool checkGiven(bool areGiven);

private:
    static std::wstring shown(int32_t number) { return std::to_wstring(number); }
    static std::wstring shown(char* text) { return L"\"" + CountedString(text).text() + L"\""; }
    bool checkPresets(const void* record, std::span<const TextRow> rows);

    const Handles& m_handles;
    Journal m_journal;
    std::wstring m_call; // the line of the call that is being served
    bool m_isOpen = false;
    unsigned long m_thread = 0;
};

} // namespace velk::devkit
