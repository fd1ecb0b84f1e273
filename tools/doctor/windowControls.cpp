// Tested in tests/tools/doctor/doctorWindowTest.cpp.
#include "windowControls.h"

#include "base/error.h"
#include "statePictures.h"
#include "windowTexts.h"

#include <algorithm>

namespace velk::doctor {
namespace {

// In lines and average characters of the font.
constexpr LONG usualWidth = 130;
constexpr LONG usualHeight = 34;
constexpr LONG leastWidth = 60;
constexpr LONG sentenceLines = 4;
constexpr LONG detailLines = 6;
constexpr LONG leastListLines = 5;
constexpr LONG buttonPadding = 4;
constexpr int leastPicture = 16; // pixels

struct ButtonRow {
    int command;
    const wchar_t* text;
};
constexpr std::array<ButtonRow, 4> buttonRows{{
    {WindowControls::cmdFix, windowTexts::fix},
    {WindowControls::cmdCopy, windowTexts::copy},
    {WindowControls::cmdAgain, windowTexts::again},
    {WindowControls::cmdClose, windowTexts::close},
}};

unique_font messageFont()
{
    NONCLIENTMETRICSW metrics{};
    metrics.cbSize = sizeof metrics;
    throwLastErrorUnless(SystemParametersInfoW(SPI_GETNONCLIENTMETRICS, metrics.cbSize, &metrics, 0) != FALSE);
    return unique_font(CreateFontIndirectW(&metrics.lfMessageFont));
}

// The screen with a font chosen.
class Measure {
public:
    explicit Measure(HFONT font) noexcept : m_screen(GetDC(nullptr)), m_before(SelectObject(m_screen.get(), font)) {}
    Measure(const Measure&) = delete;
    Measure& operator=(const Measure&) = delete;
    ~Measure() { SelectObject(m_screen.get(), m_before); }

    SIZE of(const std::wstring& text) const noexcept
    {
        SIZE size{};
        GetTextExtentPoint32W(m_screen.get(), text.data(), static_cast<int>(text.size()), &size);
        return size;
    }
    HDC dc() const noexcept { return m_screen.get(); }

private:
    unique_screen_dc m_screen;
    HGDIOBJ m_before;
};

void setId(const Control& control, int id) noexcept
{
    SetWindowLongPtrW(control.hwnd(), GWLP_ID, id);
}

void place(const Control& control, const RECT& area) noexcept
{
    MoveWindow(control.hwnd(), area.left, area.top, std::max(area.right - area.left, 0L),
               std::max(area.bottom - area.top, 0L), TRUE);
}

LONG gapOf(const WindowFont& font) noexcept
{
    return font.height() / 2;
}

LONG buttonHeight(const WindowFont& font) noexcept
{
    return font.height() * 7 / 4;
}

LONG buttonWidth(const WindowFont& font, const ButtonRow& row) noexcept
{
    return font.widthOf(row.text) + buttonPadding * font.width();
}

} // namespace

WindowFont::WindowFont() : m_font(messageFont())
{
    const std::wstring letters = L"ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz";
    const SIZE size = Measure(m_font.get()).of(letters);
    m_character = {size.cx / static_cast<LONG>(letters.size()) + 1, size.cy};
}

LONG WindowFont::widthOf(const std::wstring& text) const noexcept
{
    return Measure(m_font.get()).of(text).cx;
}

LONG WindowFont::heightOf(const std::wstring& text, LONG width) const noexcept
{
    RECT area{0, 0, width, 0};
    DrawTextW(Measure(m_font.get()).dc(), text.data(), static_cast<int>(text.size()), &area,
              DT_CALCRECT | DT_WORDBREAK | DT_NOPREFIX);
    return area.bottom;
}

WindowControls::WindowControls(HWND parent, const WindowFont& font)
    : sentence(L"STATIC", parent, SS_NOPREFIX), list(parent),
      details(L"EDIT", parent, WS_TABSTOP | WS_VSCROLL | ES_MULTILINE | ES_READONLY, WS_EX_CLIENTEDGE), m_font(font),
      m_parent(parent), m_pictures(statePictures(std::max<int>(font.height(), leastPicture)))
{
    sentence.setFont(font.get());
    list.setFont(font.get());
    details.setFont(font.get());
    setId(sentence, lblSentence);
    setId(list, lstChecks);
    setId(details, txtDetails);
    list.setName(windowTexts::list);
    for (size_t index = 0; index < buttonRows.size(); ++index) {
        m_buttons[index] = std::make_unique<Control>(L"BUTTON", parent, DWORD{WS_TABSTOP | BS_PUSHBUTTON});
        m_buttons[index]->setFont(font.get());
        m_buttons[index]->setName(buttonRows[index].text);
        setId(*m_buttons[index], buttonRows[index].command);
    }
    list.setImages(m_pictures.get());
    list.setColumns({std::begin(windowTexts::columns), std::end(windowTexts::columns)});
    enableButtons(false, false);
}

SIZE WindowControls::leastSize(const WindowFont& font)
{
    const LONG gap = gapOf(font);
    LONG width = gap;
    for (const ButtonRow& row : buttonRows)
        width += buttonWidth(font, row) + gap;
    width = std::max(width, leastWidth * font.width());
    const LONG lines = sentenceLines + detailLines + leastListLines;
    RECT area{0, 0, width, lines * font.height() + buttonHeight(font) + 5 * gap};
    AdjustWindowRect(&area, WS_OVERLAPPEDWINDOW, FALSE);
    return {area.right - area.left, area.bottom - area.top};
}

SIZE WindowControls::usualSize(const WindowFont& font)
{
    return {usualWidth * font.width(), usualHeight * font.height()};
}

void WindowControls::layOut()
{
    RECT inner{};
    GetClientRect(m_parent, &inner);
    const LONG most = std::max(inner.bottom / 3, m_font.height());
    const LONG gap = gapOf(m_font);
    InflateRect(&inner, -gap, -gap);
    const LONG needed = m_font.heightOf(m_sentence, inner.right - inner.left);
    const LONG sentenceEnd = inner.top + std::clamp(needed, m_font.height(), most);
    place(sentence, {inner.left, inner.top, inner.right, sentenceEnd});
    const LONG buttonTop = inner.bottom - buttonHeight(m_font);
    const LONG detailTop = buttonTop - gap - detailLines * m_font.height() - gap / 2;
    place(list, {inner.left, sentenceEnd + gap, inner.right, detailTop - gap});
    place(details, {inner.left, detailTop, inner.right, buttonTop - gap});
    LONG right = inner.right;
    for (size_t index = buttonRows.size(); index-- > 0;) {
        const LONG width = buttonWidth(m_font, buttonRows[index]);
        place(*m_buttons[index], {right - width, buttonTop, right, inner.bottom});
        right -= width + gap;
    }
    list.bringIntoView(list.selectedRow());
}

void WindowControls::setSentence(const std::wstring& text)
{
    m_sentence = text;
    sentence.setName(text);
    layOut();
}

void WindowControls::enableButtons(bool isIdle, bool canFix) const noexcept
{
    for (size_t index = 0; index < buttonRows.size(); ++index) {
        const int command = buttonRows[index].command;
        EnableWindow(m_buttons[index]->hwnd(), command == cmdClose || (isIdle && (command != cmdFix || canFix)));
    }
}

} // namespace velk::doctor
