#include "life.h"

#include "devkit/ide/probe.h"
#include "devkit/ide/reentry.h"
#include "devkit/ide/script.h"
#include "watch.h"

#include <commctrl.h>

namespace velk::devkit {
namespace {

constexpr wchar_t progId[] = L"velkviadd.Connect";
constexpr wchar_t pumpClass[] = L"velkviadd.notificationThreadFrm";
constexpr UINT getMenuMessage = 0x01E1; // MN_GETHMENU of the system's menu windows
constexpr DWORD patience = 5000;        // milliseconds

Life* living = nullptr;

// Every call but the polls: when these stand still nothing goes on any more.
int work()
{
    int calls = 0;
    for (const auto& [call, count] : reentry().counts())
        if (call != L"RZGetNotification")
            calls += count;
    return calls;
}

// The end of the IDE that a life went through is not the end of this program.
void workOffMessages()
{
    MSG message{};
    while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
        if (message.message == WM_QUIT)
            continue;
        TranslateMessage(&message);
        DispatchMessageW(&message);
    }
}

// The pump's own timer runs, too; this one only does not wait for it.
void tick()
{
    for (HWND pump = nullptr; (pump = FindWindowExW(HWND_MESSAGE, pump, pumpClass, nullptr)) != nullptr;) {
        DWORD process = 0;
        GetWindowThreadProcessId(pump, &process);
        if (process != GetCurrentProcessId())
            continue;
        PostMessageW(pump, WM_TIMER, 1, 0);
        return;
    }
}

bool isSeparator(HMENU menu, int place)
{
    MENUITEMINFOW item{};
    item.cbSize = sizeof item;
    item.fMask = MIIM_FTYPE;
    GetMenuItemInfoW(menu, static_cast<UINT>(place), TRUE, &item);
    return (item.fType & MFT_SEPARATOR) != 0;
}

std::wstring captionOf(HMENU menu, int place)
{
    wchar_t text[256] = L"";
    GetMenuStringW(menu, static_cast<UINT>(place), text, 256, MF_BYPOSITION);
    return withoutMarks(text);
}

} // namespace

Life::Life(std::wstring solution) : m_solution(std::move(solution))
{
    m_furniture = furniture(m_shell);
    living = this;
    m_timer = SetTimer(nullptr, 0, 10, answerOpen);
}

Life::~Life()
{
    KillTimer(nullptr, m_timer);
    living = nullptr;
}

void CALLBACK Life::answerOpen(HWND, UINT, UINT_PTR, DWORD) noexcept
{
    swallow(L"life", L"the next tick tries again", [] {
        if (living)
            living->answer();
    });
}

void Life::answer()
{
    const HWND box = probe::dialog();
    if (box && box != m_answered)
        answerBox(box);
    if (!box)
        m_answered = nullptr;
    const HWND menuWindow = probe::topWindow(L"#32768");
    const HMENU menu = menuWindow ? reinterpret_cast<HMENU>(SendMessageW(menuWindow, getMenuMessage, 0, 0)) : nullptr;
    if (menu && menu != m_chosenIn)
        chooseItem(menu);
    m_chosenIn = menu;
}

void Life::answerBox(HWND box)
{
    m_answered = box;
    std::wstring text = probe::dialogText(box);
    for (wchar_t& letter : text)
        letter = letter == L'\n' || letter == L'\r' ? L' ' : letter;
    see(L"box: " + text);
    if (m_shell.addIns().loaded().empty())
        m_problems.push_back(L"a box after the end: " + text);
    for (const int id : {IDNO, IDOK, IDCANCEL, IDYES})
        if (const HWND button = GetDlgItem(box, id)) {
            PostMessageW(box, WM_COMMAND, MAKEWPARAM(id, BN_CLICKED), reinterpret_cast<LPARAM>(button));
            return;
        }
}

void Life::chooseItem(HMENU menu)
{
    const HWND owner = GetCapture();
    int keys = 0;
    for (int place = 0; place < GetMenuItemCount(menu); ++place) {
        keys += isSeparator(menu, place) ? 0 : 1;
        if (captionOf(menu, place) != m_item)
            continue;
        for (; keys > 0; --keys)
            PostMessageW(owner, WM_KEYDOWN, VK_DOWN, 0);
        PostMessageW(owner, WM_KEYDOWN, VK_RETURN, 0);
        return;
    }
    EndMenu();
}

