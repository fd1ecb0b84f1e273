#include "ui/splashscrnFrm.h"

#include "backend/texts.h"
#include "base/boundary.h"
#include "base/module.h"
#include "base/never_destroyed.h"
#include "com/picture.h"
#include "ui/messageBox.h"
#include "ui/uiFont.h"

#include <memory>
#include <product.h>

namespace velk {
namespace {

constexpr int welcomePicture = 130;
constexpr int loadingText = 641;

// Pixels: the picture's size is fixed. What stands below it is measured by the font.
constexpr int pictureWidth = 396;
constexpr int pictureHeight = 355;

// The height of a line of text.
int lineHeight(HFONT font)
{
    const unique_screen_dc screen(GetDC(nullptr));
    const HGDIOBJ old = SelectObject(screen.get(), font);
    TEXTMETRICW metrics{};
    GetTextMetricsW(screen.get(), &metrics);
    SelectObject(screen.get(), old);
    return metrics.tmHeight;
}

std::unique_ptr<splashscrnFrm>& splashSlot()
{
    static never_destroyed<std::unique_ptr<splashscrnFrm>> splash;
    return splash.get();
}

// The bar's positions are steps of the start-up; a Windows progress bar counts in whole numbers.
WPARAM position(float value)
{
    return static_cast<WPARAM>(value);
}

} // namespace

splashscrnFrm::splashscrnFrm() : Window(VELK_OWN_NAME("splashscrnFrm"), GetSysColorBrush(COLOR_BTNFACE))
{
    load();
}

splashscrnFrm::~splashscrnFrm()
{
    destroy();
}

void splashscrnFrm::load()
{
    constexpr DWORD style = WS_POPUP | WS_DLGFRAME | WS_CLIPCHILDREN;
    create({dialogOwner(), style, WS_EX_TOOLWINDOW, 0, 0, 0, 0, L""});
    const HINSTANCE instance = module::instance();
    m_statusLbl = CreateWindowExW(0, L"STATIC", L"", WS_CHILD | WS_VISIBLE | SS_LEFT | SS_NOPREFIX | SS_ENDELLIPSIS, 0,
                                  0, 0, 0, hwnd(), nullptr, instance, nullptr);
    m_progressBar1 = CreateWindowExW(0, PROGRESS_CLASSW, L"", WS_CHILD | WS_VISIBLE | PBS_SMOOTH, 0, 0, 0, 0, hwnd(),
                                     nullptr, instance, nullptr);
    throwLastErrorUnless(m_statusLbl && m_progressBar1);
    swallow(L"splashscrnFrm", L"the form serves without its picture",
            [this] { m_welcomeImage = loadPicture(welcomePicture); });
    Form_Load();
    setVisible();
}

void splashscrnFrm::Form_Load()
{
    m_font = makeFont(uiFont());
    SendMessageW(m_statusLbl, WM_SETFONT, reinterpret_cast<WPARAM>(m_font.get()), FALSE);
    layOut();
    SetWindowTextW(m_statusLbl, getRZString(loadingText).c_str());
}

// The status line and, half a line apart, the bar: each as high as a line, below the picture.
void splashscrnFrm::layOut()
{
    const int line = lineHeight(m_font.get());
    const int margin = line / 2;
    const int barTop = pictureHeight + margin + line + margin;
    const int inside = pictureWidth - 2 * margin;
    MoveWindow(m_statusLbl, margin, pictureHeight + margin, inside, line, FALSE);
    MoveWindow(m_progressBar1, margin, barTop, inside, line, FALSE);
    RECT frame{0, 0, pictureWidth, barTop + line + margin};
    AdjustWindowRect(&frame, static_cast<DWORD>(GetWindowLongW(hwnd(), GWL_STYLE)), FALSE);
    const int width = frame.right - frame.left;
    const int height = frame.bottom - frame.top;
    RECT work{};
    SystemParametersInfoW(SPI_GETWORKAREA, 0, &work, 0);
    SetWindowPos(hwnd(), nullptr, (work.left + work.right - width) / 2, (work.top + work.bottom - height) / 2, width,
                 height, SWP_NOZORDER | SWP_NOACTIVATE);
}

void splashscrnFrm::setProgressBarInterval(const int16_t& interval)
{
    m_maximum = static_cast<float>(interval);
    SendMessageW(m_progressBar1, PBM_SETRANGE32, 0, interval);
}

void splashscrnFrm::updateProgress(const std::wstring& text)
{
    const float next = m_value + 1.0f;
    if (next > m_maximum)
        throw Error(errorInvalidProperty);
    m_value = next;
    SendMessageW(m_progressBar1, PBM_SETPOS, position(next), 0);
    SetWindowTextW(m_statusLbl, text.c_str());
    redraw();
}

void splashscrnFrm::setVisible()
{
    ShowWindow(hwnd(), SW_SHOWNA);
    redraw();
}

// Start-up code does not return to the message loop between its steps.
void splashscrnFrm::redraw()
{
    // The window goes with its owner, and no window would be the desktop.
    if (hwnd())
        RedrawWindow(hwnd(), nullptr, nullptr, RDW_UPDATENOW | RDW_ALLCHILDREN);
}

void splashscrnFrm::paint()
{
    PAINTSTRUCT paintInfo{};
    const HDC target = BeginPaint(hwnd(), &paintInfo);
    const scope_exit done([&] { EndPaint(hwnd(), &paintInfo); });
    SetLayout(target, 0); // the picture is as wide as the form, and has words in it
    if (m_welcomeImage)
        drawPicture(m_welcomeImage.get(), target, 0, 0);
}

LRESULT splashscrnFrm::handle(UINT message, WPARAM wParam, LPARAM lParam)
{
    switch (message) {
    case WM_PAINT:
        paint();
        return 0;
    case WM_MOUSEACTIVATE:
        return MA_NOACTIVATE;
    case WM_DESTROY:
        m_statusLbl = m_progressBar1 = nullptr; // another window may get their handles
    }
    return handleDefault(message, wParam, lParam);
}

splashscrnFrm& splashScreen()
{
    if (!isSplashScreenLoaded())
        splashSlot() = std::make_unique<splashscrnFrm>();
    return *splashSlot();
}

bool isSplashScreenLoaded() noexcept
{
    return splashSlot() && splashSlot()->hwnd();
}

void unloadSplashScreen() noexcept
{
    splashSlot().reset();
}

} // namespace velk
