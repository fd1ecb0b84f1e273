#include "window/grey_text.h"

#include "base/unique_any.h"

#include <algorithm>

namespace velk {
namespace {

constexpr UINT format = DT_CENTER | DT_WORDBREAK | DT_NOPREFIX;

// Where the text stands: a line below the head of the area, and half a line away from its sides.
RECT placeOf(HDC dc, RECT area, const std::wstring& text) noexcept
{
    TEXTMETRICW font{};
    GetTextMetricsW(dc, &font);
    InflateRect(&area, -font.tmHeight / 2, -font.tmHeight);
    RECT place = area;
    DrawTextW(dc, text.c_str(), static_cast<int>(text.size()), &place, format | DT_CALCRECT);
    place.left = area.left;
    place.right = area.right;
    return place;
}

// While it lives, what is drawn has the control's font and the text's colour.
class Pen {
public:
    Pen(HDC dc, HWND control) noexcept : m_dc(dc), m_saved(SaveDC(dc))
    {
        if (const LRESULT font = SendMessageW(control, WM_GETFONT, 0, 0))
            SelectObject(dc, reinterpret_cast<HFONT>(font));
        SetTextColor(
            dc, steppingBack(GetSysColor(COLOR_GRAYTEXT), GetSysColor(COLOR_WINDOW), GetSysColor(COLOR_WINDOWTEXT)));
        SetBkMode(dc, TRANSPARENT);
    }
    Pen(const Pen&) = delete;
    Pen& operator=(const Pen&) = delete;
    ~Pen() { RestoreDC(m_dc, m_saved); }

private:
    HDC m_dc;
    int m_saved;
};

void drawIn(HDC dc, RECT place, const std::wstring& text) noexcept
{
    DrawTextW(dc, text.c_str(), static_cast<int>(text.size()), &place, format);
}

// Through a picture, so that a text which follows another does not flicker.
void exchange(HDC dc, HWND control, const RECT& place, const std::wstring& text) noexcept
{
    const int width = std::max(1L, place.right - place.left);
    const int height = std::max(1L, place.bottom - place.top);
    const unique_memory_dc memory(CreateCompatibleDC(dc));
    const unique_bitmap picture(CreateCompatibleBitmap(dc, width, height));
    const HGDIOBJ before = SelectObject(memory.get(), picture.get());
    const RECT whole{0, 0, width, height};
    FillRect(memory.get(), &whole, GetSysColorBrush(COLOR_WINDOW));
    {
        const Pen pen(memory.get(), control);
        drawIn(memory.get(), whole, text);
    }
    BitBlt(dc, place.left, place.top, width, height, memory.get(), 0, 0, SRCCOPY);
    SelectObject(memory.get(), before);
}

} // namespace

COLORREF steppingBack(COLORREF grey, COLORREF window, COLORREF text) noexcept
{
    return grey == window ? text : grey;
}

void drawGreyText(HDC dc, HWND control, const RECT& area, const std::wstring& text) noexcept
{
    const Pen pen(dc, control);
    drawIn(dc, placeOf(dc, area, text), text);
}

void paintGreyText(HWND control, const RECT& area, const std::wstring& text) noexcept
{
    const HDC dc = GetDC(control);
    RECT place{};
    {
        const Pen pen(dc, control);
        place = placeOf(dc, area, text);
    }
    exchange(dc, control, place, text);
    ReleaseDC(control, dc);
}

} // namespace velk
