#pragma once

#include "backend/records.h"

#include <cstddef>
#include <cstdint>
#include <span>

namespace velk {

enum class FieldKind : uint8_t { number, flag, text };

// One field: where it stands in the add-in's record and in the Backend's (byte offsets), and what it is preset to
// before a call that fills the record: a text to that many NULs, a number to that value; 0 means left as it stands.
struct FieldRow {
    FieldKind kind;
    uint16_t member;
    uint16_t wire;
    int32_t capacity;
    const char* name;
};

struct RecordLayout {
    std::span<const FieldRow> fields;
    size_t wireSize;
};

// Room for any of the records: bytes and texts. There is some to spare.
inline constexpr size_t largestWireRecord = 64;
inline constexpr size_t mostTextsInRecord = 12;

// The layout of each record.
template <class Record>
const RecordLayout& layoutOf() noexcept;

// The member of a record that a row stands for.
template <class Member>
Member& memberOf(void* record, const FieldRow& row) noexcept
{
    return *reinterpret_cast<Member*>(static_cast<std::byte*>(record) + row.member);
}
template <class Member>
const Member& memberOf(const void* record, const FieldRow& row) noexcept
{
    return *reinterpret_cast<const Member*>(static_cast<const std::byte*>(record) + row.member);
}

} // namespace velk
