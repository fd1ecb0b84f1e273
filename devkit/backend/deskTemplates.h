#pragma once

// The templates of the class Desk, for its own source files.
#include "devkit/backend/desk.h"

#include <cstddef>
#include <cstring>
#include <optional>
#include <type_traits>

namespace velk::devkit {

template <class... Arguments>
bool Desk::enter(const wchar_t* name, Arguments... arguments)
{
    std::wstring list;
    ((list += (list.empty() ? L"" : L", ") + shown(arguments)), ...);
    const std::wstring call = std::wstring(name) + L"(" + list + L")";
    m_journal.line(call);
    return mayUseSession(call);
}

// False when a string is missing, so that the record cannot be filled.
template <class Record>
bool Desk::checkPresets(const Record* record, size_t exceptOffset)
{
    if (!record) {
        breach(L"there is no record");
        return false;
    }
    bool complete = true;
    for (const PresetRow& row : presetsOf(record)) {
        char* text = nullptr;
        std::memcpy(&text, reinterpret_cast<const char*>(record) + row.offset, sizeof text);
        if (row.offset == exceptOffset)
            complete = complete && text;
        else
            complete = checkPreset(row.name, text, row.capacity) && complete;
    }
    return complete;
}

// The field that holds a record's long text.
template <class Record>
const PresetRow& longField(const Record* record)
{
    for (const PresetRow& row : presetsOf(record))
        if (row.offset == offsetof(Record, strText))
            return row;
    return presetsOf(record).front();
}

template <class Kind>
std::optional<Kind> Desk::payload(int32_t handle)
{
    auto found = m_session->conversation().queue().payload<Kind>(handle);
    if (!found && !m_session->conversation().queue().everHad(handle))
        breach(L"nothing of this kind was ever queued");
    return found;
}

template <class Kind, class Record>
int32_t Desk::getLong(const wchar_t* name, int32_t handle, Record* record)
{
    if (!enter(name, handle))
        return 0;
    // The second attempt at a long text brings a longer buffer; the other fields come as the first one left them.
    const auto longer = m_longTexts.find(handle);
    bool complete = false;
    if (record && longer != m_longTexts.end() && record->lTextSz == longer->second) {
        complete =
            checkPreset(L"strText of the second attempt", record->strText, static_cast<size_t>(longer->second) + 1);
        complete = complete && stringsAreThere(*record);
    } else {
        complete = checkPresets(record);
        if (record && static_cast<size_t>(record->lTextSz) != longField(record).capacity)
            breach(L"lTextSz is " + std::to_wstring(record->lTextSz));
    }
    const auto found = payload<Kind>(handle);
    if (!found || !complete)
        return 0;
    fill(*record, *found);
    if (CountedString(record->strText).length() < static_cast<size_t>(record->lTextSz))
        m_longTexts[handle] = record->lTextSz;
    return 1;
}

template <class Kind, class Record>
int32_t Desk::getShort(const wchar_t* name, int32_t handle, Record* record)
{
    if (!enter(name, handle))
        return 0;
    const bool complete = checkPresets(record);
    const auto found = payload<Kind>(handle);
    if (!found || !complete)
        return 0;
    fill(*record, *found);
    return 1;
}

// Whether every string that is filled has a buffer, whatever is in it.
template <class Record>
bool Desk::stringsAreThere(const Record& record) const
{
    for (const PresetRow& row : presetsOf(&record)) {
        char* text = nullptr;
        std::memcpy(&text, reinterpret_cast<const char*>(&record) + row.offset, sizeof text);
        if (!text)
            return false;
    }
    return true;
}

template <class Record>
bool Desk::fillRecord(int32_t handle, Record& record)
{
    if constexpr (std::is_same_v<Record, wire::trzConnection>) {
        const auto facts = m_session->tree().connectionFacts(handle);
        if (facts)
            fill(record, handle, *facts);
        return facts.has_value();
    } else if constexpr (std::is_same_v<Record, wire::trzProject>) {
        const ProjectState* const project = m_session->tree().project(handle);
        if (project)
            fill(record, handle, project->facts);
        return project != nullptr;
    } else {
        const ObjectFacts* const facts = m_session->tree().facts(handle);
        if (facts)
            fill(record, handle, *facts);
        return facts != nullptr;
    }
}

template <class Record>
int32_t Desk::get(const wchar_t* name, int32_t kind, int32_t handle, Record* record)
{
    if (!enter(name, handle))
        return 0;
    const bool complete = checkPresets(record);
    return checkHandle(handle, kind) && complete && fillRecord(handle, *record) ? 1 : 0;
}

template <class Record>
int32_t Desk::enumNext(const wchar_t* name, int32_t kind, int32_t enumeration, Record* record)
{
    if (!enter(name, enumeration))
        return 0;
    const bool complete = checkPresets(record);
    const auto found = m_enumerations.find(enumeration);
    if (found == m_enumerations.end() || found->second.kind != kind) {
        breach(L"no such enumeration is open");
        return 0;
    }
    // An object may have gone since the enumeration began: the next one is given in its place.
    Enumeration& open = found->second;
    while (complete && open.next < open.handles.size())
        if (fillRecord(open.handles[open.next++], *record))
            return 1;
    return 0;
}

} // namespace velk::devkit
