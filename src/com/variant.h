#pragma once

#include "base/win32.h"
#include "com/bstr.h"
#include "com/com_ptr.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace velk {

// Owns a VARIANT. The constructors name the automation type that goes over the wire: int16_t is VT_I2 and int32_t
// VT_I4, which matters to hosts that look before they convert.
class variant {
public:
    variant() noexcept { VariantInit(&m_value); }
    variant(int16_t number) noexcept : variant()
    {
        m_value.vt = VT_I2;
        m_value.iVal = number;
    }
    variant(int32_t number) noexcept : variant()
    {
        m_value.vt = VT_I4;
        m_value.lVal = number;
    }
    variant(bool truth) noexcept : variant()
    {
        m_value.vt = VT_BOOL;
        m_value.boolVal = truth ? VARIANT_TRUE : VARIANT_FALSE;
    }
    variant(std::wstring_view text) : variant()
    {
        m_value.bstrVal = bstr(text).detach();
        m_value.vt = VT_BSTR;
    }
    variant(const wchar_t* text) : variant(std::wstring_view(text)) {}
    variant(IDispatch* object) noexcept : variant()
    {
        m_value.vt = VT_DISPATCH;
        m_value.pdispVal = object;
        if (object)
            object->AddRef();
    }
    variant(const com_ptr<IDispatch>& object) noexcept : variant(object.get()) {}
    variant(const variant& other);
    variant(variant&& other) noexcept : m_value(other.m_value), m_isSecret(other.m_isSecret)
    {
        other.m_value.vt = VT_EMPTY;
    }
    ~variant() { clear(); }
    variant& operator=(variant other) noexcept
    {
        std::swap(m_value, other.m_value);
        std::swap(m_isSecret, other.m_isSecret);
        return *this;
    }

    // A text whose characters are zeroed before they are given back; so are those of its copies.
    static variant secret(std::wstring_view text);

    // A reference to the caller's variable, which must outlive the variant.
    static variant refTo(IDispatch** object) noexcept;
    static variant refTo(VARIANT* value) noexcept;

    const VARIANT& get() const noexcept { return m_value; }
    VARIANT* put() noexcept
    {
        clear();
        return &m_value;
    }
    VARTYPE type() const noexcept { return m_value.vt; }

    // Conversions by automation's own rules; a value that has none is error 13 (type mismatch) or 6 (overflow).
    int32_t asLong() const;
    bool asBool() const;
    std::wstring asText() const;
    // The object held, empty when the value is no object or nothing.
    com_ptr<IDispatch> asObject() const noexcept;

private:
    void clear() noexcept;

    VARIANT m_value;
    bool m_isSecret = false;
};

} // namespace velk
