// Tested in tests/tools/doctor/doctorWindowTest.cpp.
#include "statePictures.h"

#include "base/error.h"

#include <span>

namespace velk::doctor {
namespace {

// Places are sixteenths of the picture. It is drawn larger and made smaller, so that its edges are smooth.
constexpr int sixteenths = 16;
constexpr int larger = 4;

enum class Shape { disc, triangle };
constexpr POINT tick[] = {{4, 8}, {7, 11}, {12, 5}};
constexpr POINT letterI[] = {{8, 7}, {8, 12}};
constexpr POINT dotOfI[] = {{8, 4}, {8, 4}};
constexpr POINT dash[] = {{5, 8}, {11, 8}};
constexpr POINT exclamation[] = {{8, 6}, {8, 10}};
constexpr POINT dotBelow[] = {{8, 13}, {8, 13}};
constexpr POINT strokeDown[] = {{5, 5}, {11, 11}};
constexpr POINT strokeUp[] = {{5, 11}, {11, 5}};

struct Picture {
    Shape shape;
    COLORREF colour;
    COLORREF mark;
    std::span<const POINT> first, second;
};
// clang-format off
constexpr Picture pictures[] = {
    {Shape::disc,     RGB(0, 136, 56),   RGB(255, 255, 255), tick,        {}},
    {Shape::disc,     RGB(0, 72, 160),   RGB(255, 255, 255), letterI,     dotOfI},
    {Shape::disc,     RGB(128, 128, 128), RGB(255, 255, 255), dash,        {}},
    {Shape::triangle, RGB(255, 200, 0),  RGB(0, 0, 0),       exclamation, dotBelow},
    {Shape::disc,     RGB(200, 32, 32),  RGB(255, 255, 255), strokeDown,  strokeUp},
};
// clang-format on

class Canvas {
public:
    Canvas(HDC dc, int size) : m_dc(dc), m_size(size) {}

    void draw(const Picture& picture) const
    {
        const RECT all{0, 0, m_size, m_size};
        FillRect(m_dc, &all, GetSysColorBrush(COLOR_WINDOW));
        stroke(picture.colour, 1);
        SetDCBrushColor(m_dc, picture.colour);
        SelectObject(m_dc, GetStockObject(DC_BRUSH));
        if (picture.shape == Shape::disc) {
            Ellipse(m_dc, at(1), at(1), at(15), at(15));
        } else {
            const POINT corners[] = {{at(8), at(1)}, {at(15), at(15)}, {at(1), at(15)}};
            Polygon(m_dc, corners, ARRAYSIZE(corners));
        }
        stroke(picture.mark, at(2));
        line(picture.first);
        line(picture.second);
        SelectObject(m_dc, GetStockObject(BLACK_PEN));
    }

private:
    int at(LONG place) const noexcept { return static_cast<int>(place) * m_size / sixteenths; }
    void stroke(COLORREF colour, int width) const
    {
        m_pen.reset(CreatePen(PS_SOLID, width, colour));
        SelectObject(m_dc, m_pen.get());
    }
    void line(std::span<const POINT> places) const
    {
        if (places.empty())
            return;
        MoveToEx(m_dc, at(places[0].x), at(places[0].y), nullptr);
        for (const POINT& place : places)
            LineTo(m_dc, at(place.x), at(place.y) + (&place == places.data() ? 1 : 0));
        LineTo(m_dc, at(places.back().x), at(places.back().y));
    }

    struct pen_traits : null_handle<HPEN> {
        static void close(HPEN pen) noexcept { DeleteObject(pen); }
    };
    HDC m_dc;
    int m_size;
    mutable unique_any<pen_traits> m_pen;
};

// A bitmap to draw in, and what stood in the context before it.
class Sheet {
public:
    explicit Sheet(int size)
        : m_screen(GetDC(nullptr)), dc(CreateCompatibleDC(m_screen.get())),
          bitmap(CreateCompatibleBitmap(m_screen.get(), size, size)), m_before(SelectObject(dc.get(), bitmap.get()))
    {
    }
    Sheet(const Sheet&) = delete;
    Sheet& operator=(const Sheet&) = delete;
    ~Sheet() { SelectObject(dc.get(), m_before); }

private:
    unique_screen_dc m_screen;

public:
    unique_memory_dc dc;
    unique_bitmap bitmap;

private:
    HGDIOBJ m_before;
};

unique_bitmap draw(const Picture& picture, int size)
{
    const Sheet large(size * larger);
    Canvas(large.dc.get(), size * larger).draw(picture);
    Sheet small(size);
    SetStretchBltMode(small.dc.get(), HALFTONE);
    StretchBlt(small.dc.get(), 0, 0, size, size, large.dc.get(), 0, 0, size * larger, size * larger, SRCCOPY);
    return std::move(small.bitmap);
}

} // namespace

unique_image_list statePictures(int size)
{
    unique_image_list list(ImageList_Create(size, size, ILC_COLOR24, ARRAYSIZE(pictures), 0));
    throwLastErrorUnless(static_cast<bool>(list));
    for (const Picture& picture : pictures)
        ImageList_Add(list.get(), draw(picture, size).get(), nullptr);
    return list;
}

} // namespace velk::doctor
