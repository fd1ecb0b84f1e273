#include "serverview/svrViewCtl.h"
#include "serverview/columnCommands.h"

#include "backend/texts.h"
#include "base/boundary.h"
#include "scc/VSSAPI.h"
#include "serverview/publishedView.h"

#include <cstring>
#include <product.h>

namespace velk {
namespace {

constexpr wchar_t notKept[] = L"the tree shows it, and the next life does not";
constexpr int32_t viewNameText = 400; // the tool window's caption

// Of a control's notification, which need not stand at an even address: that of a key is packed.
NMHDR headerOf(LPARAM notification)
{
    NMHDR header;
    std::memcpy(&header, reinterpret_cast<const void*>(notification), sizeof header);
    return header;
}

} // namespace

svrViewCtl::svrViewCtl() : Window(VELK_OWN_NAME("svrViewCtl"), GetSysColorBrush(COLOR_BTNFACE))
{
}

svrViewCtl::~svrViewCtl()
{
    endLife();
    destroy();
}

void svrViewCtl::endLife() noexcept
{
    m_keeper.end();
    m_parts.life.enter(SessionState::ended);
    // What is published must not outlive the controls it points to.
    if (publishedView().serverTreeView == m_parts.serverTreeView.get())
        publishedView() = {};
}

void svrViewCtl::create(HWND parent, const RECT& place)
{
    Window::create({parent, WS_CHILD | WS_VISIBLE | WS_CLIPCHILDREN | WS_CLIPSIBLINGS, WS_EX_CONTROLPARENT, place.left,
                    place.top, place.right - place.left, place.bottom - place.top, L""});
    UserControl_Initialize();
    m_splitter->resizeGUI();
}

void svrViewCtl::setIMgr(IntegrationMgr manager)
{
    if (!(manager.session() == m_parts.IMgr.session())) {
        m_parts.life.enter(SessionState::ended);
        m_parts.life = manager.session().part();
    }
    m_parts.IMgr = std::move(manager);
}

void svrViewCtl::UserControl_Initialize()
{
    m_parts.serverTreeView = std::make_unique<TreeView>(hwnd());
    m_parts.serverDetailsView = std::make_unique<DetailsList>(hwnd());
    m_splitter = std::make_unique<Splitter>(hwnd(), m_parts.serverTreeView->hwnd(), m_parts.list().hwnd());
    m_parts.filterStrip = std::make_unique<FilterStrip>(hwnd(), *m_parts.serverDetailsView, *m_splitter);
    m_foot = std::make_unique<ListFoot>(m_parts.list(), *m_splitter);
    m_parts.notice = std::make_unique<ListNotice>(*m_parts.serverTreeView, *m_parts.serverDetailsView, *m_foot);
    m_tips = std::make_unique<CellTips>(hwnd(), *m_parts.serverDetailsView);
    m_parts.list().watch().setWitness([this](UINT message) { m_tips->onMessage(message); });
    m_parts.list().removeColumns();
    m_parts.list().watch().setFilter([this](UINT message, WPARAM, LPARAM lParam) {
        m_parts.notice->onListMessage(message, lParam);
        return answerHeader(*m_parts.serverDetailsView, message, lParam);
    });
    m_look.setPictures(GetSystemMetrics(SM_CXSMICON));
    m_keeper.begin(hwnd(), *m_splitter);
    m_parts.filterStrip->setListener([this] { m_keeper.setFilterOpen(m_parts.filterStrip->isOpen()); });
    if (m_keeper.isFilterOpen())
        m_parts.filterStrip->show();
}

void svrViewCtl::setupGUI()
{
    if (!hwnd())
        return; // closed while the control was handed over
    m_look.setFont();
    m_foot->followFont();
    publishedView() = {m_parts.serverTreeView.get(),
                       m_parts.serverDetailsView.get(),
                       m_parts.notice.get(),
                       m_look.ImageList1(),
                       m_parts.IMgr,
                       m_parts.life,
                       std::make_shared<KeptRecords>(),
                       &m_keeper};
    menus().setUp(isSourceSafeInstalled(), m_parts.IMgr ? m_parts.IMgr.getIdeType() : ideTypeVisualInterDev);
    m_folder.fillColumnSets();
    m_parts.serverTreeView->setName(getRZString(viewNameText));
}

void svrViewCtl::resize(int width, int height)
{
    SetWindowPos(hwnd(), nullptr, 0, 0, width, height, SWP_NOZORDER | SWP_NOACTIVATE | SWP_NOMOVE);
}

void svrViewCtl::UserControl_Resize()
{
    if (m_splitter)
        m_splitter->resizeGUI();
}

bool svrViewCtl::translateKey(const MSG& message)
{
    const bool isPlain = message.message == WM_KEYDOWN; // with Alt held down, and F10, it is the other
    if ((!isPlain && message.message != WM_SYSKEYDOWN) || m_parts.life.isOver())
        return false;
    if (isPlain && m_parts.notice->takesKey(message))
        return true;
    return (isPlain && message.wParam == VK_ESCAPE && m_splitter->cancelDrag()) || m_keys.translateKey(message);
}

LRESULT svrViewCtl::onNotify(const NMHDR& header, LPARAM lParam)
{
    // Both controls tell things while they are being made.
    if (!m_parts.serverTreeView || !m_parts.serverDetailsView)
        return 0;
    const bool isList = header.hwndFrom == m_parts.list().hwnd();
    if (header.code == NM_SETFOCUS) {
        m_wasInList = isList;
        if (m_parts.filterStrip)
            m_parts.filterStrip->loseFocus();
    }
    if (isList)
        return onListNotify(header, lParam);
    return header.hwndFrom == m_parts.serverTreeView->hwnd() ? onTreeNotify(header, lParam) : 0;
}

LRESULT svrViewCtl::onTreeNotify(const NMHDR& header, LPARAM lParam)
{
    const auto hearing = m_parts.serverTreeView->hearing();
    ++m_treeTells;
    const scope_exit heard([this] { --m_treeTells; });
    if (header.code == TVN_SELCHANGEDW && !m_parts.serverTreeView->isChanging()) {
        swallow(L"svrViewCtl tree", notKept,
                [&] { m_keeper.tree().onSelected(*reinterpret_cast<const NMTREEVIEWW*>(lParam)); });
        m_folder.selectNode(false);
    }
    if (header.code == TVN_ITEMEXPANDEDW)
        swallow(L"svrViewCtl tree", notKept,
                [&] { m_keeper.tree().onExpanded(*reinterpret_cast<const NMTREEVIEWW*>(lParam)); });
    if (header.code == TVN_DELETEITEMW)
        m_folder.nodeIsDeleted(*reinterpret_cast<const NMTREEVIEWW*>(lParam));
    return 0;
}

LRESULT svrViewCtl::onListNotify(const NMHDR& header, LPARAM lParam)
{
    DetailsList& list = *m_parts.serverDetailsView;
    switch (header.code) {
    case LVN_GETDISPINFOW:
        list.onGetDispInfo(*reinterpret_cast<NMLVDISPINFOW*>(lParam));
        return 0;
    case LVN_ITEMCHANGED:
        list.selection().rowChanged(*reinterpret_cast<const NMLISTVIEW*>(lParam));
        return 0;
    case LVN_ODSTATECHANGED:
        list.selection().forget();
        return 0;
    case NM_CUSTOMDRAW: {
        auto& draw = *reinterpret_cast<NMLVCUSTOMDRAW*>(lParam);
        return m_parts.notice->onCustomDraw(draw, list.onCustomDraw(draw));
    }
    case NM_DBLCLK:
        onDoubleClick(*reinterpret_cast<const NMITEMACTIVATE*>(lParam));
        return 0;
    case LVN_COLUMNCLICK:
        list.sortBy(list.columns().columnAt(reinterpret_cast<const NMLISTVIEW*>(lParam)->iSubItem));
        return 0;
    case LVN_ODFINDITEMW:
        return list.onFindItem(*reinterpret_cast<const NMLVFINDITEMW*>(lParam));
    case LVN_BEGINDRAG:
        m_rowDrag.begin(hwnd(), *reinterpret_cast<const NMLISTVIEW*>(lParam));
        return 0;
    default:
        return 0;
    }
}

void svrViewCtl::onDoubleClick(const NMITEMACTIVATE& click)
{
    // With Ctrl or Shift it is two clicks that select.
    const bool isPlain = click.iItem >= 0 && (click.uKeyFlags & (LVKF_ALT | LVKF_CONTROL | LVKF_SHIFT)) == 0;
    if (isPlain && !m_parts.life.isOver())
        m_keys.useFirstItem();
}

void svrViewCtl::onContextMenu(HWND pane, LPARAM place) noexcept
{
    const POINT onScreen{static_cast<short>(LOWORD(place)), static_cast<short>(HIWORD(place))};
    const bool isByKeyboard = place == -1;
    swallow(L"svrViewCtl menu", L"no menu opens; what its items do tells its own failures", [&] {
        if (m_headerMenu.isMeant(pane, isByKeyboard)) {
            m_headerMenu.open(hwnd(), onScreen, isByKeyboard);
            return;
        }
        if (pane == m_parts.serverTreeView->hwnd())
            m_keeper.tree().onUsed();
        m_contextMenus.open(hwnd(), pane, onScreen, isByKeyboard);
    });
}

void svrViewCtl::onDestroy()
{
    // This object may live on in calls that are under way, with nothing left to work on.
    endLife();
    if (m_tips)
        m_parts.list().watch().setWitness({});
    m_tips.reset();
    if (!m_parts.serverTreeView)
        return;
    // The system's tree goes on with what it told.
    if (m_treeTells > 0)
        m_parts.serverTreeView->leave();
    else // before its window goes, which may move the selection through the nodes that are left
        m_parts.serverTreeView->clear();
}

void svrViewCtl::focusPane() noexcept
{
    if (m_parts.filterStrip && m_parts.filterStrip->hadFocusLast())
        SetFocus(m_parts.filterStrip->stops().front());
    else if (m_parts.serverTreeView && m_parts.serverDetailsView)
        SetFocus(m_wasInList ? m_parts.list().hwnd() : m_parts.serverTreeView->hwnd());
}

LRESULT svrViewCtl::handle(UINT message, WPARAM wParam, LPARAM lParam)
{
    // The host may close the view inside a call that the message leads to.
    const std::shared_ptr<svrViewCtl> untilAnswered = weak_from_this().lock();
    if (m_splitter && m_splitter->useMouse(message, wParam, lParam)) {
        m_keeper.lookAtSplitter();
        return 0;
    }
    switch (message) {
    case WM_NOTIFY: {
        const LRESULT answer = onNotify(headerOf(lParam), lParam);
        if (untilAnswered.use_count() == 1 && m_parts.serverTreeView)
            m_parts.serverTreeView->leave(); // as in onDestroy: this goes now, and the tree may have told it
        return answer;
    }
    case WM_SYSCOLORCHANGE:
    case WM_SETTINGCHANGE:
        m_look.follow(hwnd(), message, wParam, lParam);
        if (m_foot)
            m_foot->followFont();
        return 0;
    case WM_SIZE:
        UserControl_Resize();
        return 0;
    case WM_CONTEXTMENU:
        // Whatever becomes of it: a message that counts as not handled would open the IDE's own menu.
        onContextMenu(reinterpret_cast<HWND>(wParam), lParam);
        return 0;
    case WM_DESTROY:
        onDestroy();
        return handleDefault(message, wParam, lParam);
    case RowDrag::message:
        m_rowDrag.carryOut();
        return 0;
    case WM_TIMER:
        if (wParam == CellTips::timer && m_tips) {
            m_tips->onTimer();
            return 0;
        }
        return m_keeper.useTimer(wParam) ? 0 : handleDefault(message, wParam, lParam);
    case WM_SETFOCUS:
        focusPane();
        return 0;
    default:
        return handleDefault(message, wParam, lParam);
    }
}

} // namespace velk
