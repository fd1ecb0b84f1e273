#pragma once

#include "base/win32.h"
#include "com/com_ptr.h"

#include <oleacc.h>
#include <string>

namespace velk::test {

// What a screen reader learns of a window through the system's client library: what the window answers itself, else
// what the system derives from its class, style, text and messages.
class Accessible {
public:
    explicit Accessible(HWND window)
    {
        AccessibleObjectFromWindow(window, static_cast<DWORD>(OBJID_CLIENT), IID_IAccessible, m_client.putVoid());
    }
    bool isThere() const { return static_cast<bool>(m_client); }
    std::wstring name() const { return textOf(&IAccessible::get_accName); }
    std::wstring shortcut() const { return textOf(&IAccessible::get_accKeyboardShortcut); }
    std::wstring value() const { return textOf(&IAccessible::get_accValue); }
    LONG role() const { return numberOf(&IAccessible::get_accRole); }
    LONG state() const { return numberOf(&IAccessible::get_accState); }
    LONG childCount() const
    {
        LONG count = -1;
        m_client->get_accChildCount(&count);
        return count;
    }
    RECT place() const
    {
        RECT place{};
        m_client->accLocation(&place.left, &place.top, &place.right, &place.bottom, self());
        return {place.left, place.top, place.left + place.right, place.top + place.bottom};
    }

private:
    static VARIANT self()
    {
        VARIANT child{};
        child.vt = VT_I4;
        child.lVal = CHILDID_SELF;
        return child;
    }
    std::wstring textOf(HRESULT (STDMETHODCALLTYPE IAccessible::*get)(VARIANT, BSTR*)) const
    {
        BSTR text = nullptr;
        const HRESULT result = (m_client.get()->*get)(self(), &text);
        const std::wstring copy = text ? std::wstring(text, SysStringLen(text)) : std::wstring();
        SysFreeString(text);
        return FAILED(result) ? L"(none)" : copy;
    }
    LONG numberOf(HRESULT (STDMETHODCALLTYPE IAccessible::*get)(VARIANT, VARIANT*)) const
    {
        VARIANT number{};
        return SUCCEEDED((m_client.get()->*get)(self(), &number)) && number.vt == VT_I4 ? number.lVal : -1;
    }

    com_ptr<IAccessible> m_client;
};

} // namespace velk::test
