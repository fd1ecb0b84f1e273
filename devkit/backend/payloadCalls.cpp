// The calls that fetch what a notification points to.
#include "devkit/backend/calls.h"

#include <algorithm>
#include <cstddef>
#include <optional>

namespace velk::devkit::calls {
namespace {

// The field that holds a record's long text.
template <class Record>
const TextRow& longField(const Record* record)
{
    for (const TextRow& row : textRows(record))
        if (row.offset == offsetof(Record, strText))
            return row;
    return textRows(record).front();
}

// Whether every string that is filled has a buffer, whatever is in it.
template <class Record>
bool stringsAreThere(const Record& record)
{
    return std::ranges::all_of(textRows(&record), [&](const TextRow& row) { return stringAt(&record, row); });
}

template <class Kind>
std::optional<Kind> payload(Desk& desk, int32_t handle)
{
    auto found = desk.session->conversation().queue().payload<Kind>(handle);
    if (!found && !desk.session->conversation().queue().everHad(handle))
        desk.rules.breach(L"nothing of this kind was ever queued");
    return found;
}

template <class Kind, class Record>
int32_t getLong(Desk& desk, const wchar_t* name, int32_t handle, Record* record)
{
    if (!desk.rules.enter(name, handle))
        return 0;
    // The second attempt at a long text brings a longer buffer; the other fields come as the first one left them.
    const auto longer = desk.longTexts.find(handle);
    bool complete = false;
    if (record && longer != desk.longTexts.end() && record->lTextSz == longer->second) {
        complete = desk.rules.checkPreset(L"strText of the second attempt", record->strText,
                                          static_cast<size_t>(longer->second) + 1);
        complete = complete && stringsAreThere(*record);
    } else {
        complete = desk.rules.checkPresets(record);
        if (record && static_cast<size_t>(record->lTextSz) != longField(record).capacity)
            desk.rules.breach(L"lTextSz is " + std::to_wstring(record->lTextSz));
    }
    const auto found = payload<Kind>(desk, handle);
    if (!found || !complete)
        return 0;
    fill(*record, *found);
    if (CountedString(record->strText).length() < static_cast<size_t>(record->lTextSz))
        desk.longTexts[handle] = record->lTextSz;
    return 1;
}

template <class Kind, class Record>
int32_t getShort(Desk& desk, const wchar_t* name, int32_t handle, Record* record)
{
    if (!desk.rules.enter(name, handle))
        return 0;
    const bool complete = desk.rules.checkPresets(record);
    const auto found = payload<Kind>(desk, handle);
    if (!found || !complete)
        return 0;
    fill(*record, *found);
    return 1;
}

} // namespace

int32_t RZGetText(Desk& desk, int32_t handle, wire::trzText* record)
{
    return getLong<TextPayload>(desk, L"RZGetText", handle, record);
}

int32_t RZGetSQLText(Desk& desk, int32_t handle, wire::trzSQLText* record)
{
    return getLong<SqlPayload>(desk, L"RZGetSQLText", handle, record);
}

int32_t RZGetADOText(Desk& desk, int32_t handle, wire::trzADOText* record)
{
    return getLong<AdoPayload>(desk, L"RZGetADOText", handle, record);
}

int32_t RZConnectionGetDE(Desk& desk, int32_t handle, wire::trzConnectionDE* record)
{
    return getShort<ConnectionDEPayload>(desk, L"RZConnectionGetDE", handle, record);
}

int32_t RZCommandGetDE(Desk& desk, int32_t handle, wire::trzCommandDE* record)
{
    return getShort<CommandDEPayload>(desk, L"RZCommandGetDE", handle, record);
}

} // namespace velk::devkit::calls
