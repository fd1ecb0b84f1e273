#include "support/dropTarget.h"

namespace velk::test {

class DropEdit::Target : public ComObject<Target, IDropTarget> {
public:
    explicit Target(DropEdit& edit) : m_edit(edit) {}

    STDMETHODIMP DragEnter(IDataObject* data, DWORD, POINTL, DWORD* effect) noexcept override
    {
        FORMATETC wanted = format();
        m_takes = data->QueryGetData(&wanted) == S_OK;
        note("enter", effect);
        return S_OK;
    }
    STDMETHODIMP DragOver(DWORD, POINTL, DWORD* effect) noexcept override
    {
        note("over", effect);
        m_edit.onOver();
        return S_OK;
    }
    STDMETHODIMP DragLeave() noexcept override
    {
        m_edit.calls.emplace_back("leave");
        return S_OK;
    }
    STDMETHODIMP Drop(IDataObject* data, DWORD, POINTL, DWORD* effect) noexcept override
    {
        note("drop", effect);
        if (m_edit.keeps)
            m_edit.kept = com_ptr<IDataObject>(data);
        FORMATETC wanted = format();
        STGMEDIUM medium{};
        if (data->GetData(&wanted, &medium) == S_OK) {
            insert(GlobalLock(medium.hGlobal));
            GlobalUnlock(medium.hGlobal);
            ReleaseStgMedium(&medium);
        }
        m_edit.onDrop();
        return S_OK;
    }

private:
    FORMATETC format() const { return {m_edit.format, nullptr, DVASPECT_CONTENT, -1, TYMED_HGLOBAL}; }
    void note(const char* call, DWORD* effect)
    {
        if (m_edit.calls.empty() || m_edit.calls.back() != call)
            m_edit.calls.emplace_back(call);
        m_edit.allowed.push_back(*effect);
        *effect = m_takes ? DROPEFFECT_COPY : DROPEFFECT_NONE;
    }
    void insert(const void* text) const
    {
        if (m_edit.format == CF_UNICODETEXT)
            SendMessageW(m_edit.hwnd, EM_REPLACESEL, TRUE, reinterpret_cast<LPARAM>(text));
        else
            SendMessageA(m_edit.hwnd, EM_REPLACESEL, TRUE, reinterpret_cast<LPARAM>(text));
    }

    DropEdit& m_edit;
    bool m_takes = false;
};

DropEdit::DropEdit(const RECT& place)
{
    hwnd = CreateWindowExW(WS_EX_TOPMOST, L"EDIT", L"", WS_POPUP | WS_VISIBLE | ES_AUTOHSCROLL, place.left, place.top,
                           place.right - place.left, place.bottom - place.top, nullptr, nullptr, nullptr, nullptr);
    RegisterDragDrop(hwnd, makeObject<Target>(*this).get());
}

DropEdit::~DropEdit()
{
    RevokeDragDrop(hwnd);
    DestroyWindow(hwnd);
}

std::wstring DropEdit::text() const
{
    std::wstring all(static_cast<size_t>(GetWindowTextLengthW(hwnd)) + 1, L'\0');
    all.resize(static_cast<size_t>(GetWindowTextW(hwnd, all.data(), static_cast<int>(all.size()))));
    return all;
}

POINT DropEdit::middle() const
{
    RECT place{};
    GetWindowRect(hwnd, &place);
    return {(place.left + place.right) / 2, (place.top + place.bottom) / 2};
}

} // namespace velk::test
