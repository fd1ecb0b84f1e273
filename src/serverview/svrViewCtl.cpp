#include "serverview/svrViewCtl.h"

#include "backend/calls.h"
#include "backend/texts.h"
#include "base/boundary.h"
#include "scc/VSSAPI.h"
#include "serverview/folderKinds.h"
#include "serverview/publishedView.h"
#include "serverview/viewAPIs.h"
#include "ui/uiFont.h"

namespace velk {
namespace {

constexpr int picturesResource = 120;
constexpr int pictureSize = 16; // pixels
constexpr COLORREF pictureMask = RGB(255, 0, 255);
constexpr int firstTreeWidth = 3600;  // twips
constexpr int32_t viewNameText = 400; // the tool window's caption

// Headers that several kinds of folder share are fetched once.
constexpr int32_t firstHeaderText = 500;
constexpr int32_t lastSharedHeaderText = 505;

} // namespace

svrViewCtl::svrViewCtl()
    : Window(L"velkviadd.svrViewCtl", GetSysColorBrush(COLOR_BTNFACE)), m_treeWidth(firstTreeWidth),
      m_barLeft(firstTreeWidth)
{
}

svrViewCtl::~svrViewCtl()
{
    endLife();
    destroy();
}

void svrViewCtl::endLife() noexcept
{
    m_life.enter(SessionState::ended);
    // What is published must not outlive the controls it points to.
    if (publishedView().serverTreeView == m_serverTreeView.get())
        publishedView() = {};
}

void svrViewCtl::create(HWND parent, const RECT& place)
{
    Window::create({parent, WS_CHILD | WS_VISIBLE | WS_CLIPCHILDREN | WS_CLIPSIBLINGS, WS_EX_CONTROLPARENT, place.left,
                    place.top, place.right - place.left, place.bottom - place.top, L""});
    UserControl_Initialize();
    resizeGUI();
}

void svrViewCtl::setIMgr(IntegrationMgr manager)
{
    if (!(manager.session() == m_IMgr.session())) {
        m_life.enter(SessionState::ended);
        m_life = manager.session().part();
    }
    m_IMgr = std::move(manager);
}

void svrViewCtl::UserControl_Initialize()
{
    m_serverTreeView = std::make_unique<tree_view>(hwnd());
    m_serverDetailsView = std::make_unique<DetailsList>(hwnd());
    m_splitPane = std::make_unique<Control>(L"STATIC", hwnd(), WS_CLIPSIBLINGS);
    m_serverDetailsView->view().removeColumns();
    ImageList1 = std::make_unique<image_list>(picturesResource, pictureSize, pictureMask, imageKeys());
    m_serverDetailsView->view().setImages(ImageList1->get());
    m_serverTreeView->setImages(ImageList1->get());
}

void svrViewCtl::setupGUI()
{
    if (!hwnd())
        return; // closed while the control was handed over
    m_font = makeFont(uiFont());
    m_serverTreeView->setFont(m_font.get());
    m_serverDetailsView->setFont(m_font.get());
    publishedView() = {m_serverTreeView.get(), m_serverDetailsView.get(), ImageList1.get(), m_IMgr, m_life};
    m_menus.setUp(isSourceSafeInstalled(), m_IMgr ? m_IMgr.getIdeType() : ideTypeVisualInterDev);
    fillColumnSets();
    m_serverTreeView->setName(getRZString(viewNameText));
}

void svrViewCtl::fillColumnSets()
{
    std::map<int32_t, std::wstring> shared;
    const auto header = [&shared](int32_t number) {
        if (number < firstHeaderText || number > lastSharedHeaderText)
            return getRZString(number);
        const auto [found, isNew] = shared.try_emplace(number);
        if (isNew)
            found->second = getRZString(number);
        return found->second;
    };
    for (const FolderKindRow& row : folderKindRows()) {
        std::vector<std::wstring>& texts = m_columnSets[row.folderKind];
        texts.clear();
        for (const int32_t number : row.headers)
            texts.push_back(header(number));
    }
}

void svrViewCtl::selectNode(bool force)
{
    const TreeNode* node = m_serverTreeView->selected();
    if (m_life.isOver() || !node || (node->key == m_previousNode && !force))
        return;
    m_previousNode = node->key;
    const int32_t handle = keyToHandle(node->key);
    const int32_t kind = kindOf(node);
    const auto columns = m_columnSets.find(kind);
    m_serverDetailsView->showColumns(kind,
                                     columns == m_columnSets.end() ? std::vector<std::wstring>() : columns->second);
    m_serverDetailsView->view().setName(node->text);
    RZSetCurrentFolder(handle, kind);
}

void svrViewCtl::forgetNode()
{
    m_previousNode.clear();
    m_serverDetailsView->view().setName({});
    m_serverDetailsView->showColumns(0, {});
}

LRESULT svrViewCtl::onTreeNotify(const NMHDR& header, LPARAM lParam)
{
    if (header.code == TVN_SELCHANGEDW && !m_serverTreeView->isChanging())
        selectNode(false);
    if (header.code == TVN_DELETEITEMW) {
        const auto& notification = *reinterpret_cast<const NMTREEVIEWW*>(lParam);
        const auto* node = reinterpret_cast<const TreeNode*>(notification.itemOld.lParam);
        const bool isRemembered = node && node->key == m_previousNode;
        m_serverTreeView->onDeleteItem(notification);
        if (isRemembered)
            forgetNode();
    }
    return 0;
}

void svrViewCtl::notePane(const NMHDR& header) noexcept
{
    if (header.code == NM_SETFOCUS)
        m_wasInList = header.hwndFrom == m_serverDetailsView->view().hwnd();
}

LRESULT svrViewCtl::onNotify(const NMHDR& header, LPARAM lParam)
{
    // Both controls tell things while they are being made.
    if (!m_serverTreeView || !m_serverDetailsView)
        return 0;
    notePane(header);
    if (header.hwndFrom == m_serverTreeView->hwnd())
        return onTreeNotify(header, lParam);
    if (header.hwndFrom == m_serverDetailsView->view().hwnd())
        return onListNotify(header, lParam);
    return 0;
}

LRESULT svrViewCtl::onListNotify(const NMHDR& header, LPARAM lParam)
{
    switch (header.code) {
    case LVN_GETDISPINFOW:
        m_serverDetailsView->onGetDispInfo(*reinterpret_cast<NMLVDISPINFOW*>(lParam));
        return 0;
    case NM_CUSTOMDRAW:
        return m_serverDetailsView->onCustomDraw(*reinterpret_cast<NMLVCUSTOMDRAW*>(lParam));
    case LVN_COLUMNCLICK:
        m_serverDetailsView->sortBy(static_cast<size_t>(reinterpret_cast<const NMLISTVIEW*>(lParam)->iSubItem));
        return 0;
    case LVN_ODFINDITEMW:
        return m_serverDetailsView->onFindItem(*reinterpret_cast<const NMLVFINDITEMW*>(lParam));
    default:
        return 0;
    }
}

bool svrViewCtl::translateKey(const MSG& message)
{
    if (message.message != WM_KEYDOWN || m_life.isOver())
        return false;
    const bool isInList = m_serverDetailsView->view().hasFocus();
    if (message.wParam == VK_TAB && GetKeyState(VK_CONTROL) >= 0) {
        SetFocus(isInList ? m_serverTreeView->hwnd() : m_serverDetailsView->view().hwnd());
        return true;
    }
    if (message.wParam == VK_ESCAPE && m_isDragging) {
        endDrag();
        resizeGUI();
        return true;
    }
    if (useKey(message.wParam))
        return true;
    // The keys by which both controls move must reach them also where a host has them as accelerators of its own.
    const bool moves = message.wParam >= VK_PRIOR && message.wParam <= VK_DOWN;
    if (moves) {
        TranslateMessage(&message);
        DispatchMessageW(&message);
    }
    return moves;
}

LRESULT svrViewCtl::handle(UINT message, WPARAM wParam, LPARAM lParam)
{
    // The host may close the view inside a call that the message leads to.
    const std::shared_ptr<svrViewCtl> untilAnswered = weak_from_this().lock();
    const auto x = [&] { return toTwips(static_cast<short>(LOWORD(lParam))); };
    const auto y = [&] { return toTwips(static_cast<short>(HIWORD(lParam))); };
    switch (message) {
    case WM_NOTIFY:
        return onNotify(*reinterpret_cast<const NMHDR*>(lParam), lParam);
    case WM_SIZE:
        UserControl_Resize();
        return 0;
    case WM_LBUTTONDOWN:
        if (rules().isOver(m_barLeft, x(), y())) {
            SetCapture(hwnd());
            m_isDragging = true;
        }
        return 0;
    case WM_MOUSEMOVE:
        UserControl_MouseMove((wParam & MK_LBUTTON) != 0, x(), y());
        return 0;
    case WM_LBUTTONUP:
        UserControl_MouseUp(x(), y());
        return 0;
    case WM_CAPTURECHANGED:
        m_isDragging = false;
        resizeGUI();
        return 0;
    case WM_CONTEXTMENU:
        // Whatever becomes of it: a message that counts as not handled would open the IDE's own menu.
        swallow(L"svrViewCtl menu", L"no menu opens; what its items do tells its own failures", [&] {
            onContextMenu(reinterpret_cast<HWND>(wParam),
                          {static_cast<short>(LOWORD(lParam)), static_cast<short>(HIWORD(lParam))}, lParam == -1);
        });
        return 0;
    case WM_DESTROY:
        // This object may live on in calls that are under way, with nothing left to work on.
        endLife();
        // Before the tree's window goes, which may move the selection through the nodes that are left.
        if (m_serverTreeView)
            m_serverTreeView->clear();
        return handleDefault(message, wParam, lParam);
    case WM_SETFOCUS:
        if (m_serverTreeView && m_serverDetailsView)
            SetFocus(m_wasInList ? m_serverDetailsView->view().hwnd() : m_serverTreeView->hwnd());
        return 0;
    default:
        return handleDefault(message, wParam, lParam);
    }
}

} // namespace velk
