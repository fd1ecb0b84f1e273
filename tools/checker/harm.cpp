// What a call did to the memory that it was given.
#include "checker/calls.h"
#include "checker/texts.h"

#include <bit>
#include <cstring>

namespace velk::check {
namespace {

// A flag written as 32 bits takes along the lower half of the address that follows it.
bool looksLikeFlag(const WireRecord& record, const FieldRow& row)
{
    const auto fields = record.layout().fields;
    const auto index = static_cast<size_t>(&row - fields.data());
    if (index == 0 || fields[index - 1].kind != FieldKind::flag || fields[index - 1].wire + 2 != row.wire)
        return false;
    const auto kept = std::bit_cast<uint32_t>(record.textOf(row).characters());
    uint32_t seen = 0;
    std::memcpy(&seen, static_cast<const char*>(record.address()) + row.wire, sizeof seen);
    const uint32_t low = seen & 0xFFFF;
    return seen >> 16 == kept >> 16 && (low == 0 || low == 0xFFFF);
}

// What stands in a long text that asks for more room is of no account.
bool isFirstAttempt(const WireRecord& record, const FieldRow& row)
{
    return std::string_view(row.name) == "strText" && record.has("lTextSz") &&
           record.number("lTextSz") > static_cast<int32_t>(record.textOf(row).capacity());
}

} // namespace

void Calls::checkString(const CountedBuffer& text)
{
    switch (text.harm()) {
    case Harm::none:
        return;
    case Harm::behind:
        m_probe.found(m_probe.blamed(Rule::R1),
                      "at most " + std::to_string(text.capacity()) + " bytes are written to " + text.name(),
                      "more are");
        return;
    case Harm::prefix:
        m_probe.found(m_probe.blamed(Rule::R2), "the length before " + text.name() + " stays as it is",
                      "it was written to");
        return;
    case Harm::before:
        m_probe.found(m_probe.blamed(Rule::R2), "nothing is written before " + text.name(), "something is");
        return;
    }
}

void Calls::checkRecord(const WireRecord& record, bool isFilled)
{
    if (!record.isAround())
        m_probe.found(m_probe.blamed(Rule::R5), "nothing is written outside of the record", "something is");
    for (const FieldRow& row : record.layout().fields)
        if (row.kind == FieldKind::text) {
            checkString(record.textOf(row));
            if (isFilled) // otherwise the record is nobody's
                checkField(record, row);
        }
}

void Calls::checkField(const WireRecord& record, const FieldRow& row)
{
    const CountedBuffer& text = record.textOf(row);
    if (!record.isPointerKept(row)) {
        if (looksLikeFlag(record, row))
            m_probe.found(Rule::R6, "flags of 16 bits", "the flag before " + text.name() + " was written with 32");
        else
            m_probe.found(Rule::R4, "the address of " + text.name() + " stays as it is", "it is another one");
    }
    if (text.capacity() == 0 || isFirstAttempt(record, row))
        return;
    if (!text.hasNul())
        m_probe.found(Rule::R3,
                      "a NUL in " + text.name() + ", within its " + std::to_string(text.capacity()) + " bytes",
                      "there is none");
    const std::string_view content = text.text();
    if (!isAnsi(content) || looksLikeUtf8(content))
        m_probe.found(Rule::R7, text.name() + " in code page " + std::to_string(GetACP()), check::shown(content));
}

void Calls::checkNumber(const GuardedBytes& number)
{
    if (!number.isFrontIntact() || !number.isBackIntact())
        m_probe.found(m_probe.blamed(Rule::R5), "nothing is written around " + number.name(), "something is");
}

} // namespace velk::check
