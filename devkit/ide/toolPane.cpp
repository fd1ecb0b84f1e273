#include "devkit/ide/toolPane.h"

#include "base/error.h"
#include "com/com_boundary.h"
#include "devkit/ide/looks.h"

#include <ocidl.h>
#include <oleidl.h>

namespace velk::devkit {
namespace {

constexpr int stripHeight = 18;
constexpr int boxSize = 12;

using CreateControl = HRESULT(WINAPI*)(LPCOLESTR, HWND, IStream*, IUnknown**, IUnknown**, REFIID, IUnknown*);

template <class Function>
Function entry(const unique_module& library, const char* name)
{
    const FARPROC found = GetProcAddress(library.get(), name);
    if (!found)
        throw Error::fromWin32(GetLastError());
    return reinterpret_cast<Function>(reinterpret_cast<void*>(found));
}

} // namespace

ToolPane::ToolPane(HWND parent, std::wstring caption)
    : Window(L"velkide.ToolPane", GetSysColorBrush(COLOR_BTNFACE), LoadCursorW(nullptr, IDC_ARROW)),
      m_caption(std::move(caption)), m_container(LoadLibraryW(L"atl.dll"))
{
    throwLastErrorUnless(static_cast<bool>(m_container));
    // Its window classes stay registered, so it must stay, too: loaded again it may stand elsewhere.
    HMODULE kept = nullptr;
    throwLastErrorUnless(GetModuleHandleExW(GET_MODULE_HANDLE_EX_FLAG_PIN, L"atl.dll", &kept) != FALSE);
    entry<BOOL(WINAPI*)()>(m_container, "AtlAxWinInit")();
    const DWORD style = parent ? WS_CHILD | WS_VISIBLE | WS_CLIPCHILDREN : WS_POPUP | WS_CLIPCHILDREN;
    create({parent, style, 0, 0, 0, 400, 300, m_caption.c_str()});
    m_site = CreateWindowExW(0, L"AtlAxWin", L"", WS_CHILD | WS_VISIBLE | WS_CLIPCHILDREN, 0, 0, 0, 0, hwnd(), nullptr,
                             nullptr, nullptr);
    throwLastErrorUnless(m_site != nullptr);
    layOut();
}

ToolPane::~ToolPane()
{
    close();
}

void ToolPane::host(const std::wstring& progId)
{
    throwIfFailed(entry<CreateControl>(m_container, "AtlAxCreateControlEx")(progId.c_str(), m_site, nullptr, nullptr,
                                                                            m_document.put(), IID_NULL, nullptr));
    if (!m_document)
        throw Error(errorCannotCreate);
}

void ToolPane::close()
{
    m_document.reset();
    m_site = nullptr;
    destroy();
}

bool ToolPane::translate(MSG& message) const
{
    if (!hwnd() || !IsChild(hwnd(), message.hwnd))
        return false;
    const auto active = m_document.tryAs<IOleInPlaceActiveObject>();
    return active && active->TranslateAccelerator(&message) == S_OK;
}

void ToolPane::focus() const
{
    HWND content = nullptr;
    const auto inPlace = m_document.tryAs<IOleInPlaceObject>();
    if (inPlace && SUCCEEDED(inPlace->GetWindow(&content)))
        SetFocus(content);
}

RECT ToolPane::closeBox() const
{
    RECT area{};
    GetClientRect(hwnd(), &area);
    const int top = (stripHeight - boxSize) / 2;
    return {area.right - boxSize - 4, top, area.right - 4, top + boxSize};
}

void ToolPane::layOut() const
{
    RECT area{};
    GetClientRect(hwnd(), &area);
    const int height = area.bottom > stripHeight ? area.bottom - stripHeight : 0;
    MoveWindow(m_site, 0, stripHeight, area.right, height, TRUE);
    InvalidateRect(hwnd(), nullptr, TRUE);
}

void ToolPane::paint() const
{
    PAINTSTRUCT paint;
    const HDC dc = BeginPaint(hwnd(), &paint);
    RECT strip{};
    GetClientRect(hwnd(), &strip);
    strip.bottom = stripHeight;
    FillRect(dc, &strip, GetSysColorBrush(COLOR_ACTIVECAPTION));
    strip.left += 4;
    drawCaption(dc, strip, m_caption, GetSysColor(COLOR_CAPTIONTEXT));
    RECT box = closeBox();
    DrawFrameControl(dc, &box, DFC_CAPTION, DFCS_CAPTIONCLOSE);
    EndPaint(hwnd(), &paint);
}

LRESULT ToolPane::handle(UINT message, WPARAM wParam, LPARAM lParam)
{
    const POINT mouse{static_cast<short>(LOWORD(lParam)), static_cast<short>(HIWORD(lParam))};
    switch (message) {
    case WM_SIZE:
        layOut();
        return 0;
    case WM_PAINT:
        paint();
        return 0;
    case WM_SETFOCUS:
        focus();
        return 0;
    case WM_LBUTTONUP: {
        const RECT box = closeBox();
        if (PtInRect(&box, mouse) && onHide)
            onHide();
        return 0;
    }
    default:
        return handleDefault(message, wParam, lParam);
    }
}

} // namespace velk::devkit
