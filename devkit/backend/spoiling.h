#pragma once

#include "devkit/backend/records.h"
#include "devkit/contract/faultHook.h"

namespace velk::devkit {

// There because a caller must withstand a Backend that fails or says nonsense: calls that its host wants to fail.
void setCallFaultHook(FaultHook hook) noexcept;
Fault callFault(const wchar_t* call) noexcept;
// Whether the call does nothing at all. What ends something is done in any case: only its answer is wrong.
bool leavesWork(const wchar_t* call, Fault fault) noexcept;

// What such a call answers in place of its own answer.
int32_t wrongAnswer(int32_t answer, Fault fault) noexcept;
// Sets every number of a record, but for those of its text fields.
void spoilRecord(void* record, size_t size, std::span<const TextRow> texts, Fault fault) noexcept;

inline void spoil(wire::trzNotify* record, Fault fault) noexcept
{
    const int32_t type = record->lNotifyType;
    spoilRecord(record, sizeof *record, {}, fault);
    record->lNotifyType = fault == Fault::negative ? -1 : type; // else its handler would not be met
}
inline void spoil(wire::trzSQLText* record, Fault fault) noexcept
{
    char* const project = record->strVSProject; // not preset, so no row tells of it
    spoilRecord(record, sizeof *record, textRows(record), fault);
    record->strVSProject = project;
}
inline void spoil(wire::trzParameterDE*, Fault) noexcept
{
} // never given
template <class Record>
void spoil(Record* record, Fault fault) noexcept
{
    spoilRecord(record, sizeof *record, textRows(record), fault);
}
inline void spoil(int32_t* number, Fault fault) noexcept
{
    spoilRecord(number, sizeof *number, {}, fault);
}
// Whether more wait: said to be so for ever, it would be another fault than that of this call.
inline void spoil(int16_t* more, Fault) noexcept
{
    *more = 0;
}
inline void spoil(char*, Fault) noexcept
{
}
inline void spoil(char**, Fault) noexcept
{
}

template <class... Arguments>
int32_t spoiled(int32_t answer, Fault fault, Arguments... arguments) noexcept
{
    [[maybe_unused]] const auto spoilOne = [&](auto argument) {
        if constexpr (std::is_pointer_v<decltype(argument)>)
            if (argument)
                spoil(argument, fault);
    };
    if (fault != Fault::zero)
        (spoilOne(arguments), ...);
    return wrongAnswer(answer, fault);
}

} // namespace velk::devkit
