// What a script does with files, among them the journals of the IDE and of the Backend.
#include "devkit/ide/recorder.h"
#include "devkit/ide/scriptRunner.h"
#include "devkit/ide/textFile.h"

namespace velk::devkit {
namespace {

using Text = const std::wstring&;

std::wstring content(Text path)
{
    std::wstring text;
    return readTextFile(path, text) ? text : L"";
}

// "FILE TEXT"; the file's name holds no blank, or stands in quotes.
std::pair<std::wstring, std::wstring> fileAndText(Text rest)
{
    const bool quoted = rest.starts_with(L'"');
    const size_t end = rest.find(quoted ? L'"' : L' ', 1);
    if (end == std::wstring::npos)
        throw ScriptFailure(L"a file and a text are wanted");
    return {rest.substr(quoted ? 1 : 0, end - (quoted ? 1 : 0)), rest.substr(rest.find_first_not_of(L' ', end + 1))};
}

void expectFileText(ScriptRunner& script, Text rest)
{
    const auto [file, text] = fileAndText(rest);
    script.expect(rest, [&] { return content(file).find(text) != std::wstring::npos; }, [&] { return content(file); });
}

void expectNoFileText(ScriptRunner& script, Text rest)
{
    const auto [file, text] = fileAndText(rest);
    if (content(file).find(text) != std::wstring::npos)
        throw ScriptFailure(L"the file says so:\n" + content(file));
    script.expect(
        file, [&] { return GetFileAttributesW(file.c_str()) != INVALID_FILE_ATTRIBUTES; },
        [] { return L"no such file"; });
}

std::wstring journal(ScriptRunner& script)
{
    return script.onShell([] {
        std::wstring text;
        for (const std::wstring& line : recorder().lines())
            text += line + L"\n";
        return text;
    });
}

void expectJournal(ScriptRunner& script, Text text)
{
    script.expect(
        L"a journal line " + text, [&] { return journal(script).find(text) != std::wstring::npos; },
        [&] { return journal(script); });
}

void expectNoJournal(ScriptRunner& script, Text text)
{
    if (journal(script).find(text) != std::wstring::npos)
        throw ScriptFailure(L"the journal says so:\n" + journal(script));
}

void copyFile(ScriptRunner&, Text rest)
{
    const auto [from, to] = fileAndText(rest);
    if (!CopyFileW(from.c_str(), to.c_str(), FALSE))
        throw Error::fromWin32(GetLastError());
}

void deleteFile(ScriptRunner&, Text path)
{
    if (!DeleteFileW(path.c_str()))
        throw Error::fromWin32(GetLastError());
}

void writeLine(ScriptRunner&, Text rest)
{
    const auto [file, text] = fileAndText(rest);
    appendToFile(file, text + L"\n");
}

void expectFileState(ScriptRunner& script, Text rest)
{
    const auto [file, wanted] = fileAndText(rest);
    const auto state = [&file = file]() -> std::wstring {
        const DWORD attributes = GetFileAttributesW(file.c_str());
        return attributes == INVALID_FILE_ATTRIBUTES         ? L"absent"
               : (attributes & FILE_ATTRIBUTE_READONLY) != 0 ? L"read-only"
                                                             : L"writable";
    };
    script.expect(rest, [&, &wanted = wanted] { return state() == wanted; }, state);
}

// clang-format off
constexpr ScriptCommand commands[] = {
    {L"expect-file-text",    expectFileText},
    {L"expect-no-file-text", expectNoFileText},
    {L"expect-journal",      expectJournal},
    {L"expect-no-journal",   expectNoJournal},
    {L"clear-journal",       [](ScriptRunner& script, Text) { script.onShell([] { return recorder().clear(), true; }); }},
    {L"expect-file-state",   expectFileState},
    {L"copy-file",           copyFile},
    {L"delete-file",         deleteFile},
    {L"append-line",         writeLine},
};
// clang-format on

} // namespace

std::span<const ScriptCommand> fileCommands()
{
    return commands;
}

} // namespace velk::devkit
