// The layout of the server view and its splitter. Positions are twips of the control's inner area, as the panes'
// limits are.

#include "serverview/svrViewCtl.h"

#include <algorithm>

namespace velk {
namespace {

constexpr int twipsPerInch = 1440;
constexpr int barWidthTwips = 60; // 4 pixels at 96 dpi

int dotsPerInch() noexcept
{
    const HDC screen = GetDC(nullptr);
    const int dpi = GetDeviceCaps(screen, LOGPIXELSX);
    ReleaseDC(nullptr, screen);
    return dpi;
}

} // namespace

int svrViewCtl::toTwips(int pixels) const noexcept
{
    return MulDiv(pixels, twipsPerInch, dotsPerInch());
}

int svrViewCtl::toPixels(int twips) const noexcept
{
    return MulDiv(twips, dotsPerInch(), twipsPerInch);
}

SplitterRules svrViewCtl::rules() const noexcept
{
    RECT inner{};
    GetClientRect(hwnd(), &inner);
    return {barWidthTwips, toTwips(inner.right)};
}

void svrViewCtl::resize(int width, int height)
{
    SetWindowPos(hwnd(), nullptr, 0, 0, width, height, SWP_NOZORDER | SWP_NOACTIVATE | SWP_NOMOVE);
}

void svrViewCtl::UserControl_Resize()
{
    if (m_splitPane)
        resizeGUI();
}

void svrViewCtl::resizeGUI()
{
    if (!m_splitPane)
        return;
    RECT inner{};
    GetClientRect(hwnd(), &inner);
    // The tree's own width stays, however much of it a narrow view shows.
    const int treeWidth = std::min<int>(toPixels(rules().barAt(m_treeWidth)), inner.right);
    m_barLeft = toTwips(treeWidth);
    const int barWidth = std::min<int>(toPixels(barWidthTwips), inner.right - treeWidth);
    const int listLeft = treeWidth + barWidth;
    const int height = inner.bottom;
    HDWP places = BeginDeferWindowPos(3);
    const auto place = [&](HWND window, int left, int width) {
        if (places)
            places = DeferWindowPos(places, window, nullptr, left, 0, width, height, SWP_NOZORDER | SWP_NOACTIVATE);
    };
    place(m_serverTreeView->hwnd(), 0, treeWidth);
    place(m_splitPane->hwnd(), treeWidth, barWidth);
    place(m_serverDetailsView->view().hwnd(), listLeft, inner.right - listLeft);
    if (places)
        EndDeferWindowPos(places);
}

void svrViewCtl::UserControl_MouseMove(bool isButtonDown, int x, int y)
{
    const SplitterRules splitter = rules();
    if (m_isDragging || splitter.isOver(m_barLeft, x, y))
        SetCursor(LoadCursorW(nullptr, IDC_SIZEWE));
    if (!m_isDragging || !isButtonDown || !splitter.accepts(x))
        return;
    m_barLeft = x;
    RECT inner{};
    GetClientRect(hwnd(), &inner);
    SetWindowPos(m_splitPane->hwnd(), HWND_TOP, toPixels(x), 0, toPixels(barWidthTwips), inner.bottom, SWP_NOACTIVATE);
}

void svrViewCtl::UserControl_MouseUp(int x, int)
{
    if (!m_isDragging)
        return;
    if (rules().accepts(x))
        m_treeWidth = x;
    endDrag();
    resizeGUI();
}

void svrViewCtl::endDrag() noexcept
{
    m_isDragging = false;
    ReleaseCapture();
}

} // namespace velk
