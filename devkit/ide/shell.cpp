#include "devkit/ide/shell.h"

#include "devkit/ide/looks.h"
#include "window/control.h"

#include <commdlg.h>

namespace velk::devkit {
namespace {

constexpr UINT rebuildMessage = WM_APP + 1;
constexpr UINT callMessage = WM_APP + 2;   // lParam: a Call to run now
constexpr UINT postedMessage = WM_APP + 3; // lParam: a function to run and delete
constexpr UINT_PTR libraryTimer = 1;
constexpr UINT libraryInterval = 250; // milliseconds
constexpr int immediateHeight = 88;
constexpr int stripHeight = 18;
constexpr wchar_t title[] = L"Development Environment";

struct Call {
    std::function<void()> function;
    std::exception_ptr failure;
};

std::wstring baseName(const std::wstring& path)
{
    const std::wstring file = path.substr(path.rfind(L'\\') + 1);
    return file.substr(0, file.rfind(L'.'));
}

} // namespace

Shell::Shell(bool hidden)
    : Window(L"velkide.Shell", GetSysColorBrush(COLOR_BTNFACE), LoadCursorW(nullptr, IDC_ARROW)), m_hidden(hidden)
{
    const DWORD style = WS_OVERLAPPEDWINDOW | WS_CLIPCHILDREN;
    create({nullptr, style, 0, 20, 20, 960, 680, title});
    m_immediate = CreateWindowExW(WS_EX_CLIENTEDGE, L"EDIT", L"", WS_CHILD | WS_VISIBLE | WS_VSCROLL | ES_MULTILINE, 0,
                                  0, 0, 0, hwnd(), nullptr, nullptr, nullptr);
    m_status = CreateWindowExW(0, STATUSCLASSNAMEW, L"Ready", WS_CHILD | WS_VISIBLE | SBARS_SIZEGRIP, 0, 0, 0, 0,
                               hwnd(), nullptr, nullptr, nullptr);
    for (const HWND child : {m_immediate, m_status})
        SendMessageW(child, WM_SETFONT, reinterpret_cast<WPARAM>(shellFont()), FALSE);
    m_immediateDrop.emplace(m_immediate, L"Immediate");
    m_dte->mainWindow = m_dte->windows->add(windowMain, hwnd(), title);
    m_dte->windows->add(windowImmediate, m_immediate, L"Immediate");
    m_dte->windows->workspace = hwnd();
    m_dte->windows->layOut = [this] { layOut(); };
    m_dte->solution->onChange = [this] { showTitle(); };
    addCommands();
    setBarsObserver([this] {
        if (!std::exchange(m_rebuildsAsked, true))
            PostMessageW(hwnd(), rebuildMessage, 0, 0);
    });
    rebuildBars();
    layOut();
    SetTimer(hwnd(), libraryTimer, libraryInterval, nullptr);
}

Shell::~Shell()
{
    end();
    m_immediateDrop.reset();
    setBarsObserver(nullptr);
    destroy();
}

void Shell::addCommands()
{
    CommandBar& menuBar = m_dte->bars->menuBar();
    menuBar.menu(L"&File").addCommand(L"&Open Solution...", [this] { openSolution(); });
    menuBar.menu(L"&File").addCommand(L"&Close Solution", [this] { m_dte->solution->close(); });
    menuBar.menu(L"&File").addCommand(L"E&xit", [this] { PostMessageW(hwnd(), WM_CLOSE, 0, 0); });
    menuBar.menu(L"&View").addCommand(L"&Immediate Window", [this] { SetFocus(m_immediate); });
    CommandBar& standard = *m_dte->bars->find(L"Standard");
    standard.addCommand(L"Open", [this] { openSolution(); });
    standard.addCommand(L"Close", [this] { m_dte->solution->close(); });
    for (const RegisteredAddIn& row : m_addIns.registered()) {
        const std::wstring progId = row.progId;
        menuBar.menu(L"&Add-Ins")
            .addCommand(L"Load or Unload " + (row.friendlyName.empty() ? progId : row.friendlyName), [this, progId] {
                if (m_addIns.isLoaded(progId))
                    m_addIns.unload(progId, DisconnectMode::userClosed);
                else
                    m_addIns.load(progId, ConnectMode::afterStartup);
            });
    }
}

void Shell::openSolution()
{
    std::wstring path(MAX_PATH, L'\0');
    OPENFILENAMEW ask{};
    ask.lStructSize = sizeof ask;
    ask.hwndOwner = hwnd();
    ask.lpstrFilter = L"Solutions (*.sln)\0*.sln\0";
    ask.lpstrFile = path.data();
    ask.nMaxFile = MAX_PATH;
    ask.Flags = OFN_FILEMUSTEXIST | OFN_NOCHANGEDIR | OFN_HIDEREADONLY;
    if (GetOpenFileNameW(&ask))
        m_dte->solution->open(path.c_str());
}

void Shell::showTitle() const
{
    const std::wstring& solution = m_dte->solution->fullName();
    SetWindowTextW(hwnd(), (solution.empty() ? title : baseName(solution) + L" - " + title).c_str());
    const std::wstring file = solution.substr(solution.rfind(L'\\') + 1);
    SetWindowTextW(m_status, file.empty() ? L"No solution is open" : file.c_str());
    InvalidateRect(hwnd(), nullptr, TRUE);
}

void Shell::rebuildBars()
{
    m_rebuildsAsked = false;
    m_menu.rebuild(hwnd(), m_dte->bars->menuBar());
    m_toolbars.rebuild(hwnd(), m_dte->bars->living());
}

void Shell::layOut() const
{
    RECT area{};
    GetClientRect(hwnd(), &area);
    SendMessageW(m_status, WM_SIZE, 0, 0);
    RECT status{};
    GetWindowRect(m_status, &status);
    const int bottom = area.bottom - (status.bottom - status.top);
    const int workTop = ToolbarRow::height + 2;
    const int workBottom = bottom - immediateHeight;
    MoveWindow(m_immediate, 2, workBottom + stripHeight, area.right - 4, immediateHeight - stripHeight - 2, TRUE);
    std::vector<com_ptr<AutomatedWindow>> panes;
    for (const auto& window : m_dte->windows->open())
        if (window->pane && window->isShown())
            panes.push_back(window);
    int left = 2;
    for (size_t index = 0; index < panes.size(); ++index) {
        const int right = 2 + (area.right - 4) * static_cast<int>(index + 1) / static_cast<int>(panes.size());
        MoveWindow(panes[index]->hwnd(), left, workTop, right - left, workBottom - workTop - 2, TRUE);
        left = right;
        panes[index]->pane->onHide = [window = panes[index].get()] { window->show(false); };
    }
    InvalidateRect(hwnd(), nullptr, TRUE);
}

void Shell::paint() const
{
    PAINTSTRUCT paint;
    const HDC dc = BeginPaint(hwnd(), &paint);
    RECT area{};
    GetClientRect(hwnd(), &area);
    RECT strip{};
    GetWindowRect(m_immediate, &strip);
    MapWindowPoints(nullptr, hwnd(), reinterpret_cast<POINT*>(&strip), 2);
    strip.bottom = strip.top;
    strip.top -= stripHeight;
    RECT work{2, ToolbarRow::height + 2, area.right - 2, strip.top - 2};
    FillRect(dc, &work, GetSysColorBrush(COLOR_APPWORKSPACE));
    FillRect(dc, &strip, GetSysColorBrush(COLOR_INACTIVECAPTION));
    strip.left += 4;
    drawCaption(dc, strip, L"Immediate", GetSysColor(COLOR_INACTIVECAPTIONTEXT));
    EndPaint(hwnd(), &paint);
}

void Shell::click(UINT command)
{
    com_ptr<CommandBarControl> control = m_menu.control(command);
    if (!control)
        control = m_toolbars.control(command);
    if (control)
        control->execute();
}

bool Shell::translate(MSG& message) const
{
    for (const auto& window : m_dte->windows->open())
        if (window->pane && window->pane->translate(message))
            return true;
    return false;
}

void Shell::end()
{
    if (std::exchange(m_ended, true))
        return;
    m_addIns.unloadAll();
    m_dte->windows->layOut = nullptr;
    m_dte->solution->onChange = nullptr;
}

int Shell::run(bool loadAddIns)
{
    if (!m_hidden)
        ShowWindow(hwnd(), SW_SHOW);
    if (loadAddIns)
        for (const std::wstring& failure : m_addIns.loadAtStart())
            MessageBoxW(m_hidden ? nullptr : hwnd(), failure.c_str(), title, MB_ICONWARNING);
    MSG message{};
    while (GetMessageW(&message, nullptr, 0, 0) > 0) {
        if (translate(message))
            continue;
        TranslateMessage(&message);
        DispatchMessageW(&message);
    }
    return static_cast<int>(message.wParam);
}

bool Shell::onShellThread(const std::function<void()>& function, UINT timeLimit) const
{
    // Shared with the message: after a time-out the shell may still come to it.
    auto* const call = new std::shared_ptr<Call>(std::make_shared<Call>(Call{function, nullptr}));
    const std::shared_ptr<Call> asked = *call;
    DWORD_PTR answer = 0;
    if (!SendMessageTimeoutW(hwnd(), callMessage, 0, reinterpret_cast<LPARAM>(call), SMTO_NORMAL, timeLimit, &answer))
        return false;
    if (asked->failure)
        std::rethrow_exception(asked->failure);
    return true;
}

void Shell::postToShell(std::function<void()> function) const
{
    PostMessageW(hwnd(), postedMessage, 0, reinterpret_cast<LPARAM>(new std::function<void()>(std::move(function))));
}

void Shell::resize(int width, int height) const
{
    SetWindowPos(hwnd(), nullptr, 0, 0, width, height, SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
}

LRESULT Shell::handle(UINT message, WPARAM wParam, LPARAM lParam)
{
    switch (message) {
    case WM_SIZE:
        if (m_status)
            layOut();
        return 0;
    case WM_PAINT:
        paint();
        return 0;
    case WM_SYSCOLORCHANGE:
    case WM_SETTINGCHANGE:
        // As frames of the IDE's making do, for all windows in them.
        handOn(hwnd(), message, wParam, lParam);
        return 0;
    case WM_COMMAND:
        if (HIWORD(wParam) <= 1)
            click(LOWORD(wParam));
        return 0;
    case WM_TIMER:
        // As hosts do from time to time: a library that could not go with its add-in, because it waited in a message
        // box of its own, goes later.
        CoFreeUnusedLibrariesEx(0, 0);
        return 0;
    case rebuildMessage:
        rebuildBars();
        return 0;
    case callMessage: {
        const std::unique_ptr<std::shared_ptr<Call>> call(reinterpret_cast<std::shared_ptr<Call>*>(lParam));
        try {
            (*call)->function();
        } catch (...) {
            (*call)->failure = std::current_exception();
        }
        return 0;
    }
    case postedMessage: {
        const std::unique_ptr<std::function<void()>> function(reinterpret_cast<std::function<void()>*>(lParam));
        (*function)();
        return 0;
    }
    case WM_CLOSE:
        end();
        PostQuitMessage(0);
        return 0;
    default:
        return handleDefault(message, wParam, lParam);
    }
}

} // namespace velk::devkit
