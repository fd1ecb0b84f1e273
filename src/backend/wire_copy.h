#pragma once

#include "backend/ansi.h"
#include "backend/fields.h"

#include <array>
#include <cstddef>
#include <optional>
#include <span>

namespace velk {

// What goes into the ANSI copy: the presets of a record that is to be filled (fields without a preset as they
// stand), or every field as it stands.
enum class Fill { preset, asItStands };
// How the texts come back: the preset ones cut at their first NUL (empty when they have none), or all of them whole.
enum class Texts { trimmed, whole };

// The ANSI copy of a record for one call, with all its counted strings in one block. The Backend writes into the
// strings and never replaces them, so they are read back from where they were put.
class WireBlock {
public:
    WireBlock(const RecordLayout& layout, const void* record, Fill fill, ansi::CodePage codePage);
    WireBlock(const WireBlock&) = delete;
    WireBlock& operator=(const WireBlock&) = delete;

    void* address() noexcept { return m_record.data(); }
    void readBack(void* record, Texts texts) const;
    // Whether a number that was preset to a capacity came back greater: the text did not fit.
    bool asksForMore() const noexcept;
    // The name of the first text past whose end something was written; null when there is none.
    const char* overrunField() const noexcept;

private:
    // A counted string in the block.
    struct Text {
        const FieldRow* row;
        size_t length;
        char* bytes;
    };
    size_t noteText(const FieldRow& row, const void* record, Fill fill);
    void placeTexts(size_t room, const void* record, Fill fill);

    const RecordLayout& m_layout;
    ansi::CodePage m_codePage;
    alignas(4) std::array<std::byte, largestWireRecord> m_record{};
    std::array<Text, mostTextsInRecord> m_texts; // the first of them are in use
    size_t m_textCount = 0;
    std::optional<ansi::TextBlock> m_block; // none for a record without texts
};

template <class Record>
class WireCopy : private WireBlock {
public:
    explicit WireCopy(const Record& record, Fill fill = Fill::preset, ansi::CodePage codePage = ansi::processCodePage)
        : WireBlock(layoutOf<Record>(), &record, fill, codePage)
    {
    }
    using WireBlock::address;
    using WireBlock::asksForMore;
    using WireBlock::overrunField;
    void readBack(Record& record, Texts texts = Texts::trimmed) const { WireBlock::readBack(&record, texts); }
};

// Makes a record what it was when it was made: numbers 0, flags false, texts empty. These keep their memory.
void makeAsNew(const RecordLayout& layout, void* record) noexcept;
template <class Record>
void makeAsNew(Record& record) noexcept
{
    makeAsNew(layoutOf<Record>(), &record);
}

// Cuts the preset texts of a record at their first NUL.
void trimTexts(const RecordLayout& layout, void* record);
template <class Record>
void trimTexts(Record& record)
{
    trimTexts(layoutOf<Record>(), &record);
}

} // namespace velk
