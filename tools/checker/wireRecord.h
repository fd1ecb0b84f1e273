#pragma once

#include "checker/guarded.h"

#include "backend/fields.h"

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace velk::check {

// One of the records as the library gets it. It stands in guarded memory, as does every string of it.
class WireRecord {
public:
    template <class Record>
    static WireRecord of(const char* name)
    {
        return WireRecord(name, layoutOf<Record>());
    }
    WireRecord(const char* name, const RecordLayout& layout);

    const char* name() const noexcept { return m_name; }
    const RecordLayout& layout() const noexcept { return *m_layout; }
    void* address() const noexcept { return m_bytes->data(); }

    // Fields by their names.
    int32_t number(std::string_view field) const;
    int16_t flag(std::string_view field) const;
    const CountedBuffer& text(std::string_view field) const;
    bool has(std::string_view field) const noexcept;
    void setNumber(std::string_view field, int32_t number);
    // Gives a string another buffer, for the second attempt at a long text, or for an input.
    void replaceText(std::string_view field, size_t capacity);
    void fillText(std::string_view field, const CountedBuffer& with);
    // As the caller does before the next object of an enumeration: the strings are NULs again, numbers stay.
    void presetTexts();

    // What a call must not have changed: the addresses of the strings, what stands around them and around the record.
    bool isAround() const noexcept { return m_bytes->isFrontIntact() && m_bytes->isBackIntact(); }
    bool isPointerKept(const FieldRow& row) const noexcept;
    const CountedBuffer& textOf(const FieldRow& row) const;

private:
    const FieldRow& rowOf(std::string_view field) const;
    void place(const FieldRow& row);

    const char* m_name;
    const RecordLayout* m_layout;
    std::unique_ptr<GuardedBytes> m_bytes;
    std::vector<std::unique_ptr<CountedBuffer>> m_texts; // a place for each field, null where it is none
};

} // namespace velk::check
