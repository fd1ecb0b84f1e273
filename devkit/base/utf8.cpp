#include "devkit/base/utf8.h"

#include "base/win32.h"

#include <algorithm>

namespace velk::devkit {
namespace {

std::optional<std::wstring> decoded(std::string_view bytes, DWORD flags)
{
    if (bytes.empty())
        return std::wstring();
    const int length = static_cast<int>(bytes.size());
    std::wstring text(bytes.size(), L'\0');
    const int made = MultiByteToWideChar(CP_UTF8, flags, bytes.data(), length, text.data(), length);
    if (made <= 0)
        return std::nullopt;
    text.resize(static_cast<size_t>(made));
    return text;
}

} // namespace

std::wstring fromUtf8(std::string_view bytes)
{
    return decoded(bytes, 0).value_or(L"");
}

std::optional<std::wstring> fromUtf8Strictly(std::string_view bytes)
{
    return decoded(bytes, MB_ERR_INVALID_CHARS);
}

std::string toUtf8(std::wstring_view text)
{
    const int length = static_cast<int>(text.size());
    std::string bytes(text.size() * 3, '\0');
    const int made = WideCharToMultiByte(CP_UTF8, 0, text.data(), length, bytes.data(), static_cast<int>(bytes.size()),
                                         nullptr, nullptr);
    bytes.resize(static_cast<size_t>(std::max(made, 0)));
    return bytes;
}

} // namespace velk::devkit
