#include "utf8.h"

#include "base/win32.h"

namespace velk::doctor {

std::string toUtf8(std::wstring_view text)
{
    std::string bytes(text.size() * 3, '\0');
    const int length = WideCharToMultiByte(CP_UTF8, 0, text.data(), static_cast<int>(text.size()), bytes.data(),
                                           static_cast<int>(bytes.size()), nullptr, nullptr);
    bytes.resize(static_cast<size_t>(length > 0 ? length : 0));
    return bytes;
}

std::wstring fromUtf8(std::string_view bytes)
{
    std::wstring text(bytes.size(), L'\0');
    const int length = MultiByteToWideChar(CP_UTF8, 0, bytes.data(), static_cast<int>(bytes.size()), text.data(),
                                           static_cast<int>(text.size()));
    text.resize(static_cast<size_t>(length > 0 ? length : 0));
    return text;
}

} // namespace velk::doctor
