#pragma once

#include "base/win32.h"

#include <string>

namespace velk {

// What stands in an empty edit, in grey, also while it has the focus. The control shows it itself where it can, which
// it can with the system's newer look only; else it is painted into it. It ends with the edit, or with this object if
// that comes first; the edit's user data are its own.
class CueBanner {
public:
    CueBanner(HWND edit, std::wstring text);
    CueBanner(const CueBanner&) = delete;
    CueBanner& operator=(const CueBanner&) = delete;
    ~CueBanner();

private:
    static LRESULT CALLBACK procedure(HWND edit, UINT message, WPARAM wParam, LPARAM lParam) noexcept;
    void paint(HDC given) const noexcept; // null: the screen's
    void end() noexcept;

    HWND m_edit;
    std::wstring m_text;
    WNDPROC m_procedure = nullptr; // the edit's own, where it is painted into it
};

} // namespace velk
