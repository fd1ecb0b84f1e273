#pragma once

#include "base/win32.h"

#include <functional>
#include <string>

namespace velk::test::literal {

// The way of one text to the Backend and back, done by the letter: a real wide buffer, a real counted ANSI string,
// both converted whole, then cut. Slow and plain on purpose: it is what the quick way is measured against.
inline std::wstring thereAndBack(std::wstring wide, UINT codePage, const std::function<void(char*)>& backend)
{
    const int wideLength = static_cast<int>(wide.size());
    const int length = WideCharToMultiByte(codePage, 0, wide.data(), wideLength, nullptr, 0, nullptr, nullptr);
    BSTR counted = SysAllocStringByteLen(nullptr, static_cast<UINT>(length));
    char* bytes = reinterpret_cast<char*>(counted);
    WideCharToMultiByte(codePage, 0, wide.data(), wideLength, bytes, length, nullptr, nullptr);
    backend(bytes);
    const int byteLength = static_cast<int>(SysStringByteLen(counted));
    const int backLength = MultiByteToWideChar(codePage, 0, bytes, byteLength, nullptr, 0);
    std::wstring back(static_cast<size_t>(backLength), L'\0');
    MultiByteToWideChar(codePage, 0, bytes, byteLength, back.data(), backLength);
    SysFreeString(counted);
    return back;
}

inline std::wstring cutAtNul(const std::wstring& text)
{
    for (size_t position = 1; position <= text.size(); ++position)
        if (text[position - 1] == L'\0')
            return text.substr(0, position - 1);
    return L"";
}

inline std::wstring output(size_t capacity, UINT codePage, const std::function<void(char*)>& backend)
{
    return cutAtNul(thereAndBack(std::wstring(capacity, L'\0'), codePage, backend));
}

} // namespace velk::test::literal
