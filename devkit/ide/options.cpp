#include "devkit/ide/options.h"

#include <cwchar>

namespace velk::devkit {
namespace {

struct TextOption {
    const wchar_t* name;
    std::wstring Options::* field;
};
struct Switch {
    const wchar_t* name;
    bool Options::* field;
};

// clang-format off
constexpr TextOption textOptions[] = {
    {L"--script",   &Options::script},
    {L"--journal",  &Options::journal},
    {L"--shots",    &Options::shots},
    {L"--fail",     &Options::failing},
    {L"--without",  &Options::missing},
    {L"--solution", &Options::solution},
    {L"--reentry",  &Options::reentry},
};
constexpr Switch switches[] = {
    {L"--hidden",     &Options::hidden},
    {L"--no-add-ins", &Options::noAddIns},
    {L"--pump",       &Options::pump},
};
// clang-format on

void define(Options& options, const std::wstring& text)
{
    const size_t equals = text.find(L'=');
    if (equals == std::wstring::npos)
        throw ScriptFailure(L"--define wants NAME=VALUE");
    options.definitions[text.substr(0, equals)] = text.substr(equals + 1);
}

bool isSwitch(Options& options, const std::wstring& name)
{
    for (const Switch& row : switches)
        if (name == row.name)
            return options.*row.field = true;
    return false;
}

void takeValue(Options& options, const std::wstring& name, const std::wstring& value)
{
    if (name == L"--define")
        return define(options, value);
    if (name == L"--timeout") {
        wchar_t* end = nullptr;
        options.timeLimit = std::wcstoul(value.c_str(), &end, 10);
        if (value.empty() || *end != L'\0')
            throw ScriptFailure(L"--timeout wants a number of seconds");
        return;
    }
    for (const TextOption& row : textOptions)
        if (name == row.name) {
            options.*row.field = value;
            return;
        }
    throw ScriptFailure(L"there is no option " + name);
}

} // namespace

Options parseOptions(const std::vector<std::wstring>& arguments)
{
    Options options;
    for (size_t place = 0; place < arguments.size(); ++place) {
        if (isSwitch(options, arguments[place]))
            continue;
        if (place + 1 == arguments.size())
            throw ScriptFailure(arguments[place] + L" is not known or wants a value");
        takeValue(options, arguments[place], arguments[place + 1]);
        ++place;
    }
    return options;
}

} // namespace velk::devkit
