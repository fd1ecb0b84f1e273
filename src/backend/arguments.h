#pragma once

#include "backend/ansi.h"
#include "backend/text_face.h"
#include "backend/wire_copy.h"

#include "com/bstr.h"

#include <cstdint>
#include <string>

// The kinds of arguments of the Backend's functions. Face is how a caller in the add-in gives the argument; a value
// of the kind lives for one call, wire() is what is handed over, readBack() brings home what the Backend changed.
namespace velk::arguments {

class Long {
public:
    using Face = int32_t;
    using Wire = int32_t;
    explicit Long(Face value) noexcept : m_value(value) {}
    Wire wire() noexcept { return m_value; }
    void readBack() const noexcept {}

private:
    int32_t m_value;
};

class LongOut {
public:
    using Face = int32_t&;
    using Wire = int32_t*;
    explicit LongOut(Face variable) noexcept : m_variable(variable) {}
    Wire wire() noexcept { return &m_variable; }
    void readBack() const noexcept {}

private:
    int32_t& m_variable;
};

// A truth value of 16 bits.
class FlagOut {
public:
    using Face = bool&;
    using Wire = int16_t*;
    explicit FlagOut(Face variable) noexcept : m_variable(variable), m_flag(variable ? VARIANT_TRUE : VARIANT_FALSE) {}
    Wire wire() noexcept { return &m_flag; }
    void readBack() const noexcept { m_variable = m_flag != VARIANT_FALSE; }

private:
    bool& m_variable;
    int16_t m_flag;
};

// A counted string, never null. The Backend may write into it.
class Text {
public:
    using Face = const TextFace&;
    using Wire = char*;
    explicit Text(Face face) : m_face(face), m_text(face.text()) {}
    Wire wire() noexcept { return m_text.get(); }
    void readBack() const { m_face.assign(ansi::wideOf(m_text.bytes())); }
    bool isOverrun() const noexcept { return ansi::isOverrun(m_text.bytes()); }

private:
    TextFace m_face;
    ansi::CountedText m_text;
};

// The address of a variable that holds a counted string, which the Backend may replace by one of its own.
class TextRef {
public:
    using Face = std::wstring&;
    using Wire = BSTR*;
    explicit TextRef(Face variable);
    Wire wire() noexcept { return m_text.ref(); }
    void readBack() const;

private:
    std::wstring& m_variable;
    bstr m_text; // bytes of the ANSI code page, not wide characters
};

// A record that the Backend fills.
template <class R>
class Record {
public:
    using Face = R&;
    using Wire = void*;
    explicit Record(Face record) : m_record(record), m_copy(record) {}
    Wire wire() noexcept { return m_copy.address(); }
    void readBack() const { m_copy.readBack(m_record); }

private:
    R& m_record;
    WireCopy<R> m_copy;
};

} // namespace velk::arguments
