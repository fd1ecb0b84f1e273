#include "devkit/ide/screenshot.h"

#include "base/error.h"
#include "base/unique_any.h"

namespace velk::devkit {
namespace {

// The flat interface of the system's GDI+; the compiler's headers have only its classes.
struct StartupInput {
    UINT32 version = 1;
    void* callback = nullptr;
    BOOL noThread = FALSE;
    BOOL noCodecs = FALSE;
};
constexpr CLSID pngEncoder{0x557cf406, 0x1a04, 0x11d3, {0x9a, 0x73, 0x00, 0x00, 0xf8, 0x1e, 0xf3, 0x2e}};

class Gdiplus {
public:
    Gdiplus() : m_library(LoadLibraryW(L"gdiplus.dll"))
    {
        throwLastErrorUnless(static_cast<bool>(m_library));
        const StartupInput input;
        check(function<int(WINAPI*)(ULONG_PTR*, const StartupInput*, void*)>("GdiplusStartup")(&m_token, &input,
                                                                                               nullptr));
    }
    Gdiplus(const Gdiplus&) = delete;
    Gdiplus& operator=(const Gdiplus&) = delete;
    ~Gdiplus() { function<void(WINAPI*)(ULONG_PTR)>("GdiplusShutdown")(m_token); }

    void save(HBITMAP picture, const std::wstring& path) const
    {
        void* image = nullptr;
        check(
            function<int(WINAPI*)(HBITMAP, HPALETTE, void**)>("GdipCreateBitmapFromHBITMAP")(picture, nullptr, &image));
        const scope_exit disposed([&] { function<int(WINAPI*)(void*)>("GdipDisposeImage")(image); });
        check(function<int(WINAPI*)(void*, const WCHAR*, const CLSID*, const void*)>("GdipSaveImageToFile")(
            image, path.c_str(), &pngEncoder, nullptr));
    }

private:
    template <class Function>
    Function function(const char* name) const
    {
        return reinterpret_cast<Function>(reinterpret_cast<void*>(GetProcAddress(m_library.get(), name)));
    }
    static void check(int status)
    {
        if (status != 0)
            throw Error(errorInvalidCall, L"a picture could not be written");
    }

    unique_module m_library;
    ULONG_PTR m_token = 0;
};

void writePicture(HDC source, int left, int top, SIZE size, const std::wstring& path)
{
    const unique_memory_dc memory(CreateCompatibleDC(source));
    const unique_bitmap picture(CreateCompatibleBitmap(source, size.cx, size.cy));
    const HGDIOBJ before = SelectObject(memory.get(), picture.get());
    BitBlt(memory.get(), 0, 0, size.cx, size.cy, source, left, top, SRCCOPY);
    SelectObject(memory.get(), before);
    Gdiplus().save(picture.get(), path);
}

} // namespace

void writeScreenshot(HWND window, const std::wstring& path)
{
    RECT place{};
    GetWindowRect(window, &place);
    const HDC screen = GetDC(nullptr);
    const scope_exit released([&] { ReleaseDC(nullptr, screen); });
    writePicture(screen, place.left, place.top, {place.right - place.left, place.bottom - place.top}, path);
}

void writeWindowPicture(HWND window, const std::wstring& path)
{
    RECT place{};
    GetWindowRect(window, &place);
    const HDC own = GetWindowDC(window);
    const scope_exit released([&] { ReleaseDC(window, own); });
    writePicture(own, 0, 0, {place.right - place.left, place.bottom - place.top}, path);
}

} // namespace velk::devkit
