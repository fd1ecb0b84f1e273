#include "devkit/ide/textDrop.h"

#include "com/com_boundary.h"
#include "com/com_object.h"
#include "devkit/ide/recorder.h"
#include "devkit/ide/reentry.h"

#include <optional>

namespace velk::devkit {
namespace {

constexpr FORMATETC textAs(CLIPFORMAT format)
{
    return {format, nullptr, DVASPECT_CONTENT, -1, TYMED_HGLOBAL};
}

std::wstring textOf(HGLOBAL memory, CLIPFORMAT format)
{
    const void* const text = GlobalLock(memory);
    if (!text)
        return {};
    const int room = static_cast<int>(GlobalSize(memory));
    std::wstring wide;
    if (format == CF_UNICODETEXT) {
        wide.assign(static_cast<const wchar_t*>(text), static_cast<size_t>(room) / sizeof(wchar_t));
    } else {
        wide.resize(static_cast<size_t>(room));
        wide.resize(static_cast<size_t>(
            MultiByteToWideChar(CP_ACP, 0, static_cast<const char*>(text), room, wide.data(), room)));
    }
    GlobalUnlock(memory);
    return wide.substr(0, wide.find(L'\0'));
}

// The format that the data have a text in, if any.
std::optional<FORMATETC> formatOf(IDataObject* data)
{
    for (const CLIPFORMAT name : {CLIPFORMAT{CF_UNICODETEXT}, CLIPFORMAT{CF_TEXT}})
        if (FORMATETC format = textAs(name); data->QueryGetData(&format) == S_OK)
            return format;
    return std::nullopt;
}

class Target : public ComObject<Target, IDropTarget> {
public:
    Target(HWND edit, std::wstring name) : m_edit(edit), m_name(std::move(name)) {}

    STDMETHODIMP DragEnter(IDataObject* data, DWORD, POINTL, DWORD* effect) noexcept override
    {
        return atBoundary(L"IDropTarget.DragEnter", [&] {
            const CallScope inside(m_name + L".DragEnter");
            m_takes = formatOf(data).has_value();
            choose(effect);
        });
    }
    STDMETHODIMP DragOver(DWORD, POINTL, DWORD* effect) noexcept override
    {
        return atBoundary(L"IDropTarget.DragOver", [&] {
            const CallScope inside(m_name + L".DragOver");
            choose(effect);
        });
    }
    STDMETHODIMP DragLeave() noexcept override
    {
        return atBoundary(L"IDropTarget.DragLeave", [&] { const CallScope inside(m_name + L".DragLeave"); });
    }
    STDMETHODIMP Drop(IDataObject* data, DWORD, POINTL, DWORD* effect) noexcept override
    {
        return atBoundary(L"IDropTarget.Drop", [&] {
            const CallScope inside(m_name + L".Drop");
            choose(effect);
            std::optional<FORMATETC> format = formatOf(data);
            STGMEDIUM medium{};
            if (*effect == DROPEFFECT_NONE || !format || data->GetData(&*format, &medium) != S_OK)
                return;
            const std::wstring text = textOf(medium.hGlobal, format->cfFormat);
            ReleaseStgMedium(&medium);
            append(text);
            recorder().write(m_name + L" dropped \"" + text + L"\"");
        });
    }

private:
    void choose(DWORD* effect) const { *effect = m_takes ? *effect & DROPEFFECT_COPY : DROPEFFECT_NONE; }
    void append(const std::wstring& text) const
    {
        const int end = GetWindowTextLengthW(m_edit);
        SendMessageW(m_edit, EM_SETSEL, static_cast<WPARAM>(end), end);
        const std::wstring line = end == 0 ? text : L"\r\n" + text;
        SendMessageW(m_edit, EM_REPLACESEL, TRUE, reinterpret_cast<LPARAM>(line.c_str()));
    }

    const HWND m_edit;
    const std::wstring m_name;
    bool m_takes = false;
};

} // namespace

com_ptr<IDropTarget> makeTextTarget(HWND edit, std::wstring name)
{
    return com_ptr<IDropTarget>(makeObject<Target>(edit, std::move(name)).get());
}

TextDrop::TextDrop(HWND edit, std::wstring name) : m_edit(edit)
{
    RegisterDragDrop(m_edit, makeTextTarget(m_edit, std::move(name)).get());
}

TextDrop::~TextDrop()
{
    RevokeDragDrop(m_edit);
}

} // namespace velk::devkit
