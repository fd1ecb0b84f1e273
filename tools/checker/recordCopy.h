#pragma once

#include "checker/wireRecord.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace velk::check {

// What a record held, without the memory that it stood in.
class RecordCopy {
public:
    explicit RecordCopy(const WireRecord& record);

    int32_t number(std::string_view field) const;
    bool flag(std::string_view field) const { return number(field) != 0; }
    const std::string& text(std::string_view field) const;
    bool has(std::string_view field) const noexcept;

    // Names the first field in which another one differs, with both values; empty when they are the same.
    std::string difference(const RecordCopy& other, std::initializer_list<std::string_view> exceptFields = {}) const;

private:
    struct Field {
        const FieldRow* row;
        int32_t number;
        std::string text;
    };
    const Field& field(std::string_view name) const;
    std::vector<Field> m_fields;
};

} // namespace velk::check
