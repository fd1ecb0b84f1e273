#include "devkit/backend/journal.h"

#include "base/boundary.h"
#include "devkit/backend/systemFile.h"
#include "devkit/base/uniqueFile.h"

#include <algorithm>
#include <cwctype>

namespace velk::devkit {
namespace {

constexpr std::wstring_view secretNames[] = {L"PWD=", L"PASSWORD="};

std::wstring upper(std::wstring text)
{
    std::transform(text.begin(), text.end(), text.begin(), [](wchar_t c) { return static_cast<wchar_t>(towupper(c)); });
    return text;
}

// Where the value that begins at a place ends: a value in braces may hold semicolons.
size_t valueEnd(const std::wstring& text, size_t from)
{
    if (from < text.size() && text[from] == L'{') {
        const size_t brace = text.find(L'}', from);
        return brace == std::wstring::npos ? text.size() : brace + 1;
    }
    return std::min(text.find_first_of(L";\"\r\n", from), text.size());
}

void append(std::wstring_view text)
{
    const std::wstring path = environmentText(L"VELK_BACKEND_JOURNAL");
    if (path.empty())
        return;
    constexpr DWORD sharing = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;
    const unique_file file(
        CreateFileW(path.c_str(), FILE_APPEND_DATA, sharing, nullptr, OPEN_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr));
    if (!file)
        return;
    std::wstring line = withoutSecrets(std::wstring(text));
    std::replace_if(line.begin(), line.end(), [](wchar_t c) { return c == L'\r' || c == L'\n'; }, L' ');
    const std::string bytes = toUtf8(line) + "\n";
    DWORD written = 0;
    WriteFile(file.get(), bytes.data(), static_cast<DWORD>(bytes.size()), &written, nullptr);
}

} // namespace

std::wstring withoutSecrets(std::wstring text)
{
    for (const std::wstring_view name : secretNames)
        for (size_t at = upper(text).find(name); at != std::wstring::npos;) {
            const size_t value = at + name.size();
            text.replace(value, valueEnd(text, value) - value, L"***");
            at = upper(text).find(name, value);
        }
    return text;
}

void Journal::line(std::wstring_view text) noexcept
{
    // A line that cannot be written is lost: the caller's work goes on.
    swallow(L"journal", L"the caller's work goes on without the line", [&] { append(text); });
}

void Journal::breach(std::wstring_view text) noexcept
{
    ++m_breaches;
    swallow(L"journal", L"the breach is counted all the same", [&] { append(L"BREACH " + std::wstring(text)); });
}

} // namespace velk::devkit
