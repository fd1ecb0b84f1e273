#include "notify/promptLook.h"

#include "base/error.h"
#include "base/win32.h"

namespace velk {
namespace {

constexpr wchar_t separator = L'#';
constexpr size_t mostFields = 5;

struct StyleRow {
    const wchar_t* word;
    int16_t value;
};

// clang-format off
constexpr StyleRow icons[] = {
    {L"IDE_CRITICAL",    MB_ICONHAND},
    {L"IDE_WARNING",     MB_ICONEXCLAMATION},
    {L"IDE_QUESTION",    MB_ICONQUESTION},
    {L"IDE_INFORMATION", MB_ICONASTERISK},
};
// A set names the answers that its buttons give.
constexpr StyleRow buttonSets[] = {
    {L"672", MB_YESNOCANCEL},
    {L"67",  MB_YESNO},
    {L"1",   MB_OK},
};
// clang-format on

template <size_t count>
int16_t valueOf(const StyleRow (&rows)[count], const std::wstring& word, int16_t otherwise)
{
    for (const StyleRow& row : rows)
        if (word == row.word)
            return row.value;
    return otherwise;
}

} // namespace

std::vector<std::wstring> splitButtons(const std::wstring& strButtons)
{
    std::vector<std::wstring> fields;
    std::wstring rest = strButtons;
    for (;;) {
        if (fields.size() == mostFields)
            throw Error(errorSubscript);
        const size_t place = rest.find(separator);
        if (place == std::wstring::npos || place + 1 == rest.size()) {
            fields.push_back(rest);
            return fields;
        }
        fields.push_back(rest.substr(0, place));
        rest.erase(0, place + 1);
    }
}

int16_t iconValue(const std::wstring& keyword)
{
    return valueOf(icons, keyword, MB_ICONASTERISK);
}

int16_t buttonValue(const std::wstring& buttonSet)
{
    return valueOf(buttonSets, buttonSet, MB_OK);
}

PromptLook promptLook(const std::wstring& strButtons)
{
    const std::vector<std::wstring> fields = splitButtons(strButtons);
    PromptLook look;
    if (fields.size() >= 2)
        look.style = static_cast<uint16_t>(iconValue(fields[0]) + buttonValue(fields[1]));
    if (fields.size() == 3)
        look.title = fields[2];
    return look;
}

} // namespace velk
