// The calls for the tool's texts and its font. They are served without a session, too.
#include "devkit/backend/calls.h"
#include "devkit/backend/systemFile.h"

#include <algorithm>
#include <cwchar>

namespace velk::devkit::calls {
namespace {

constexpr int32_t fontName = 100;
constexpr int32_t fontSize = 101;

int32_t giveText(Desk& desk, const wchar_t* call, int32_t number, char* buffer, int32_t capacity,
                 const std::vector<std::wstring>& parameters)
{
    if (environmentText(L"VELK_BACKEND_JOURNAL_TEXTS") == L"1")
        desk.rules.write(call, number);
    if (!desk.rules.checkPreset(L"the buffer", buffer, static_cast<size_t>(std::max(capacity, 0))))
        return 0;
    return static_cast<int32_t>(CountedString(buffer).write(desk.texts.text(number, parameters)));
}

std::wstring parameter(Desk& desk, char** text)
{
    return desk.rules.input(text ? *text : nullptr);
}

} // namespace

int32_t RZGetString(Desk& desk, int32_t number, char* buffer, int32_t capacity)
{
    desk.rules.begin(L"RZGetString");
    return giveText(desk, L"RZGetString", number, buffer, capacity, {});
}

int32_t RZGetStringP1(Desk& desk, int32_t number, char* buffer, int32_t capacity, char** p1)
{
    desk.rules.begin(L"RZGetStringP1");
    return giveText(desk, L"RZGetStringP1", number, buffer, capacity, {parameter(desk, p1)});
}

int32_t RZGetStringP2(Desk& desk, int32_t number, char* buffer, int32_t capacity, char** p1, char** p2)
{
    desk.rules.begin(L"RZGetStringP2");
    return giveText(desk, L"RZGetStringP2", number, buffer, capacity, {parameter(desk, p1), parameter(desk, p2)});
}

int32_t RZGetFontInfo(Desk& desk, char* buffer, int32_t capacity, int32_t* size)
{
    desk.rules.begin(L"RZGetFontInfo");
    desk.rules.write(L"RZGetFontInfo", capacity);
    if (size)
        *size = static_cast<int32_t>(std::wcstol(desk.texts.text(fontSize).c_str(), nullptr, 10));
    return giveText(desk, L"RZGetFontInfo", fontName, buffer, capacity, {});
}

} // namespace velk::devkit::calls
