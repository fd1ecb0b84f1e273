#include "life.h"

#include "devkit/ide/probe.h"
#include "devkit/ide/reentry.h"
#include "devkit/ide/script.h"
#include "timeLimit.h"
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
int callsMade()
{
    int calls = 0;
    for (const auto& [call, count] : reentry().counts())
        if (call != L"RZGetNotification")
            calls += count;
    return calls;
}

// The end of the IDE that a life went through is not the end of this program. Timers that take longer than their
// interval would never let it come to an end.
void workOffMessages()
{
    constexpr DWORD longest = 250; // milliseconds
    const DWORD start = GetTickCount();
    MSG message{};
    while (GetTickCount() - start < longest && PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
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

struct MenuItem {
    int place = 0;
    size_t steps = 0; // down from the menu's edge; 0 when there is no such item
};

MenuItem itemOf(HMENU menu, const std::wstring& caption)
{
    MenuItem item;
    for (; item.place < GetMenuItemCount(menu); ++item.place) {
        item.steps += isSeparator(menu, item.place) ? 0u : 1u;
        if (captionOf(menu, item.place) == caption)
            return item;
    }
    return {};
}

// Though the IDE around it is hidden.
bool isShown(HWND window)
{
    return (GetWindowLongW(window, GWL_STYLE) & WS_VISIBLE) != 0;
}

void press(HWND dialog, HWND button)
{
    const auto id = static_cast<WORD>(GetDlgCtrlID(button));
    PostMessageW(dialog, WM_COMMAND, MAKEWPARAM(id, BN_CLICKED), reinterpret_cast<LPARAM>(button));
}

} // namespace

Life::Life(std::wstring solution, const test::LeftView& left) : m_solution(std::move(solution))
{
    test::leaveView(left);
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
        beat();
        if (living)
            living->answer();
    });
}

void Life::answer()
{
    const HWND box = probe::dialog();
    if (box && probe::field(box, 1))
        logIn(box);
    else if (box && box != m_answered)
        answerBox(box);
    if (!box)
        m_answered = m_form = nullptr;
    // A menu that is about to open has its window before it has the keyboard.
    const HWND menuWindow = GetCapture() ? probe::topWindow(L"#32768") : nullptr;
    const HMENU menu = menuWindow ? reinterpret_cast<HMENU>(SendMessageW(menuWindow, getMenuMessage, 0, 0)) : nullptr;
    if (menu && menu != m_chosenIn)
        chooseItem(menu);
    m_looksAtMenu = menu && menu == m_chosenIn ? m_looksAtMenu + 1 : 0;
    if (m_looksAtMenu > 100) // it did not take what it was told
        EndMenu();
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
            press(box, button);
            return;
        }
}

// Once with each tick: names and the login first, OK as soon as it may be, and the way out when it may not for long.
void Life::logIn(HWND form)
{
    constexpr int mostLooks = 20;
    if (std::exchange(m_form, form) != form) {
        m_looksAtForm = 0;
        SetWindowTextW(probe::field(form, 1), L"ann");
        SetWindowTextW(probe::field(form, 2), L"secret");
        press(form, probe::dialogButton(form, L"Login"));
    } else if (const HWND ok = GetDlgItem(form, IDOK); IsWindowEnabled(ok)) {
        press(form, ok);
    } else if (++m_looksAtForm > mostLooks) {
        press(form, GetDlgItem(form, IDCANCEL));
    }
}

void Life::chooseItem(HMENU menu)
{
    std::vector<WPARAM> keys;
    for (const std::wstring& caption : split(m_item, L'/')) {
        const MenuItem item = itemOf(menu, caption);
        if (item.steps == 0) {
            EndMenu();
            return;
        }
        // A menu below another opens with its first item highlighted.
        if (!keys.empty())
            keys.push_back(VK_RIGHT);
        keys.insert(keys.end(), keys.empty() ? item.steps : item.steps - 1, VK_DOWN);
        menu = GetSubMenu(menu, item.place);
    }
    keys.push_back(VK_RETURN);
    for (const WPARAM key : keys)
        PostMessageW(GetCapture(), WM_KEYDOWN, key, 0);
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
        const int before = callsMade();
        beat();
        tick();
        workOffMessages();
        const bool isWorking = backendIsWorking();
        quiet = callsMade() == before && !isWorking ? quiet + 1 : 0;
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
    m_chosenIn = nullptr; // the view opens the same menu again, perhaps before a tick saw it closed
    SendMessageW(control, WM_CONTEXTMENU, reinterpret_cast<WPARAM>(control), -1);
    settle();
}

void Life::choose(const wchar_t* row, const wchar_t* item)
{
    const HWND list = control(WC_LISTVIEWW);
    const auto place = list ? probe::row(list, row) : std::nullopt;
    if (!place)
        return;
    ListView_SetItemState(list, -1, 0, LVIS_SELECTED); // as a click does
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

void Life::work()
{
    for (const wchar_t* folder : {L"Tables", L"Views", L"Triggers", L"User-Defined Functions", L"Stored Procedures"})
        browse(folder);
    choose(L"place_order", L"Build");
    choose(L"close_order", L"Drop From Database");
    choose(L"place_order", L"View Source");
    click(L"Rozel", L"SQL Assist");
}

void Life::useSourceSafe()
{
    chooseOfNode(L"Orders", L"Add Project to Visual SourceSafe");
    browse(L"Stored Procedures");
    for (const wchar_t* item : {L"Add File", L"Check Out", L"Check In"}) {
        choose(L"place_order", (std::wstring(L"Visual SourceSafe/") + item).c_str());
        const DWORD looks = GetFileAttributesW(L"rz\\routines\\place_order.sql");
        see(std::wstring(item) + (looks & FILE_ATTRIBUTE_READONLY ? L": read-only" : L": writable"));
    }
}

void Life::reconnect()
{
    chooseOfNode(L"Orders/ORDERS", L"Disconnect");
    chooseOfNode(L"Orders/ORDERS", L"Connect");
}

void Life::whole()
{
    load();
    start();
    work();
    reconnect();
    end();
}

void Life::wholeWithSourceSafe()
{
    load();
    start();
    work();
    useSourceSafe();
    reconnect();
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

void Life::back()
{
    load();
    start();
    const HWND tree = control(WC_TREEVIEWW);
    const HWND list = control(WC_LISTVIEWW);
    const HWND strip = control(L"velkviadd.filterStrip");
    see(L"selected: " + (tree ? probe::nodeText(tree, TreeView_GetSelection(tree)) : std::wstring()));
    see(L"rows: " + std::to_wstring(list ? probe::rowCount(list) : 0));
    see(std::wstring(L"filter: ") + (strip && isShown(strip) ? L"open" : L"closed"));
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
