#include "options.h"

#include "base/text.h"
#include "exitCodes.h"

namespace velk::doctor {
namespace {

struct Switch {
    const wchar_t* name;
    bool Options::* field;
    const wchar_t* help;
};
struct Setting {
    const wchar_t* name;
    void (*set)(Options& options, const std::wstring& value);
    std::wstring (*get)(const Options& options); // empty: not said
    const wchar_t* help;
};

void setWait(Options& options, const std::wstring& value)
{
    constexpr size_t mostDigits = 4;
    const bool isNumber =
        !value.empty() && value.size() <= mostDigits && value.find_first_not_of(L"0123456789") == std::wstring::npos;
    options.wait = isNumber ? static_cast<uint32_t>(textToLong(value)) : 0;
    if (options.wait == 0)
        options.error = L"--wait needs a number of seconds from 1 to 9999";
}

void setAddin(Options& options, const std::wstring& value)
{
    options.addin = value;
}

void setIde(Options& options, const std::wstring& value)
{
    options.ide = value;
    options.isIdeNamed = true;
}

// clang-format off
constexpr Switch switches[] = {
    {L"--console", &Options::isConsole,  L"write lines, whatever the doctor was started from"},
    {L"--window",  &Options::isWindow,   L"show the window, whatever the doctor was started from"},
    {L"--json",    &Options::isJson,     L"write one JSON object instead of lines"},
    {L"--details", &Options::hasDetails, L"write what stands behind each line, too"},
    {L"--contract", &Options::isContract, L"hold the tool's library against its contract, which begins sessions"},
    {L"--fix",     &Options::isFix,      L"put right what can be put right safely, then look again"},
    {L"--version", &Options::isVersion,  L"say the version"},
    {L"--help",    &Options::isHelp,     L"say this"},
};
constexpr Setting settings[] = {
    {L"--dll",  setAddin, [](const Options& options) { return options.addin; },
                                         L"PATH   the add-in's file to look at"},
    {L"--ide",  setIde,   [](const Options& options) { return options.isIdeNamed ? options.ide : std::wstring(); },
                                         L"NAME   the IDE's program, devenv.exe if not said"},
    {L"--wait", setWait,  [](const Options& options) { return numberText(static_cast<int32_t>(options.wait)); },
                                         L"SECONDS   how long a library may take to load, 20 if not said"},
};
// clang-format on

bool readSwitch(Options& options, const std::wstring& argument)
{
    for (const Switch& row : switches)
        if (argument == row.name) {
            options.*row.field = true;
            return true;
        }
    return false;
}

// As a program's beginning takes a command line apart: backslashes before a quote are doubled.
std::wstring quoted(const std::wstring& value)
{
    std::wstring text = L"\"";
    size_t backslashes = 0;
    for (const wchar_t character : value) {
        if (character == L'"')
            text.append(backslashes + 1, L'\\');
        backslashes = character == L'\\' ? backslashes + 1 : 0;
        text += character;
    }
    return text.append(backslashes, L'\\') + L'"';
}

const Setting* settingOf(const std::wstring& argument)
{
    for (const Setting& row : settings)
        if (argument == row.name)
            return &row;
    return nullptr;
}

} // namespace

Options readOptions(const std::vector<std::wstring>& arguments)
{
    Options options;
    for (size_t index = 0; index < arguments.size() && options.error.empty(); ++index) {
        if (readSwitch(options, arguments[index]))
            continue;
        const Setting* setting = settingOf(arguments[index]);
        if (!setting)
            options.error = L"there is no option " + arguments[index];
        else if (index + 1 == arguments.size() || arguments[index + 1].empty())
            options.error = std::wstring(setting->name) + L" needs a value";
        else
            setting->set(options, arguments[++index]);
    }
    return options;
}

std::wstring argumentsOf(const Options& options)
{
    std::wstring line;
    for (const Switch& row : switches)
        if (options.*row.field)
            line += std::wstring(row.name) + L' ';
    for (const Setting& row : settings)
        if (const std::wstring value = row.get(options); !value.empty())
            line += std::wstring(row.name) + L' ' + quoted(value) + L' ';
    return line;
}

std::wstring helpText()
{
    std::wstring text = L"velkdoctor: why the add-in does not load or work, and the way out.\r\n\r\n";
    for (const Switch& row : switches)
        text += std::wstring(L"  ") + row.name + L"   " + row.help + L"\r\n";
    for (const Setting& row : settings)
        text += std::wstring(L"  ") + row.name + L" " + row.help + L"\r\n";
    text += L"\r\nExit codes:\r\n";
    for (const ExitCodeRow& row : exitCodeRows)
        text += L"  " + numberText(row.code) + L"   " + row.help + L"\r\n";
    return text;
}

} // namespace velk::doctor
