// What a script does to the shell: add-ins, the solution, command bars, message boxes, its window.
#include "devkit/ide/probe.h"
#include "devkit/ide/scriptRunner.h"
#include "devkit/ide/stepWatch.h"
#include "devkit/ide/textFile.h"

namespace velk::devkit {
namespace {

using Text = const std::wstring&;

// A control by its caption, or by its place from 1 on: "#1".
CommandBarControl* childOf(const CommandBar& bar, Text name)
{
    if (!name.starts_with(L'#'))
        return bar.findCaption(name);
    const auto place = static_cast<size_t>(_wtoi(name.c_str() + 1));
    return place >= 1 && place <= bar.controls.size() ? bar.controls[place - 1].get() : nullptr;
}

// "Bar/Caption/Caption": a control by the way to it. Call on the shell's thread.
CommandBarControl* controlAt(Dte& dte, Text path)
{
    const std::vector<std::wstring> parts = split(path, L'/');
    CommandBar* bar = dte.bars->find(parts.front());
    CommandBarControl* control = nullptr;
    for (size_t depth = 1; bar && depth < parts.size(); ++depth) {
        control = childOf(*bar, parts[depth]);
        bar = control ? control->menu.get() : nullptr;
    }
    return control;
}

std::wstring entryState(ScriptRunner& script, Text path)
{
    return script.onShell([&]() -> std::wstring {
        const CommandBarControl* control = controlAt(script.shell().dte(), path);
        return !control ? L"absent" : control->enabled ? L"enabled" : L"disabled";
    });
}

void click(ScriptRunner& script, Text path)
{
    script.expect(L"an entry " + path, [&] { return entryState(script, path) != L"absent"; }, [] { return L"none"; });
    script.shell().postToShell([&shell = script.shell(), path] {
        if (const com_ptr<CommandBarControl> control = controlAt(shell.dte(), path))
            control->execute();
    });
}

void answer(ScriptRunner& script, Text name);

// For entries that a fault may have kept away, or made useless.
void clickIfThere(ScriptRunner& script, Text path)
{
    if (entryState(script, path) == L"enabled")
        click(script, path);
}

void answerAll(ScriptRunner& script, Text name)
{
    while (probe::dialog())
        answer(script, name);
}

// "NAME", or "NAME tagged TAG" for a button with that tag.
void addBar(ScriptRunner& script, Text rest)
{
    constexpr std::wstring_view word = L" tagged ";
    const size_t end = rest.find(word);
    const std::wstring tag = end == std::wstring::npos ? L"" : rest.substr(end + word.size());
    script.onShell([&] {
        CommandBar* bar = script.shell().dte().bars->add(rest.substr(0, end), barTop);
        bar->add(controlButton, 0, true)->tag = tag;
        return true;
    });
}

void expectEntry(ScriptRunner& script, Text rest)
{
    const size_t space = rest.rfind(L' ');
    const std::wstring path = rest.substr(0, space);
    const std::wstring state = rest.substr(space + 1);
    script.expect(rest, [&] { return entryState(script, path) == state; }, [&] { return entryState(script, path); });
}

void expectMessage(ScriptRunner& script, Text text)
{
    const auto shown = [] { return probe::dialog() ? probe::dialogText(probe::dialog()) : std::wstring(); };
    script.expect(
        L"a message \"" + text + L"\"", [&] { return shown().find(text) != std::wstring::npos; },
        [&] { return shown().empty() ? L"none" : L"\"" + shown() + L"\""; });
}

void answer(ScriptRunner& script, Text name)
{
    script.expect(L"a message", [] { return probe::dialog() != nullptr; }, [] { return L"none"; });
    const HWND dialog = probe::dialog();
    if (name == L"escape") {
        PostMessageW(dialog, WM_KEYDOWN, VK_ESCAPE, 0);
        PostMessageW(dialog, WM_KEYUP, VK_ESCAPE, 0);
    } else if (name == L"close") {
        PostMessageW(dialog, WM_SYSCOMMAND, SC_CLOSE, 0);
    } else {
        const HWND button = probe::dialogButton(dialog, name);
        if (!button)
            throw ScriptFailure(L"the message has no such button");
        PostMessageW(button, BM_CLICK, 0, 0);
    }
    script.expect(L"the message to go", [&] { return probe::dialog() != dialog; }, [] { return L"it stays"; });
}

// Presses a button of a dialog that stays open.
void answerQuickly(ScriptRunner&, Text name)
{
    const HWND dialog = probe::dialog();
    const HWND button = dialog ? probe::dialogButton(dialog, name) : nullptr;
    if (!button)
        throw ScriptFailure(L"there is no such button");
    PostMessageW(button, BM_CLICK, 0, 0);
    Sleep(300);
}

// "N TEXT": writes into the dialog's field of that number; those of combo boxes count, too.
void fill(ScriptRunner& script, Text rest)
{
    const int number = _wtoi(rest.c_str());
    const size_t space = rest.find(L' ');
    const std::wstring text = space == std::wstring::npos ? L"" : rest.substr(space + 1);
    const auto field = [&] { return probe::dialog() ? probe::field(probe::dialog(), number) : nullptr; };
    script.expect(L"a field " + std::to_wstring(number), [&] { return field() != nullptr; }, [] { return L"none"; });
    SendMessageW(field(), WM_SETTEXT, 0, reinterpret_cast<LPARAM>(text.c_str()));
}

com_ptr<AutomatedWindow> windowOf(Dte& dte, Text caption)
{
    for (const auto& window : dte.windows->open())
        if (window->caption == caption)
            return window;
    return nullptr;
}

void expectWindow(ScriptRunner& script, Text rest)
{
    const size_t space = rest.rfind(L' ');
    const std::wstring caption = rest.substr(0, space);
    const auto state = [&] {
        return script.onShell([&]() -> std::wstring {
            const auto window = windowOf(script.shell().dte(), caption);
            return !window ? L"absent" : window->isShown() ? L"visible" : L"hidden";
        });
    };
    script.expect(rest, [&] { return state() == rest.substr(space + 1); }, state);
}

void expectClass(ScriptRunner& script, Text rest)
{
    const size_t space = rest.rfind(L' ');
    const auto state = [&] { return probe::topWindow(rest.substr(0, space)) ? L"present" : L"absent"; };
    script.expect(rest, [&] { return rest.substr(space + 1) == state(); }, state);
}

void expectModule(ScriptRunner& script, Text rest)
{
    const size_t space = rest.rfind(L' ');
    const auto state = [&] { return GetModuleHandleW(rest.substr(0, space).c_str()) ? L"loaded" : L"unloaded"; };
    script.expect(rest, [&] { return rest.substr(space + 1) == state(); }, state);
}

void load(ScriptRunner& script, Text progId)
{
    script.onShell([&] { return script.shell().addIns().load(progId, ConnectMode::afterStartup), true; });
}

void unload(ScriptRunner& script, Text progId)
{
    script.onShell([&] { return script.shell().addIns().unload(progId, DisconnectMode::userClosed), true; });
}

std::wstring fullPath(Text path)
{
    wchar_t full[MAX_PATH] = L"";
    GetFullPathNameW(path.c_str(), MAX_PATH, full, nullptr);
    return full;
}

void openSolution(ScriptRunner& script, Text path)
{
    const std::wstring full = fullPath(path);
    if (GetFileAttributesW(full.c_str()) == INVALID_FILE_ATTRIBUTES)
        throw ScriptFailure(L"there is no file " + full);
    script.onShell([&] { return script.shell().dte().solution->open(full), true; });
}

void closeSolution(ScriptRunner& script, Text)
{
    script.onShell([&] { return script.shell().dte().solution->close(), true; });
}

void resize(ScriptRunner& script, Text rest)
{
    const int width = _wtoi(rest.c_str());
    const int height = _wtoi(rest.substr(rest.find(L' ')).c_str());
    script.onShell([&] { return script.shell().resize(width, height), true; });
}

void watchStepsOf(ScriptRunner& script, Text rest)
{
    const size_t space = rest.find(L' ');
    script.onShell([&] { return watchSteps(rest.substr(0, space), script.shotPath(rest.substr(space + 1))), true; });
}

void expectSteps(ScriptRunner& script, Text wanted)
{
    std::wstring shown;
    for (const std::wstring& text : script.onShell(endStepWatch))
        shown += (shown.empty() ? L"" : L"|") + text;
    if (shown != wanted)
        throw ScriptFailure(L"the steps were " + shown);
}

// clang-format off
constexpr ScriptCommand commands[] = {
    {L"step",              [](ScriptRunner&, Text text) { writeOutput(text); }},
    {L"load",              load},
    {L"unload",            unload},
    {L"open-solution",     openSolution},
    {L"close-solution",    closeSolution},
    {L"click",             click},
    {L"click-if-there",    clickIfThere},
    {L"add-bar",           addBar},
    {L"expect-entry",      expectEntry},
    {L"expect-message",    expectMessage},
    {L"expect-no-message", [](ScriptRunner& script, Text) {
         script.expect(L"no message", [] { return !probe::dialog(); }, [] { return probe::dialogText(probe::dialog()); }); }},
    {L"answer",            answer},
    {L"answer-all",        answerAll},
    {L"answer-quickly",    answerQuickly},
    {L"fill",              fill},
    {L"expect-window",     expectWindow},
    {L"expect-class",      expectClass},
    {L"expect-module",     expectModule},
    {L"watch-steps",       watchStepsOf},
    {L"expect-steps",      expectSteps},
    {L"resize",            resize},
    {L"screenshot",        [](ScriptRunner& script, Text name) { script.screenshot(name); }},
    {L"wait",              [](ScriptRunner&, Text time) { Sleep(static_cast<DWORD>(_wtoi(time.c_str()))); }},
};
// clang-format on

} // namespace

std::span<const ScriptCommand> shellCommands()
{
    return commands;
}

} // namespace velk::devkit
