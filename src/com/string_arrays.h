#pragma once

#include "base/win32.h"

#include <string>
#include <vector>

namespace velk {

// Lists of texts travel as automation arrays of strings. An absent array is an empty list; an array of another
// element type is error 13.
std::vector<std::wstring> textsOf(SAFEARRAY* array);
// A new array with the texts, owned by the caller.
SAFEARRAY* arrayOf(const std::vector<std::wstring>& texts);

// Owns a list that a call fills: it goes in empty and comes back as the other side left it.
class text_array {
public:
    text_array() : m_array(arrayOf({})) {}
    text_array(const text_array&) = delete;
    text_array& operator=(const text_array&) = delete;
    ~text_array() { SafeArrayDestroy(m_array); }
    SAFEARRAY** ref() noexcept { return &m_array; }
    std::vector<std::wstring> texts() const { return textsOf(m_array); }

private:
    SAFEARRAY* m_array;
};

} // namespace velk