void Life::see(const std::wstring& fact)
{
    m_facts.push_back(fact);
}

// Until nothing more comes of what was done.
void Life::settle()
{
    const DWORD start = GetTickCount();
    for (int quiet = 0; quiet < 2 && GetTickCount() - start < patience;) {
        const int before = work();
        tick();
        workOffMessages();
        const bool isWorking = backendIsWorking();
        quiet = work() == before && !isWorking ? quiet + 1 : 0;
        if (isWorking)
            Sleep(1);
    }
}

HWND Life::control(const wchar_t* className) const
{
    return probe::childOfClass(m_shell.hwnd(), className);
}

void Life::load()
{
    swallow(L"life", L"the life goes on without the add-in",
            [this] { m_shell.addIns().load(progId, ConnectMode::startup); });
    settle();
}

void Life::start()
{
    m_shell.dte().solution->open(m_solution);
    click(L"Add-Ins", L"Rozel Development");
    const HWND tree = control(WC_TREEVIEWW);
    see(L"nodes: " + std::to_wstring(tree ? TreeView_GetCount(tree) : 0));
}

void Life::click(const wchar_t* bar, const wchar_t* entry)
{
    const CommandBar* const there = m_shell.dte().bars->find(bar);
    const com_ptr<CommandBarControl> control(there ? there->findCaption(entry) : nullptr);
    swallow(L"life", L"an entry may be disabled", [&] {
        if (control)
            control->execute();
    });
    settle();
}

void Life::browse(const wchar_t* folder)
{
    const HWND tree = control(WC_TREEVIEWW);
    const HTREEITEM node = tree ? probe::node(tree, {L"Orders", L"ORDERS", folder}) : nullptr;
    if (!node)
        return;
    TreeView_SelectItem(tree, node);
    settle();
    const HWND list = control(WC_LISTVIEWW);
    see(std::wstring(folder) + L": " + std::to_wstring(list ? probe::rowCount(list) : 0));
}

void Life::openMenuOf(HWND control, const wchar_t* item)
{
    m_item = item;
    SendMessageW(control, WM_CONTEXTMENU, reinterpret_cast<WPARAM>(control), -1);
    settle();
}

void Life::choose(const wchar_t* row, const wchar_t* item)
{
    const HWND list = control(WC_LISTVIEWW);
    const auto place = list ? probe::row(list, row) : std::nullopt;
    if (!place)
        return;
    ListView_SetItemState(list, *place, LVIS_SELECTED | LVIS_FOCUSED, LVIS_SELECTED | LVIS_FOCUSED);
    openMenuOf(list, item);
}

void Life::chooseOfNode(const wchar_t* path, const wchar_t* item)
{
    const HWND tree = control(WC_TREEVIEWW);
    const HTREEITEM node = tree ? probe::node(tree, split(path, L'/')) : nullptr;
    if (!node)
        return;
    TreeView_SelectItem(tree, node);
    openMenuOf(tree, item);
}

void Life::whole()
{
    load();
    start();
    for (const wchar_t* folder : {L"Tables", L"Views", L"Triggers", L"User-Defined Functions", L"Stored Procedures"})
        browse(folder);
    choose(L"place_order", L"Build");
    choose(L"close_order", L"Drop From Database");
    choose(L"place_order", L"View Source");
    click(L"Rozel", L"SQL Assist");
    chooseOfNode(L"Orders/ORDERS", L"Disconnect");
    chooseOfNode(L"Orders/ORDERS", L"Connect");
    end();
}

void Life::brief(bool isLetGo)
{
    load();
    start();
    browse(L"Tables");
    if (isLetGo)
        m_shell.addIns().letGo(progId);
    end();
}

void Life::end()
{
    for (const std::wstring& one : m_shell.addIns().loaded())
        m_shell.addIns().unload(one, DisconnectMode::userClosed);
    m_shell.addIns().unloadOthers();
    settle();
}

} // namespace velk::devkit
