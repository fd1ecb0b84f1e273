#pragma once

#include "base/win32.h"
#include "com/bstr.h"

#include <vector>

namespace velk::test {

// What an argument is: a text, whole number, truth value or list by reference; a text or whole number by value; the
// IDE; a manager; the host's own list of values.
enum class Kind { textRef, longRef, boolRef, listRef, text, number, ide, manager, custom };
// The variables behind the arguments of one call, and the arguments themselves in automation's reverse order.
class Arguments {
public:
    explicit Arguments(size_t count) : m_values(count), m_texts(count), m_longs(count), m_bools(count), m_lists(count)
    {
    }
    ~Arguments()
    {
        for (SAFEARRAY* list : m_lists)
            SafeArrayDestroy(list);
    }
    void set(size_t index, Kind kind, IDispatch* ide, IDispatch* manager)
    {
        VARIANT& value = m_values[m_values.size() - 1 - index];
        m_texts[index] = bstr(L"text");
        switch (kind) {
        case Kind::textRef:
            value.vt = VT_BSTR | VT_BYREF;
            value.pbstrVal = m_texts[index].ref();
            break;
        case Kind::longRef:
            value.vt = VT_I4 | VT_BYREF;
            value.plVal = &m_longs[index];
            break;
        case Kind::boolRef:
            value.vt = VT_BOOL | VT_BYREF;
            value.pboolVal = &m_bools[index];
            break;
        case Kind::listRef:
        case Kind::custom: {
            const VARTYPE element = kind == Kind::custom ? VT_VARIANT : VT_BSTR;
            m_lists[index] = SafeArrayCreateVector(element, 0, 1);
            value.vt = static_cast<VARTYPE>(VT_ARRAY | VT_BYREF | element);
            value.pparray = &m_lists[index];
            break;
        }
        case Kind::text:
            value.vt = VT_BSTR;
            value.bstrVal = m_texts[index].get();
            break;
        case Kind::number:
            value.vt = VT_I4;
            break;
        case Kind::ide:
        case Kind::manager:
            value.vt = VT_DISPATCH;
            value.pdispVal = kind == Kind::ide ? ide : manager;
            break;
        }
    }
    VARIANT* values() { return m_values.data(); }

private:
    std::vector<VARIANT> m_values; // borrow everything
    std::vector<bstr> m_texts;
    std::vector<LONG> m_longs;
    std::vector<VARIANT_BOOL> m_bools;
    std::vector<SAFEARRAY*> m_lists;
};

} // namespace velk::test
