#include "screen.h"

#include "serverview/viewAPIs.h"

namespace velk::bench {
namespace {

constexpr int32_t folderContents = 5; // type of notification

} // namespace

Screen::Screen(int32_t most)
    : m_tool(most + most / 10), m_manager(makeObject<test::FakeManager>(m_journal)),
      m_pump(notificationThreadFrm::load())
{
    m_pump->setIMMgr(IntegrationMgr(com_ptr<_IntegrationMgr>(m_manager.get()), m_session));
    m_host =
        CreateWindowExW(0, L"STATIC", L"", WS_POPUP | WS_VISIBLE, 0, 0, 900, 280, nullptr, nullptr, nullptr, nullptr);
    m_view.create(m_host, {0, 0, 900, 280});
    m_view.setupGUI();
    m_list = pane(m_view.hwnd(), WC_LISTVIEWW);
    m_tree = pane(m_view.hwnd(), WC_TREEVIEWW);
    addFolderNode(L"", L"5", L"K1", L"orders", L"True");
    addFolderNode(L"K1", L"7", L"K20", L"Procedures", L"False");
}

Screen::~Screen()
{
    m_pump->unload();
    DestroyWindow(m_host);
}

HWND Screen::pane(HWND view, const wchar_t* className)
{
    return FindWindowExW(view, nullptr, className, nullptr);
}

void Screen::enterFolder()
{
    m_view.serverTreeView().select(L"K20");
}

void Screen::leaveFolder()
{
    m_view.serverTreeView().select(L"K1");
}

void Screen::fill(int32_t objects)
{
    m_tool.setCount(objects);
    m_tool.queue(folderContents, 1, 0, 0);
    tick();
    RedrawWindow(m_list, nullptr, nullptr, RDW_INVALIDATE | RDW_UPDATENOW);
}

void Screen::tick()
{
    do
        m_pump->timerThread_Timer();
    while (m_tool.hasMore());
}

void Screen::orderBy(int column) const
{
    NMLISTVIEW click{};
    click.hdr = {m_list, static_cast<UINT_PTR>(GetDlgCtrlID(m_list)), LVN_COLUMNCLICK};
    click.iItem = -1;
    click.iSubItem = column;
    SendMessageW(GetParent(m_list), WM_NOTIFY, click.hdr.idFrom, reinterpret_cast<LPARAM>(&click));
}

} // namespace velk::bench
