#include "devkit/ide/looks.h"

namespace velk::devkit {
namespace {

HFONT made(bool bold)
{
    NONCLIENTMETRICSW metrics{};
    metrics.cbSize = sizeof metrics;
    SystemParametersInfoW(SPI_GETNONCLIENTMETRICS, sizeof metrics, &metrics, 0);
    metrics.lfMessageFont.lfWeight = bold ? FW_BOLD : FW_NORMAL;
    return CreateFontIndirectW(&metrics.lfMessageFont);
}

} // namespace

HFONT shellFont(bool bold)
{
    static const HFONT plainFont = made(false);
    static const HFONT boldFont = made(true);
    return bold ? boldFont : plainFont;
}

void drawCaption(HDC dc, const RECT& area, const std::wstring& text, COLORREF colour)
{
    RECT place = area;
    const HGDIOBJ before = SelectObject(dc, shellFont(true));
    SetBkMode(dc, TRANSPARENT);
    SetTextColor(dc, colour);
    DrawTextW(dc, text.c_str(), -1, &place, DT_SINGLELINE | DT_VCENTER | DT_END_ELLIPSIS | DT_NOPREFIX);
    SelectObject(dc, before);
}

} // namespace velk::devkit
