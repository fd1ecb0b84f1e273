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
    placeTexts(record, fill);
    placeNumbers(record, fill);
}

void WireBlock::placeTexts(const void* record, Fill fill)
{
    std::array<size_t, mostTextsInRecord> lengths{};
    size_t index = 0;
    size_t total = 0;
    for (const FieldRow& row : m_layout.fields) {
        if (row.kind != FieldKind::text)
            continue;
        lengths[index] = isPreset(row, fill) ? static_cast<size_t>(row.capacity)
                                             : ansi::lengthOf(memberOf<std::wstring>(record, row), m_codePage);
        total += ansi::countedSize(lengths[index++]);
    }
    if (total == 0)
        return;
    m_block.emplace(total);
    index = 0;
    char* next = m_block->get();
    for (const FieldRow& row : m_layout.fields) {
        if (row.kind != FieldKind::text)
            continue;
        const std::span<char> text = ansi::placeCounted(next, lengths[index]);
        if (!isPreset(row, fill))
            ansi::write(memberOf<std::wstring>(record, row), text, m_codePage);
        put(m_record.data(), row, text.data());
        next += ansi::countedSize(lengths[index]);
        m_texts[index++] = text;
    }
}

void WireBlock::placeNumbers(const void* record, Fill fill)
{
    for (const FieldRow& row : m_layout.fields)
        if (row.kind == FieldKind::number)
            put(m_record.data(), row, isPreset(row, fill) ? row.capacity : memberOf<int32_t>(record, row));
        else if (row.kind == FieldKind::flag)
            put(m_record.data(), row, memberOf<bool>(record, row) ? VARIANT_TRUE : VARIANT_FALSE);
}

void WireBlock::readText(std::wstring& text, std::span<const char> bytes, bool trimmed) const
{
    if (trimmed)
        ansi::readBeforeNul(text, bytes, m_codePage);
    else
        text = ansi::wideOf(bytes, m_codePage);
}

void WireBlock::readBack(void* record, Texts texts) const
{
    size_t index = 0;
    for (const FieldRow& row : m_layout.fields)
        if (row.kind == FieldKind::number)
            memberOf<int32_t>(record, row) = take<int32_t>(m_record.data(), row);
        else if (row.kind == FieldKind::flag)
            memberOf<bool>(record, row) = take<VARIANT_BOOL>(m_record.data(), row) != VARIANT_FALSE;
        else
            readText(memberOf<std::wstring>(record, row), m_texts[index++],
                     texts == Texts::trimmed && row.capacity > 0);
}

bool WireBlock::asksForMore() const noexcept
{
    return std::any_of(m_layout.fields.begin(), m_layout.fields.end(), [this](const FieldRow& row) {
        return row.kind == FieldKind::number && row.capacity > 0 && take<int32_t>(m_record.data(), row) > row.capacity;
    });
}

void trimTexts(const RecordLayout& layout, void* record)
{
    for (const FieldRow& row : layout.fields)
        if (row.kind == FieldKind::text && row.capacity > 0)
            ansi::trimAtNull(memberOf<std::wstring>(record, row));
}

} // namespace velk
