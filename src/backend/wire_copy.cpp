#include "backend/wire_copy.h"

#include <algorithm>
#include <cstring>

namespace velk {
namespace {

bool isPreset(const FieldRow& row, Fill fill)
{
    return fill == Fill::preset && row.capacity > 0;
}

template <class T>
void put(std::byte* record, const FieldRow& row, T value)
{
    std::memcpy(record + row.wire, &value, sizeof value);
}

template <class T>
T take(const std::byte* record, const FieldRow& row)
{
    T value;
    std::memcpy(&value, record + row.wire, sizeof value);
    return value;
}

} // namespace

WireBlock::WireBlock(const RecordLayout& layout, const void* record, Fill fill, ansi::CodePage codePage)
    : m_layout(layout), m_codePage(codePage)
{
    size_t room = 0;
    for (const FieldRow& row : m_layout.fields)
        if (row.kind == FieldKind::text)
            room += noteText(row, record, fill);
        else if (row.kind == FieldKind::number)
            put(m_record.data(), row, isPreset(row, fill) ? row.capacity : memberOf<int32_t>(record, row));
        else
            put(m_record.data(), row, memberOf<bool>(record, row) ? VARIANT_TRUE : VARIANT_FALSE);
    if (room > 0)
        placeTexts(room, record, fill);
}

// Gives the room that the text takes in the block.
size_t WireBlock::noteText(const FieldRow& row, const void* record, Fill fill)
{
    const size_t length = isPreset(row, fill) ? static_cast<size_t>(row.capacity)
                                              : ansi::lengthOf(memberOf<std::wstring>(record, row), m_codePage);
    m_texts[m_textCount++] = {&row, length, nullptr};
    return ansi::countedSize(length);
}

void WireBlock::placeTexts(size_t room, const void* record, Fill fill)
{
    char* next = m_block.emplace(room).get();
    for (Text& text : std::span(m_texts.data(), m_textCount)) {
        text.bytes = ansi::placeCounted(next, text.length).data();
        if (!isPreset(*text.row, fill))
            ansi::write(memberOf<std::wstring>(record, *text.row), {text.bytes, text.length}, m_codePage);
        put(m_record.data(), *text.row, text.bytes);
        next += ansi::countedSize(text.length);
    }
}

void WireBlock::readBack(void* record, Texts texts) const
{
    for (const FieldRow& row : m_layout.fields)
        if (row.kind == FieldKind::number)
            memberOf<int32_t>(record, row) = take<int32_t>(m_record.data(), row);
        else if (row.kind == FieldKind::flag)
            memberOf<bool>(record, row) = take<VARIANT_BOOL>(m_record.data(), row) != VARIANT_FALSE;
    for (const Text& text : std::span(m_texts.data(), m_textCount)) {
        auto& member = memberOf<std::wstring>(record, *text.row);
        if (texts == Texts::trimmed && text.row->capacity > 0)
            ansi::readBeforeNul(member, {text.bytes, text.length}, m_codePage);
        else
            member = ansi::wideOf({text.bytes, text.length}, m_codePage);
    }
}

bool WireBlock::asksForMore() const noexcept
{
    return std::any_of(m_layout.fields.begin(), m_layout.fields.end(), [this](const FieldRow& row) {
        return row.kind == FieldKind::number && row.capacity > 0 && take<int32_t>(m_record.data(), row) > row.capacity;
    });
}

const char* WireBlock::overrunField() const noexcept
{
    for (const Text& text : std::span(m_texts.data(), m_textCount))
        if (ansi::isOverrun({text.bytes, text.length}))
            return text.row->name;
    return nullptr;
}

void makeAsNew(const RecordLayout& layout, void* record) noexcept
{
    for (const FieldRow& row : layout.fields)
        if (row.kind == FieldKind::text)
            memberOf<std::wstring>(record, row).clear();
        else if (row.kind == FieldKind::number)
            memberOf<int32_t>(record, row) = 0;
        else
            memberOf<bool>(record, row) = false;
}

void trimTexts(const RecordLayout& layout, void* record)
{
    for (const FieldRow& row : layout.fields)
        if (row.kind == FieldKind::text && row.capacity > 0)
            ansi::trimAtNull(memberOf<std::wstring>(record, row));
}

} // namespace velk
