#include "watch.h"

#include <objbase.h>

namespace velk::devkit {
namespace {

constexpr wchar_t addInLibrary[] = L"velkviadd.dll";
HMODULE lastLibrary = nullptr; // the add-in's, as it was there last: its classes bear it when it is gone
constexpr std::wstring_view ownClasses = L"velkviadd.";

int askBackend(const char* name)
{
    const HMODULE library = GetModuleHandleW(L"velkvsadd.dll");
    const FARPROC found = library ? GetProcAddress(library, name) : nullptr;
    return found ? reinterpret_cast<int32_t(__stdcall*)()>(reinterpret_cast<void*>(found))() : 0;
}

void describe(const CommandBar& bar, const std::wstring& indent, std::wstring& text)
{
    for (const auto& control : bar.controls) {
        text += indent + control->caption + L"\n";
        if (control->menu)
            describe(*control->menu.get(), indent + L"  ", text);
    }
}

void noteIfOwn(HWND window, std::vector<std::wstring>& found)
{
    wchar_t name[128] = L"";
    DWORD process = 0;
    GetWindowThreadProcessId(window, &process);
    GetClassNameW(window, name, 128);
    if (process == GetCurrentProcessId() && std::wstring_view(name).starts_with(ownClasses))
        found.push_back(std::wstring(L"a window ") + name + L" is left");
}

BOOL CALLBACK noteTopWindow(HWND window, LPARAM found) noexcept
{
    noteIfOwn(window, *reinterpret_cast<std::vector<std::wstring>*>(found));
    return TRUE;
}

} // namespace

SessionWatch::SessionWatch() : m_breaches(backendBreaches())
{
    reentry().setObserver([this](const std::wstring& call, CallMoment moment) { hear(call, moment); });
}

SessionWatch::~SessionWatch()
{
    reentry().setObserver(nullptr);
}

void SessionWatch::hear(const std::wstring& call, CallMoment moment)
{
    const bool begins = moment == CallMoment::begins;
    if (const HMODULE library = GetModuleHandleW(addInLibrary))
        lastLibrary = library;
    if (!call.starts_with(L"RZ") || call.starts_with(L"RZGetString"))
        return;
    if (call == L"RZInitialize") {
        if (begins && std::exchange(m_isOpen, true))
            m_problems.insert(L"RZInitialize in an open session");
        m_isOver = m_isOver && !begins;
        return;
    }
    if (begins && m_isOver)
        m_problems.insert(call + L" after RZTerminate");
    if (begins && call == L"RZTerminate") {
        m_isOver = true;
        m_isOpen = false;
    }
}

std::vector<std::wstring> SessionWatch::takeProblems()
{
    std::vector<std::wstring> problems(m_problems.begin(), m_problems.end());
    m_problems.clear();
    const int breaches = backendBreaches();
    if (breaches != m_breaches)
        problems.push_back(std::to_wstring(breaches - m_breaches) + L" breaches");
    m_breaches = breaches;
    return problems;
}

void SessionWatch::closeForNext()
{
    if (std::exchange(m_isOpen, false))
        askBackend("RZTerminate");
    m_isOver = false;
    takeProblems();
}

int backendBreaches()
{
    return askBackend("RZStandinBreaches");
}

bool backendIsWorking()
{
    return askBackend("RZStandinIsWorking") != 0;
}

std::wstring furniture(Shell& shell)
{
    std::wstring text;
    for (const auto& bar : shell.dte().bars->living()) {
        text += bar->name + L"\n";
        describe(*bar.get(), L"  ", text);
    }
    for (const auto& window : shell.dte().windows->open())
        text += L"window " + window->caption + L"\n";
    return text;
}

std::vector<std::wstring> leftInProcess()
{
    static const wchar_t* const classes[] = {L"velkviadd.splashscrnFrm", L"velkviadd.notificationThreadFrm",
                                             L"velkviadd.serverViewDoc", L"velkviadd.svrViewCtl",
                                             L"velkviadd.filterStrip",   L"velkviadd.left"}; // by a test of this
    std::vector<std::wstring> found;
    for (int attempt = 0; attempt < 3 && GetModuleHandleW(addInLibrary); ++attempt)
        CoFreeUnusedLibrariesEx(0, 0);
    EnumWindows(noteTopWindow, reinterpret_cast<LPARAM>(&found));
    for (HWND window = nullptr; (window = FindWindowExW(HWND_MESSAGE, window, nullptr, nullptr)) != nullptr;)
        noteIfOwn(window, found);
    WNDCLASSW known{};
    for (const wchar_t* name : classes)
        if (lastLibrary && GetClassInfoW(lastLibrary, name, &known))
            found.push_back(std::wstring(L"the class ") + name + L" is left");
    if (GetModuleHandleW(addInLibrary))
        found.push_back(L"the library stays loaded");
    return found;
}

} // namespace velk::devkit
