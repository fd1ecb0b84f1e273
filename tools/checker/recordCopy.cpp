#include "checker/recordCopy.h"

#include "checker/texts.h"

#include <algorithm>
#include <stdexcept>

namespace velk::check {

RecordCopy::RecordCopy(const WireRecord& record)
{
    for (const FieldRow& row : record.layout().fields) {
        Field& field = m_fields.emplace_back(Field{&row, 0, {}});
        if (row.kind == FieldKind::text)
            field.text = record.textOf(row).text();
        else
            field.number = row.kind == FieldKind::flag ? record.flag(row.name) : record.number(row.name);
    }
}

const RecordCopy::Field& RecordCopy::field(std::string_view name) const
{
    for (const Field& field : m_fields)
        if (field.row->name == name)
            return field;
    throw std::out_of_range("no such field");
}

int32_t RecordCopy::number(std::string_view name) const
{
    return field(name).number;
}

const std::string& RecordCopy::text(std::string_view name) const
{
    return field(name).text;
}

bool RecordCopy::has(std::string_view name) const noexcept
{
    for (const Field& field : m_fields)
        if (field.row->name == name)
            return true;
    return false;
}

std::string RecordCopy::difference(const RecordCopy& other, std::initializer_list<std::string_view> exceptFields) const
{
    for (size_t index = 0; index < m_fields.size(); ++index) {
        const Field& one = m_fields[index];
        const Field& two = other.m_fields[index];
        if (std::find(exceptFields.begin(), exceptFields.end(), one.row->name) != exceptFields.end())
            continue;
        if (one.number != two.number)
            return std::string(one.row->name) + " is " + std::to_string(one.number) + ", then " +
                   std::to_string(two.number);
        if (one.text != two.text)
            return std::string(one.row->name) + " is " + shown(one.text) + ", then " + shown(two.text);
    }
    return {};
}

} // namespace velk::check
