#include "com/text_data.h"

#include "base/text.h"
#include "com/com_boundary.h"
#include "com/com_object.h"

#include <algorithm>
#include <cstring>
#include <span>

namespace velk {
namespace {

constexpr FORMATETC textAs(CLIPFORMAT format) noexcept
{
    return {format, nullptr, DVASPECT_CONTENT, -1, TYMED_HGLOBAL};
}
constexpr FORMATETC formats[] = {textAs(CF_UNICODETEXT), textAs(CF_TEXT)}; // the better one first

// The formats, one after the other.
class Formats : public ComObject<Formats, IEnumFORMATETC> {
public:
    explicit Formats(size_t next) noexcept : m_next(next) {}

    STDMETHODIMP Next(ULONG wanted, FORMATETC* out, ULONG* given) noexcept override
    {
        if (given)
            *given = 0;
        // Who asks for several has to be told how many there were.
        if (!out || (!given && wanted != 1))
            return E_INVALIDARG;
        const size_t count = std::min<size_t>(wanted, left());
        std::copy_n(formats + m_next, count, out);
        m_next += count;
        if (given)
            *given = static_cast<ULONG>(count);
        return count == wanted ? S_OK : S_FALSE;
    }
    STDMETHODIMP Skip(ULONG count) noexcept override
    {
        const size_t skipped = std::min<size_t>(count, left());
        m_next += skipped;
        return skipped == count ? S_OK : S_FALSE;
    }
    STDMETHODIMP Reset() noexcept override
    {
        m_next = 0;
        return S_OK;
    }
    STDMETHODIMP Clone(IEnumFORMATETC** out) noexcept override
    {
        if (!out)
            return E_INVALIDARG;
        *out = nullptr;
        return atBoundary(L"IEnumFORMATETC.Clone", [&] { *out = makeObject<Formats>(m_next).detach(); });
    }

private:
    size_t left() const noexcept { return std::size(formats) - m_next; }

    size_t m_next;
};

template <class Text>
std::span<const std::byte> bytesOf(const Text& text) noexcept
{
    return std::as_bytes(std::span(text.c_str(), text.size() + 1)); // with the NUL
}

class TextData : public ComObject<TextData, IDataObject> {
public:
    explicit TextData(std::wstring text) : m_text(std::move(text)), m_ansi(toAnsi(m_text)) {}

    STDMETHODIMP GetData(FORMATETC* format, STGMEDIUM* medium) noexcept override
    {
        if (!medium)
            return E_INVALIDARG;
        *medium = {};
        if (const HRESULT refused = check(format); refused != S_OK)
            return refused;
        const std::span<const std::byte> bytes = textIn(*format);
        const HGLOBAL copy = GlobalAlloc(GMEM_MOVEABLE, bytes.size());
        if (!copy)
            return E_OUTOFMEMORY;
        if (!write(bytes, copy)) {
            GlobalFree(copy);
            return E_OUTOFMEMORY;
        }
        medium->tymed = TYMED_HGLOBAL;
        medium->hGlobal = copy;
        return S_OK;
    }
    STDMETHODIMP GetDataHere(FORMATETC* format, STGMEDIUM* medium) noexcept override
    {
        if (!medium)
            return E_INVALIDARG;
        if (const HRESULT refused = check(format); refused != S_OK)
            return refused;
        if (medium->tymed != TYMED_HGLOBAL || !medium->hGlobal)
            return DV_E_TYMED;
        const std::span<const std::byte> bytes = textIn(*format);
        if (GlobalSize(medium->hGlobal) < bytes.size())
            return STG_E_MEDIUMFULL;
        return write(bytes, medium->hGlobal) ? S_OK : E_OUTOFMEMORY;
    }
    STDMETHODIMP QueryGetData(FORMATETC* format) noexcept override { return check(format); }
    STDMETHODIMP GetCanonicalFormatEtc(FORMATETC* format, FORMATETC* same) noexcept override
    {
        if (!same)
            return E_INVALIDARG;
        *same = {};
        if (const HRESULT refused = check(format); refused != S_OK)
            return refused;
        *same = *format;
        same->ptd = nullptr; // a text is the same on every device
        return format->ptd ? S_OK : DATA_S_SAMEFORMATETC;
    }
    STDMETHODIMP SetData(FORMATETC*, STGMEDIUM*, BOOL) noexcept override { return E_NOTIMPL; }
    STDMETHODIMP EnumFormatEtc(DWORD direction, IEnumFORMATETC** out) noexcept override
    {
        if (!out)
            return E_INVALIDARG;
        *out = nullptr;
        if (direction != DATADIR_GET)
            return E_NOTIMPL;
        return atBoundary(L"IDataObject.EnumFormatEtc", [&] { *out = makeObject<Formats>(size_t{0}).detach(); });
    }
    STDMETHODIMP DAdvise(FORMATETC*, DWORD, IAdviseSink*, DWORD* connection) noexcept override
    {
        if (connection)
            *connection = 0;
        return OLE_E_ADVISENOTSUPPORTED;
    }
    STDMETHODIMP DUnadvise(DWORD) noexcept override { return OLE_E_ADVISENOTSUPPORTED; }
    STDMETHODIMP EnumDAdvise(IEnumSTATDATA** out) noexcept override
    {
        if (out)
            *out = nullptr;
        return OLE_E_ADVISENOTSUPPORTED;
    }

private:
    // S_OK for what the text can be given as.
    static HRESULT check(const FORMATETC* asked) noexcept
    {
        if (!asked)
            return E_INVALIDARG;
        if (asked->cfFormat != CF_UNICODETEXT && asked->cfFormat != CF_TEXT)
            return DV_E_FORMATETC;
        if (asked->dwAspect != DVASPECT_CONTENT)
            return DV_E_DVASPECT;
        if (asked->lindex != -1)
            return DV_E_LINDEX;
        return asked->tymed & TYMED_HGLOBAL ? S_OK : DV_E_TYMED;
    }
    std::span<const std::byte> textIn(const FORMATETC& format) const noexcept
    {
        return format.cfFormat == CF_UNICODETEXT ? bytesOf(m_text) : bytesOf(m_ansi);
    }
    static bool write(std::span<const std::byte> bytes, HGLOBAL target) noexcept
    {
        void* const memory = GlobalLock(target);
        if (!memory)
            return false;
        std::memcpy(memory, bytes.data(), bytes.size());
        GlobalUnlock(target);
        return true;
    }

    const std::wstring m_text;
    const std::string m_ansi;
};

} // namespace

com_ptr<IDataObject> makeTextData(std::wstring text)
{
    return com_ptr<IDataObject>(makeObject<TextData>(std::move(text)).get());
}

} // namespace velk
