#include "serverview/ListNotice.h"

#include "base/boundary.h"
#include "base/grouped_number.h"
#include "serverview/folderKinds.h"
#include "serverview/publishedView.h"
#include "serverview/viewAPIs.h"
#include "ui/ownTexts.h"
#include "window/grey_text.h"
#include "window/list_headers.h"

namespace velk {
namespace {

constexpr wchar_t where[] = L"list notice";

std::wstring withNumber(std::wstring pattern, size_t number)
{
    return pattern.replace(pattern.find(L"%1"), 2, groupedNumber(number));
}

bool isConnected(const TreeNode& connection)
{
    const ImageList* pictures = publishedView().ImageList1;
    return pictures && pictures->keyOf(connection.image) != disconnectedPicture;
}

} // namespace

ListSituation ListNotice::situation() const
{
    const TreeNode* node = m_tree.selected();
    const int32_t kind = kindOf(node);
    const TreeNode* connection = kind == kindConnection || !node ? node : m_tree.parentOf(node->key);
    const RowModel& rows = m_list.rows();
    return {kind, connection && isConnected(*connection), m_contents, rows.sizeUnfiltered(), rows.size()};
}

std::wstring ListNotice::text() const
{
    if (!m_progress.empty())
        return m_progress;
    const wchar_t* text = emptyText(situation());
    return text ? text : std::wstring();
}

RECT ListNotice::area() const noexcept
{
    const HWND list = m_list.view().hwnd();
    RECT area{};
    GetClientRect(list, &area);
    const auto header = reinterpret_cast<HWND>(m_list.view().send(LVM_GETHEADER));
    RECT above{};
    if (header && IsWindowVisible(header) && GetClientRect(header, &above))
        area.top = above.bottom;
    return area;
}

void ListNotice::giveUp() noexcept
{
    if (m_contents == FolderContents::awaited)
        setContents(FolderContents::unreadable);
}

void ListNotice::setContents(FolderContents contents) noexcept
{
    m_contents = contents;
    m_progress.clear();
    refresh();
}

void ListNotice::await() noexcept
{
    setContents(FolderContents::awaited);
    leaveFolder();
}

void ListNotice::leaveFolder() noexcept
{
    swallow(where, L"the line below the list tells of the reading before", [this] { m_foot.say({}); });
}

void ListNotice::tellNumber(size_t objects) noexcept
{
    swallow(where, L"the list tells an older number", [&] {
        const bool isFirst = m_progress.empty();
        m_progress = withNumber(ownTexts::readSoFar, objects);
        // The first time the list has to show that it was emptied.
        if (isFirst)
            RedrawWindow(m_list.view().hwnd(), nullptr, nullptr,
                         RDW_INVALIDATE | RDW_ERASE | RDW_ALLCHILDREN | RDW_UPDATENOW);
        else
            paintGreyText(m_list.view().hwnd(), area(), m_progress);
        m_painted = m_progress;
    });
}

void ListNotice::endStopped(size_t objects, DWORD now) noexcept
{
    m_stopped = now;
    setContents(FolderContents::read);
    swallow(where, L"nothing tells that there are more objects",
            [&] { m_foot.say(withNumber(ownTexts::readingStopped, objects)); });
}

bool ListNotice::takesKey(const MSG& message) noexcept
{
    if (!m_stopped)
        return false;
    const bool isRepeated = (message.lParam & (1 << 30)) != 0;
    const bool isOlder = static_cast<LONG>(message.time - *m_stopped) <= 0;
    const bool isOfThePress = message.wParam == VK_ESCAPE && (isRepeated || isOlder);
    if (!isOfThePress)
        m_stopped.reset();
    return isOfThePress;
}

void ListNotice::refresh() noexcept
{
    swallow(where, L"the list tells what it told before", [this] {
        if (text() != m_painted)
            m_list.view().redraw();
    });
}

void ListNotice::onListMessage(UINT message, LPARAM lParam) noexcept
{
    const std::optional<NMHEADERW> header = headerNotification(m_list.view(), message, lParam);
    const UINT code = header ? header->hdr.code : 0;
    const bool isOfAColumn = code == HDN_ITEMCHANGEDW || code == HDN_ITEMCHANGEDA;
    const bool isWidth = isOfAColumn && header->pitem && (header->pitem->mask & HDI_WIDTH) != 0;
    // What the list moves of its area would take a part of the text along.
    if (message == WM_SIZE || message == WM_HSCROLL || isWidth)
        wrapAnew();
}

void ListNotice::wrapAnew() noexcept
{
    if (!m_painted.empty())
        m_list.view().redraw();
}

LRESULT ListNotice::onCustomDraw(const NMLVCUSTOMDRAW& draw, LRESULT answerOfList) noexcept
{
    swallow(where, L"the list's area stays empty", [&] {
        if (draw.nmcd.dwDrawStage == CDDS_PREPAINT) {
            m_painted = text();
            if (!m_painted.empty())
                answerOfList |= CDRF_NOTIFYPOSTPAINT;
        } else if (draw.nmcd.dwDrawStage == CDDS_POSTPAINT) {
            drawGreyText(draw.nmcd.hdc, m_list.view().hwnd(), area(), m_painted);
        }
    });
    return answerOfList;
}

} // namespace velk
