#include "serverview/splitter.h"

#include "window/twips.h"

#include <algorithm>

namespace velk {
namespace {

constexpr int barWidthTwips = 60; // 4 pixels at 96 dpi
constexpr int firstTreeWidth = 3600;

RECT innerOf(HWND window) noexcept
{
    RECT inner{};
    GetClientRect(window, &inner);
    return inner;
}

} // namespace

Splitter::Splitter(HWND owner, HWND leftPane, HWND rightPane)
    : m_owner(owner), m_leftPane(leftPane), m_rightPane(rightPane), m_bar(L"STATIC", owner, WS_CLIPSIBLINGS),
      m_treeWidth(firstTreeWidth), m_barLeft(firstTreeWidth)
{
}

SplitterRules Splitter::rules() const noexcept
{
    return {barWidthTwips, toTwips(innerOf(m_owner).right)};
}

void Splitter::setHead(HWND head, int height)
{
    m_head = head;
    m_headHeight = head ? height : 0;
    resizeGUI();
}

void Splitter::setFoot(HWND foot, int height)
{
    m_foot = foot;
    m_footHeight = foot ? height : 0;
    resizeGUI();
}

void Splitter::resizeGUI()
{
    const RECT inner = innerOf(m_owner);
    // The tree's own width stays, however much of it a narrow view shows.
    const int treeWidth = std::min<int>(toPixels(rules().barAt(m_treeWidth)), inner.right);
    m_barLeft = toTwips(treeWidth);
    const int barWidth = std::min<int>(toPixels(barWidthTwips), inner.right - treeWidth);
    const int listLeft = treeWidth + barWidth;
    const int listTop = std::min<int>(m_headHeight, inner.bottom);
    const int listBottom = std::max<int>(inner.bottom - m_footHeight, listTop);
    HDWP places = BeginDeferWindowPos(5);
    const auto place = [&](HWND window, const RECT& at) {
        if (places && window)
            places = DeferWindowPos(places, window, nullptr, at.left, at.top, at.right - at.left, at.bottom - at.top,
                                    SWP_NOZORDER | SWP_NOACTIVATE);
    };
    place(m_leftPane, {0, 0, treeWidth, inner.bottom});
    place(m_bar.hwnd(), {treeWidth, 0, listLeft, inner.bottom});
    place(m_head, {listLeft, 0, inner.right, listTop});
    place(m_rightPane, {listLeft, listTop, inner.right, listBottom});
    place(m_foot, {listLeft, listBottom, inner.right, std::max<LONG>(inner.bottom, listBottom)});
    if (places)
        EndDeferWindowPos(places);
}

void Splitter::setTreeWidth(int twips)
{
    m_treeWidth = twips;
    resizeGUI();
}

bool Splitter::useMouse(UINT message, WPARAM wParam, LPARAM lParam)
{
    const auto x = [&] { return toTwips(static_cast<short>(LOWORD(lParam))); };
    const auto y = [&] { return toTwips(static_cast<short>(HIWORD(lParam))); };
    switch (message) {
    case WM_LBUTTONDOWN:
        press(x(), y());
        return true;
    case WM_MOUSEMOVE:
        UserControl_MouseMove((wParam & MK_LBUTTON) != 0, x(), y());
        return true;
    case WM_LBUTTONUP:
        UserControl_MouseUp(x(), y());
        return true;
    case WM_CAPTURECHANGED:
        loseCapture();
        return true;
    default:
        return false;
    }
}

void Splitter::press(int x, int y)
{
    if (!rules().isOver(m_barLeft, x, y))
        return;
    SetCapture(m_owner);
    m_isDragging = true;
}

void Splitter::UserControl_MouseMove(bool isButtonDown, int x, int y)
{
    const SplitterRules splitter = rules();
    if (m_isDragging || splitter.isOver(m_barLeft, x, y))
        SetCursor(LoadCursorW(nullptr, IDC_SIZEWE));
    if (!m_isDragging || !isButtonDown || !splitter.accepts(x))
        return;
    m_barLeft = x;
    SetWindowPos(m_bar.hwnd(), HWND_TOP, toPixels(x), 0, toPixels(barWidthTwips), innerOf(m_owner).bottom,
                 SWP_NOACTIVATE);
}

void Splitter::UserControl_MouseUp(int x, int)
{
    if (!m_isDragging)
        return;
    if (rules().accepts(x))
        m_treeWidth = x;
    endDrag();
    resizeGUI();
}

void Splitter::loseCapture()
{
    m_isDragging = false;
    resizeGUI();
}

bool Splitter::cancelDrag()
{
    if (!m_isDragging)
        return false;
    endDrag();
    resizeGUI();
    return true;
}

void Splitter::endDrag() noexcept
{
    m_isDragging = false;
    ReleaseCapture();
}

} // namespace velk
