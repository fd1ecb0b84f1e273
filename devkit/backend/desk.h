#pragma once

#include "devkit/backend/counted.h"
#include "devkit/backend/handles.h"
#include "devkit/backend/journal.h"
#include "devkit/backend/records.h"
#include "devkit/backend/session.h"
#include "devkit/backend/texts.h"
#include "devkit/contract/wire.h"

#include <map>
#include <memory>
#include <string>

namespace velk::devkit {

// Where the caller's calls arrive: one function for each export, with its arguments. Writes the journal, checks that
// the caller keeps the rules of the interface, and translates between its records and the session. Every function
// answers 0 for failure or the end of an enumeration.
class Desk {
public:
    Desk();
    Desk(const Desk&) = delete;
    Desk& operator=(const Desk&) = delete;
    ~Desk();

#define BACKEND_EXPORT(name, parameters, arguments) int32_t name parameters;
#include "devkit/contract/exports.inc"
#undef BACKEND_EXPORT

    bool isOpen() const { return m_session != nullptr; }
    bool isWorking() const { return m_session && m_session->isWorking(); }
    Journal& journal() noexcept { return m_journal; }

private:
    struct Enumeration {
        int32_t container = 0;
        int32_t kind = 0; // of what it gives
        std::vector<int32_t> handles;
        size_t next = 0;
    };

    // The line "name(arguments)", and whether the session may be used: it has begun, and on this thread.
    template <class... Arguments>
    bool enter(const wchar_t* name, Arguments... arguments);
    bool mayUseSession(const std::wstring& call);
    void breach(const std::wstring& what) { m_journal.breach(m_call + L": " + what); }

    std::wstring shown(int32_t number) const { return std::to_wstring(number); }
    std::wstring shown(char* text) const { return L"\"" + CountedString(text).text() + L"\""; }
    // A string argument of the caller, checked.
    std::wstring input(char* text);
    bool checkPreset(const std::wstring& name, char* text, size_t capacity);
    template <class Record>
    bool checkPresets(const Record* record, size_t exceptOffset = static_cast<size_t>(-1));
    bool checkHandle(int32_t handle, int32_t kind);

    int32_t giveText(int32_t number, char* buffer, int32_t capacity, const std::vector<std::wstring>& parameters);
    int32_t notAvailable(int32_t action);
    template <class Kind>
    std::optional<Kind> payload(int32_t handle);
    template <class Kind, class Record>
    int32_t getLong(const wchar_t* name, int32_t handle, Record* record);
    template <class Kind, class Record>
    int32_t getShort(const wchar_t* name, int32_t handle, Record* record);
    template <class Record>
    bool stringsAreThere(const Record& record) const;

    int32_t enumBegin(const wchar_t* name, int32_t kind, int32_t container, int32_t* count, int32_t* enumeration);
    template <class Record>
    int32_t enumNext(const wchar_t* name, int32_t kind, int32_t enumeration, Record* record);
    int32_t enumEnd(const wchar_t* name, int32_t kind, int32_t enumeration);
    template <class Record>
    int32_t get(const wchar_t* name, int32_t kind, int32_t handle, Record* record);
    template <class Record>
    bool fillRecord(int32_t handle, Record& record);

    Journal m_journal;
    Handles m_handles;
    TextTable m_texts;
    std::unique_ptr<Session> m_session;
    unsigned long m_thread = 0;
    std::wstring m_call; // the line of the call that is being served
    std::map<int32_t, Enumeration> m_enumerations;
    int32_t m_lastEnumeration = 800000;
    std::map<int32_t, int32_t> m_longTexts; // texts that did not fit at first, and the room that they need
};

} // namespace velk::devkit
