// What the splash screen looks like: its picture, and what hangs on the font below it.
#include "com/picture.h"
#include "support/fakeBackend.h"
#include "ui/splashscrnFrm.h"
#include "ui/uiFont.h"

#include <algorithm>
#include <gtest/gtest.h>

namespace velk {
namespace {

constexpr int pictureWidth = 396;
constexpr int pictureHeight = 355;
constexpr int welcomePicture = 130;

// A memory picture to draw on, of the welcome picture's size.
class Canvas {
public:
    Canvas()
    {
        BITMAPINFO description{};
        description.bmiHeader = {sizeof(BITMAPINFOHEADER), pictureWidth, -pictureHeight, 1, 32, BI_RGB, 0, 0, 0, 0, 0};
        m_bitmap.reset(CreateDIBSection(m_target, &description, DIB_RGB_COLORS, &m_bits, nullptr, 0));
        m_old = SelectObject(m_target, m_bitmap.get());
    }
    Canvas(const Canvas&) = delete;
    Canvas& operator=(const Canvas&) = delete;
    ~Canvas()
    {
        SelectObject(m_target, m_old);
        DeleteDC(m_target);
    }
    HDC target() const { return m_target; }
    void copyOf(HWND window) const
    {
        const HDC source = GetDC(window);
        SetLayout(source, 0);
        BitBlt(m_target, 0, 0, pictureWidth, pictureHeight, source, 0, 0, SRCCOPY);
        ReleaseDC(window, source);
    }
    // Without the fourth byte, which has no meaning.
    std::vector<uint32_t> pixels() const
    {
        GdiFlush();
        const auto* first = static_cast<const uint32_t*>(m_bits);
        std::vector<uint32_t> colours(pictureWidth * pictureHeight);
        std::transform(first, first + colours.size(), colours.begin(), [](uint32_t pixel) { return pixel & 0xFFFFFF; });
        return colours;
    }

private:
    HDC m_target = CreateCompatibleDC(nullptr);
    unique_bitmap m_bitmap;
    void* m_bits = nullptr;
    HGDIOBJ m_old = nullptr;
};

class SplashLooksTest : public testing::Test {
protected:
    ~SplashLooksTest() override
    {
        unloadSplashScreen();
        uiFont() = {};
        SetProcessDefaultLayout(0);
    }
    static RECT placeOf(HWND control)
    {
        RECT place{};
        GetWindowRect(control, &place);
        MapWindowPoints(nullptr, splashScreen().hwnd(), reinterpret_cast<POINT*>(&place), 2);
        return place;
    }
    static RECT client()
    {
        RECT area{};
        GetClientRect(splashScreen().hwnd(), &area);
        return area;
    }
    // The height of a line in the status line's own font.
    static LONG lineHeight()
    {
        const HDC screen = GetDC(nullptr);
        const auto font = reinterpret_cast<HFONT>(SendMessageW(splashScreen().statusLbl(), WM_GETFONT, 0, 0));
        const HGDIOBJ old = SelectObject(screen, font);
        TEXTMETRICW metrics{};
        GetTextMetricsW(screen, &metrics);
        SelectObject(screen, old);
        ReleaseDC(nullptr, screen);
        return metrics.tmHeight;
    }

    test::FakeBackend backend;
};

TEST_F(SplashLooksTest, welcomePicture_isDrawn)
{
    Canvas expected;
    drawPicture(loadPicture(welcomePicture).get(), expected.target(), 0, 0);
    ASSERT_NE(expected.pixels(), Canvas().pixels());
    Canvas shown;
    shown.copyOf(splashScreen().hwnd());
    EXPECT_EQ(shown.pixels(), expected.pixels());
}

TEST_F(SplashLooksTest, welcomePictureInAFormFromRightToLeft_isNotMirrored)
{
    Canvas expected;
    drawPicture(loadPicture(welcomePicture).get(), expected.target(), 0, 0);
    SetProcessDefaultLayout(LAYOUT_RTL);
    ASSERT_NE(GetWindowLongW(splashScreen().hwnd(), GWL_EXSTYLE) & WS_EX_LAYOUTRTL, 0);
    Canvas shown;
    shown.copyOf(splashScreen().hwnd());
    EXPECT_EQ(shown.pixels(), expected.pixels());
}

TEST_F(SplashLooksTest, welcomePicture_is396By355)
{
    const com_ptr<IPicture> picture = loadPicture(welcomePicture);
    OLE_XSIZE_HIMETRIC width = 0;
    OLE_YSIZE_HIMETRIC height = 0;
    picture->get_Width(&width);
    picture->get_Height(&height);
    EXPECT_EQ(MulDiv(width, 96, 2540), pictureWidth);
    EXPECT_EQ(MulDiv(height, 96, 2540), pictureHeight);
    EXPECT_EQ(client().right, pictureWidth);
}

// The status line, the bar below it and the form around both: sizes in points, with what a line needs.
class SplashFontTest : public SplashLooksTest, public testing::WithParamInterface<int32_t> {
protected:
    SplashFontTest() { uiFont() = {L"Tahoma", GetParam(), 1}; }
};

TEST_P(SplashFontTest, statusLine_standsBelowThePictureWithRoomForALine)
{
    const RECT status = placeOf(splashScreen().statusLbl());
    EXPECT_GE(status.top, pictureHeight);
    EXPECT_EQ(status.bottom - status.top, lineHeight());
}

TEST_P(SplashFontTest, bar_hangsBelowTheStatusLineInsideTheForm)
{
    const RECT status = placeOf(splashScreen().statusLbl());
    const RECT bar = placeOf(splashScreen().ProgressBar1());
    EXPECT_EQ(bar.top - status.bottom, lineHeight() / 2);
    EXPECT_EQ(bar.bottom - bar.top, lineHeight());
    EXPECT_EQ(client().bottom - bar.bottom, lineHeight() / 2);
    EXPECT_EQ(client().right, pictureWidth);
}

TEST_P(SplashFontTest, form_standsInTheMiddleOfTheScreen)
{
    RECT form{};
    RECT work{};
    GetWindowRect(splashScreen().hwnd(), &form);
    SystemParametersInfoW(SPI_GETWORKAREA, 0, &work, 0);
    EXPECT_NEAR(form.left + form.right, work.left + work.right, 1);
    EXPECT_NEAR(form.top + form.bottom, work.top + work.bottom, 1);
}

INSTANTIATE_TEST_SUITE_P(Sizes, SplashFontTest, testing::Values(8, 12, 24));

} // namespace
} // namespace velk
