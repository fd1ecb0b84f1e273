#include "com/variant.h"

#include "base/error.h"

#include <utility>

namespace velk {
namespace {

variant converted(const VARIANT& value, VARTYPE type)
{
    variant result;
    throwIfFailed(VariantChangeType(result.put(), const_cast<VARIANT*>(&value), VARIANT_ALPHABOOL, type));
    return result;
}

} // namespace

variant::variant(const variant& other) : variant()
{
    throwIfFailed(VariantCopy(&m_value, const_cast<VARIANT*>(&other.m_value)));
    m_isSecret = other.m_isSecret;
}

variant variant::secret(std::wstring_view text)
{
    variant result(text);
    result.m_isSecret = true;
    return result;
}

void variant::clear() noexcept
{
    // The system keeps freed strings for the next ones, as they are.
    if (std::exchange(m_isSecret, false) && m_value.vt == VT_BSTR && m_value.bstrVal)
        SecureZeroMemory(m_value.bstrVal, SysStringByteLen(m_value.bstrVal));
    VariantClear(&m_value);
}

variant variant::refTo(IDispatch** object) noexcept
{
    variant result;
    result.m_value.vt = VT_DISPATCH | VT_BYREF;
    result.m_value.ppdispVal = object;
    return result;
}

variant variant::refTo(VARIANT* value) noexcept
{
    variant result;
    result.m_value.vt = VT_VARIANT | VT_BYREF;
    result.m_value.pvarVal = value;
    return result;
}

int32_t variant::asLong() const
{
    return converted(m_value, VT_I4).m_value.lVal;
}

bool variant::asBool() const
{
    return converted(m_value, VT_BOOL).m_value.boolVal != VARIANT_FALSE;
}

std::wstring variant::asText() const
{
    const variant text = converted(m_value, VT_BSTR);
    return std::wstring(bstr::viewOf(text.m_value.bstrVal));
}

com_ptr<IDispatch> variant::asObject() const noexcept
{
    if (m_value.vt == VT_DISPATCH)
        return m_value.pdispVal;
    if (m_value.vt == VT_UNKNOWN)
        return com_ptr<IUnknown>(m_value.punkVal).tryAs<IDispatch>();
    if (m_value.vt == (VT_DISPATCH | VT_BYREF) && m_value.ppdispVal)
        return *m_value.ppdispVal;
    return nullptr;
}

} // namespace velk
