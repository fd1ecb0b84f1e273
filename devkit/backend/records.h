#pragma once

#include "devkit/backend/counted.h"
#include "devkit/backend/facts.h"
#include "devkit/backend/queue.h"
#include "devkit/contract/wire.h"

#include <cstring>
#include <span>

namespace velk::devkit {

// A string field of a record that is fetched: the caller presets it with so many NULs, and this text of the facts or
// the payload goes into it.
struct TextRow {
    const wchar_t* name;
    size_t offset;
    size_t capacity;
    const std::wstring& (*text)(const void* facts);
};

// What the caller has put into such a field of a record.
inline char* stringAt(const void* record, const TextRow& row)
{
    char* text = nullptr;
    std::memcpy(&text, static_cast<const char*>(record) + row.offset, sizeof text);
    return text;
}

// The string fields of each record, in the record's order.
std::span<const TextRow> textRows(const wire::trzText*);
std::span<const TextRow> textRows(const wire::trzSQLText*);
std::span<const TextRow> textRows(const wire::trzADOText*);
std::span<const TextRow> textRows(const wire::trzConnectionDE*);
std::span<const TextRow> textRows(const wire::trzCommandDE*);
std::span<const TextRow> textRows(const wire::trzProject*);
std::span<const TextRow> textRows(const wire::trzConnection*);
std::span<const TextRow> textRows(const wire::trzProcedure*);
std::span<const TextRow> textRows(const wire::trzFunction*);
std::span<const TextRow> textRows(const wire::trzTrigger*);
std::span<const TextRow> textRows(const wire::trzTable*);
std::span<const TextRow> textRows(const wire::trzView*);

// Fills a record's fields in place. Of a long text, lTextSz says how much room all of it needs with its NUL.
void fill(wire::trzText& record, const TextPayload& payload);
void fill(wire::trzSQLText& record, const SqlPayload& payload);
void fill(wire::trzADOText& record, const AdoPayload& payload);
void fill(wire::trzConnectionDE& record, const ConnectionDEPayload& payload);
void fill(wire::trzCommandDE& record, const CommandDEPayload& payload);
void fill(wire::trzProject& record, int32_t handle, const ProjectFacts& facts);
void fill(wire::trzConnection& record, int32_t handle, const ConnectionFacts& facts);
void fill(wire::trzProcedure& record, int32_t handle, const ObjectFacts& facts);
void fill(wire::trzFunction& record, int32_t handle, const ObjectFacts& facts);
void fill(wire::trzTrigger& record, int32_t handle, const ObjectFacts& facts);
void fill(wire::trzTable& record, int32_t handle, const ObjectFacts& facts);
void fill(wire::trzView& record, int32_t handle, const ObjectFacts& facts);

} // namespace velk::devkit
