#include "checker/wireRecord.h"

#include <algorithm>
#include <cstring>
#include <stdexcept>

namespace velk::check {

WireRecord::WireRecord(const char* name, const RecordLayout& layout)
    : m_name(name), m_layout(&layout), m_bytes(std::make_unique<GuardedBytes>(name, layout.wireSize))
{
    for (const FieldRow& row : layout.fields) {
        m_texts.push_back(nullptr);
        if (row.kind == FieldKind::text) {
            m_texts.back() =
                std::make_unique<CountedBuffer>(std::string(name) + "." + row.name, static_cast<size_t>(row.capacity));
            place(row);
        } else if (row.kind == FieldKind::number && row.capacity > 0)
            setNumber(row.name, row.capacity);
    }
}

const FieldRow& WireRecord::rowOf(std::string_view field) const
{
    for (const FieldRow& row : m_layout->fields)
        if (row.name == field)
            return row;
    throw std::out_of_range("no such field");
}

bool WireRecord::has(std::string_view field) const noexcept
{
    for (const FieldRow& row : m_layout->fields)
        if (row.name == field)
            return true;
    return false;
}

int32_t WireRecord::number(std::string_view field) const
{
    int32_t value = 0;
    std::memcpy(&value, m_bytes->data() + rowOf(field).wire, sizeof value);
    return value;
}

int16_t WireRecord::flag(std::string_view field) const
{
    int16_t value = 0;
    std::memcpy(&value, m_bytes->data() + rowOf(field).wire, sizeof value);
    return value;
}

const CountedBuffer& WireRecord::text(std::string_view field) const
{
    return textOf(rowOf(field));
}

const CountedBuffer& WireRecord::textOf(const FieldRow& row) const
{
    return *m_texts[static_cast<size_t>(&row - m_layout->fields.data())];
}

void WireRecord::setNumber(std::string_view field, int32_t number)
{
    std::memcpy(m_bytes->data() + rowOf(field).wire, &number, sizeof number);
}

void WireRecord::replaceText(std::string_view field, size_t capacity)
{
    const FieldRow& row = rowOf(field);
    auto& text = m_texts[static_cast<size_t>(&row - m_layout->fields.data())];
    text = std::make_unique<CountedBuffer>(text->name(), capacity);
    place(row);
}

// As another record's field of the same capacity stands, with what is behind its end.
void WireRecord::fillText(std::string_view field, const CountedBuffer& with)
{
    const CountedBuffer& own = text(field);
    std::copy_n(with.characters(), std::min(own.capacity(), with.capacity()), own.characters());
}

void WireRecord::presetTexts()
{
    for (const FieldRow& row : m_layout->fields)
        if (row.kind == FieldKind::text) {
            m_texts[static_cast<size_t>(&row - m_layout->fields.data())]->clear();
            place(row);
        }
}

void WireRecord::place(const FieldRow& row)
{
    const char* const characters = textOf(row).characters();
    std::memcpy(m_bytes->data() + row.wire, &characters, sizeof characters);
}

bool WireRecord::isPointerKept(const FieldRow& row) const noexcept
{
    const char* characters = nullptr;
    std::memcpy(&characters, m_bytes->data() + row.wire, sizeof characters);
    return characters == textOf(row).characters();
}

} // namespace velk::check
