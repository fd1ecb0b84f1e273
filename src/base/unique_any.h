#pragma once

#include "base/win32.h"

#include <utility>

namespace velk {

// Owns a handle; Traits names the handle type, its empty value and how it is closed.
template <class Traits>
class unique_any {
public:
    using Handle = typename Traits::Handle;

    unique_any() noexcept = default;
    explicit unique_any(Handle handle) noexcept : m_handle(handle) {}
    unique_any(unique_any&& other) noexcept : m_handle(other.release()) {}
    ~unique_any() { reset(); }
    unique_any& operator=(unique_any&& other) noexcept
    {
        reset(other.release());
        return *this;
    }

    Handle get() const noexcept { return m_handle; }
    explicit operator bool() const noexcept { return m_handle != Traits::empty(); }
    Handle* put() noexcept
    {
        reset();
        return &m_handle;
    }
    Handle release() noexcept { return std::exchange(m_handle, Traits::empty()); }
    void reset(Handle handle = Traits::empty()) noexcept
    {
        const Handle old = std::exchange(m_handle, handle);
        if (old != Traits::empty())
            Traits::close(old);
    }

private:
    Handle m_handle = Traits::empty();
};

template <class T>
struct null_handle {
    using Handle = T;
    static T empty() noexcept { return nullptr; }
};

struct window_traits : null_handle<HWND> {
    static void close(HWND window) noexcept { DestroyWindow(window); }
};
struct menu_traits : null_handle<HMENU> {
    static void close(HMENU menu) noexcept { DestroyMenu(menu); }
};
struct module_traits : null_handle<HMODULE> {
    static void close(HMODULE module) noexcept { FreeLibrary(module); }
};
struct kernel_traits : null_handle<HANDLE> {
    static void close(HANDLE handle) noexcept { CloseHandle(handle); }
};
struct key_traits : null_handle<HKEY> {
    static void close(HKEY key) noexcept { RegCloseKey(key); }
};
struct image_list_traits : null_handle<HIMAGELIST> {
    static void close(HIMAGELIST list) noexcept { ImageList_Destroy(list); }
};
struct font_traits : null_handle<HFONT> {
    static void close(HFONT font) noexcept { DeleteObject(font); }
};
struct bitmap_traits : null_handle<HBITMAP> {
    static void close(HBITMAP bitmap) noexcept { DeleteObject(bitmap); }
};
struct screen_dc_traits : null_handle<HDC> {
    static void close(HDC dc) noexcept { ReleaseDC(nullptr, dc); }
};
struct memory_dc_traits : null_handle<HDC> {
    static void close(HDC dc) noexcept { DeleteDC(dc); }
};

using unique_window = unique_any<window_traits>;
using unique_menu = unique_any<menu_traits>;
using unique_module = unique_any<module_traits>;
using unique_kernel_handle = unique_any<kernel_traits>;
using unique_key = unique_any<key_traits>;
using unique_image_list = unique_any<image_list_traits>;
using unique_font = unique_any<font_traits>;
using unique_bitmap = unique_any<bitmap_traits>;
using unique_screen_dc = unique_any<screen_dc_traits>;
using unique_memory_dc = unique_any<memory_dc_traits>;

// Runs a function at the end of the scope; the function must not throw.
template <class F>
class scope_exit {
public:
    explicit scope_exit(F function) : m_function(std::move(function)) {}
    scope_exit(const scope_exit&) = delete;
    scope_exit& operator=(const scope_exit&) = delete;
    ~scope_exit()
    {
        if (!m_isReleased)
            m_function();
    }
    // It went well: nothing is left to do at the end of the scope.
    void release() noexcept { m_isReleased = true; }

private:
    F m_function;
    bool m_isReleased = false;
};

} // namespace velk
