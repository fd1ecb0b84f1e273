// Tested in tests/forms/window/dialogFitTest.cpp.
#include "window/dialog_fit.h"

#include "base/unique_any.h"

#include <algorithm>

namespace velk {
namespace {

// A layout grows by sixteenths of its width.
constexpr int whole = 16;

// How a control shows its text, and what beside the text it needs, in dialog units.
struct TextRow {
    bool isShown;
    bool isWrapped;
    short margin;
};

// clang-format off
constexpr TextRow texts[] = { // in the order of DialogControl
    {true,  true,   0}, // label
    {false, false,  0}, // edit
    {false, false,  0}, // password
    {false, false,  0}, // dropDownList
    {false, false,  0}, // dropDown
    {true,  false,  8}, // button
    {true,  false,  8}, // defaultButton
    {true,  false, 12}, // group
};
// clang-format on

int pixels(HWND form, int units)
{
    RECT measured{0, 0, units, 0};
    MapDialogRect(form, &measured);
    return measured.right;
}

// A row's place in a layout of that many sixteenths of its width.
RECT placeOf(HWND form, const DialogRow& row, int sixteenths)
{
    RECT place{row.left, row.top, row.left + row.width, row.top + row.height};
    MapDialogRect(form, &place);
    place.left = MulDiv(place.left, sixteenths, whole);
    place.right = MulDiv(place.right, sixteenths, whole);
    return place;
}

// What a window's text takes in a font; wrapped into a width where one is given.
SIZE sizeOfText(HWND window, HFONT font, int width)
{
    std::wstring text(static_cast<size_t>(GetWindowTextLengthW(window)) + 1, L'\0');
    const int length = GetWindowTextW(window, text.data(), static_cast<int>(text.size()));
    const unique_screen_dc screen(GetDC(nullptr));
    const HGDIOBJ before = SelectObject(screen.get(), font);
    RECT size{0, 0, width, 0};
    DrawTextW(screen.get(), text.data(), length, &size, DT_CALCRECT | (width ? DT_WORDBREAK : DT_SINGLELINE));
    SelectObject(screen.get(), before);
    return {size.right, size.bottom};
}

bool fits(HWND form, const DialogRow& row, int sixteenths)
{
    const TextRow& kind = texts[static_cast<size_t>(row.kind)];
    const HWND control = GetDlgItem(form, row.id);
    if (!kind.isShown || (GetWindowLongW(control, GWL_STYLE) & WS_VISIBLE) == 0)
        return true;
    const RECT place = placeOf(form, row, sixteenths);
    const int room = place.right - place.left - pixels(form, kind.margin);
    const auto font = reinterpret_cast<HFONT>(SendMessageW(control, WM_GETFONT, 0, 0));
    const SIZE text = sizeOfText(control, font, kind.isWrapped ? room : 0);
    return text.cx <= room && (!kind.isWrapped || text.cy <= place.bottom - place.top);
}

// Pixels of the form's inner area that its title needs beside the button that closes it.
int widthOfTitle(HWND form)
{
    NONCLIENTMETRICSW metrics{};
    metrics.cbSize = sizeof metrics;
    SystemParametersInfoW(SPI_GETNONCLIENTMETRICS, metrics.cbSize, &metrics, 0);
    const unique_font font(CreateFontIndirectW(&metrics.lfCaptionFont));
    return static_cast<int>(sizeOfText(form, font.get(), 0).cx) + 2 * metrics.iCaptionWidth;
}

// As far as the screen goes.
int mostSixteenths(HWND form, int width)
{
    MONITORINFO screen{};
    screen.cbSize = sizeof screen;
    GetMonitorInfoW(MonitorFromWindow(form, MONITOR_DEFAULTTONEAREST), &screen);
    const int room = screen.rcWork.right - screen.rcWork.left - 2 * GetSystemMetrics(SM_CXDLGFRAME);
    return std::max(whole, MulDiv(room, whole, std::max(1, width)) - 1);
}

void place(HWND form, const DialogLayout& layout, int sixteenths)
{
    RECT inner{};
    RECT outer{};
    GetClientRect(form, &inner);
    GetWindowRect(form, &outer);
    const int width = MulDiv(pixels(form, layout.width), sixteenths, whole);
    if (width == inner.right)
        return;
    SetWindowPos(form, nullptr, 0, 0, outer.right - outer.left + width - inner.right, outer.bottom - outer.top,
                 SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
    for (const DialogRow& row : layout.rows) {
        const RECT room = placeOf(form, row, sixteenths);
        SetWindowPos(GetDlgItem(form, row.id), nullptr, room.left, room.top, room.right - room.left,
                     room.bottom - room.top, SWP_NOZORDER | SWP_NOACTIVATE);
    }
}

} // namespace

void fitToTexts(HWND form, const DialogLayout& layout)
{
    const int width = pixels(form, layout.width);
    const int title = widthOfTitle(form);
    const int most = mostSixteenths(form, width);
    const auto isEnough = [&](int sixteenths) {
        return MulDiv(width, sixteenths, whole) >= title &&
               std::all_of(layout.rows.begin(), layout.rows.end(),
                           [&](const DialogRow& row) { return fits(form, row, sixteenths); });
    };
    int sixteenths = whole;
    while (sixteenths < most && !isEnough(sixteenths))
        ++sixteenths;
    place(form, layout, sixteenths);
}

} // namespace velk
