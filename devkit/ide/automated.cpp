#include "devkit/ide/automated.h"

#include "devkit/ide/recorder.h"
#include "platform/text.h"

#include <cwchar>
#include <sstream>

namespace velk::devkit {
namespace {

// Answered by the IDE's own objects only.
constexpr IID ownObjectIid{0x6d0f1a52, 0x2c64, 0x4d0e, {0x9b, 0x3e, 0x51, 0x77, 0xe1, 0x0a, 0x94, 0x20}};

std::vector<std::wstring> wordsOf(const wchar_t* text)
{
    std::wistringstream stream(text);
    std::vector<std::wstring> words;
    for (std::wstring word; stream >> word;)
        words.push_back(word);
    return words;
}

// Automation's backward order, named arguments first, into reading order.
CallArguments inReadingOrder(const DISPPARAMS& parameters)
{
    const bool assigns = parameters.cNamedArgs == 1 && parameters.rgdispidNamedArgs[0] == DISPID_PROPERTYPUT;
    const UINT named = assigns ? 0 : parameters.cNamedArgs;
    std::vector<const VARIANT*> places;
    for (UINT place = parameters.cArgs; place > named; --place)
        places.push_back(&parameters.rgvarg[place - 1]);
    for (UINT index = 0; index < named; ++index) {
        const auto place = static_cast<size_t>(parameters.rgdispidNamedArgs[index]);
        if (places.size() <= place)
            places.resize(place + 1, nullptr);
        places[place] = &parameters.rgvarg[index];
    }
    return CallArguments(std::move(places));
}

HRESULT raise(const Error& error, EXCEPINFO* exception)
{
    if (!exception)
        return error.result();
    *exception = {};
    exception->scode = error.result();
    exception->bstrDescription = bstr(error.description()).detach();
    exception->bstrSource = bstr(L"Development Environment").detach();
    return DISP_E_EXCEPTION;
}

} // namespace

bool CallArguments::has(size_t place) const
{
    const VARIANT* value = place < m_inOrder.size() ? m_inOrder[place] : nullptr;
    return value && !(value->vt == VT_ERROR && value->scode == DISP_E_PARAMNOTFOUND);
}

const VARIANT& CallArguments::raw(size_t place) const
{
    if (!has(place))
        throw Error(errorArgumentMissing);
    return *m_inOrder[place];
}

namespace {
variant copyOf(const VARIANT& value)
{
    variant copy;
    throwIfFailed(VariantCopyInd(copy.put(), const_cast<VARIANT*>(&value)));
    return copy;
}
} // namespace

int32_t CallArguments::number(size_t place, int32_t fallback) const
{
    return has(place) ? copyOf(raw(place)).asLong() : fallback;
}

bool CallArguments::truth(size_t place, bool fallback) const
{
    return has(place) ? copyOf(raw(place)).asBool() : fallback;
}

std::wstring CallArguments::text(size_t place, const std::wstring& fallback) const
{
    return has(place) ? copyOf(raw(place)).asText() : fallback;
}

com_ptr<IDispatch> CallArguments::object(size_t place) const
{
    return has(place) ? copyOf(raw(place)).asObject() : nullptr;
}

std::wstring CallArguments::describe() const
{
    std::wstring text;
    for (const VARIANT* value : m_inOrder) {
        text += text.empty() ? L"" : L", ";
        text += value ? devkit::describe(*value) : L"";
    }
    return text;
}

std::wstring describe(const VARIANT& value)
{
    switch (value.vt) {
    case VT_EMPTY:
        return L"Empty";
    case VT_ERROR:
        return L"";
    case VT_BSTR:
        return L"\"" + std::wstring(bstr::viewOf(value.bstrVal)) + L"\"";
    case VT_BOOL:
        return booleanText(value.boolVal != VARIANT_FALSE);
    case VT_UNKNOWN:
        return L"enumeration";
    case VT_DISPATCH: {
        const AutomationObject* own = ownObject(value.pdispVal);
        return own ? own->label() : value.pdispVal ? L"object" : L"Nothing";
    }
    default:
        return value.vt & VT_BYREF ? L"reference" : copyOf(value).asText();
    }
}

AutomationObject* ownObject(IDispatch* object) noexcept
{
    void* own = nullptr;
    if (!object || FAILED(object->QueryInterface(ownObjectIid, &own)))
        return nullptr;
    auto* found = static_cast<AutomationObject*>(own);
    found->Release();
    return found;
}

void AutomationObject::queryExtra(REFIID iid, void** out) noexcept
{
    *out = iid == ownObjectIid ? this : extraInterface(iid);
}

HRESULT AutomationObject::GetTypeInfoCount(UINT* count) noexcept
{
    *count = 0;
    return S_OK;
}

DISPID AutomationObject::idOf(size_t index) const
{
    const std::wstring_view name = memberName(index).name;
    if (name == L"Item")
        return DISPID_VALUE;
    return name == L"_NewEnum" ? DISPID_NEWENUM : static_cast<DISPID>(index + 1);
}

size_t AutomationObject::indexOf(DISPID id) const
{
    for (size_t index = 0; index < memberCount(); ++index)
        if (idOf(index) == id)
            return index;
    throw Error::fromResult(DISP_E_MEMBERNOTFOUND);
}

HRESULT AutomationObject::GetIDsOfNames(REFIID, LPOLESTR* names, UINT count, LCID, DISPID* ids) noexcept
{
    return atBoundary(L"GetIDsOfNames", [&] {
        for (UINT index = 0; index < count; ++index)
            ids[index] = DISPID_UNKNOWN;
        for (size_t index = 0; index < memberCount(); ++index) {
            const MemberName member = memberName(index);
            if (_wcsicmp(member.name, names[0]) != 0 || !offers(member.name) ||
                recorder().isMissing(qualified(member.name)))
                continue;
            ids[0] = idOf(index);
            const std::vector<std::wstring> parameters = wordsOf(member.parameters);
            for (UINT name = 1; name < count; ++name)
                for (size_t place = 0; place < parameters.size(); ++place)
                    if (_wcsicmp(parameters[place].c_str(), names[name]) == 0)
                        ids[name] = static_cast<DISPID>(place);
        }
        for (UINT index = 0; index < count; ++index) {
            if (ids[index] != DISPID_UNKNOWN)
                continue;
            recorder().write(label() + L"." + names[index] + L" unknown");
            return DISP_E_UNKNOWNNAME;
        }
        return S_OK;
    });
}

HRESULT AutomationObject::Invoke(DISPID id, REFIID, LCID, WORD flags, DISPPARAMS* parameters, VARIANT* result,
                                 EXCEPINFO* exception, UINT*) noexcept
{
    const com_ptr<AutomationObject> untilDone(this);
    try {
        return use(id, flags, *parameters, result, exception);
    } catch (const Error& error) {
        return raise(error, exception);
    } catch (const std::exception&) {
        return E_FAIL;
    }
}

HRESULT AutomationObject::use(DISPID id, WORD flags, const DISPPARAMS& parameters, VARIANT* result,
                              EXCEPINFO* exception)
{
    const size_t index = indexOf(id);
    const MemberName member = memberName(index);
    const CallArguments arguments = inReadingOrder(parameters);
    const std::wstring use = label() + L"." + member.name;
    const std::wstring said = arguments.describe();
    const bool assigns = (flags & (DISPATCH_PROPERTYPUT | DISPATCH_PROPERTYPUTREF)) != 0;
    const std::wstring line = assigns ? use + L" = " + said : said.empty() ? use : use + L"(" + said + L")";
    try {
        if (recorder().isFailing(qualified(member.name)))
            throw Error(errorUnsupportedAction, std::wstring(member.name) + L" was told to fail");
        if (assigns) {
            recorder().write(line);
            write(index, arguments);
            return S_OK;
        }
        variant answer = read(index, arguments);
        recorder().write(answer.type() == VT_EMPTY ? line : line + L" -> " + describe(answer.get()));
        if (result)
            throwIfFailed(VariantCopy(result, const_cast<VARIANT*>(&answer.get())));
        return S_OK;
    } catch (const Error& error) {
        recorder().write(line + L" failed: " + error.description());
        return raise(error, exception);
    }
}

namespace {

class Enumeration : public ComObject<Enumeration, IEnumVARIANT> {
public:
    Enumeration(std::vector<variant> items, size_t next) : m_items(std::move(items)), m_next(next) {}

    STDMETHODIMP Next(ULONG count, VARIANT* items, ULONG* fetched) noexcept override
    {
        ULONG given = 0;
        for (; given < count && m_next < m_items.size(); ++given, ++m_next) {
            VariantInit(&items[given]);
            VariantCopy(&items[given], const_cast<VARIANT*>(&m_items[m_next].get()));
        }
        if (fetched)
            *fetched = given;
        return given == count ? S_OK : S_FALSE;
    }
    STDMETHODIMP Skip(ULONG count) noexcept override
    {
        const size_t left = m_items.size() - m_next;
        m_next += count < left ? count : left;
        return count <= left ? S_OK : S_FALSE;
    }
    STDMETHODIMP Reset() noexcept override
    {
        m_next = 0;
        return S_OK;
    }
    STDMETHODIMP Clone(IEnumVARIANT** other) noexcept override
    {
        return atBoundary(L"Clone", [&] { *other = makeObject<Enumeration>(m_items, m_next).detach(); });
    }

private:
    std::vector<variant> m_items;
    size_t m_next;
};

} // namespace

variant enumerationOf(std::vector<variant> items)
{
    variant made;
    VARIANT* raw = made.put();
    raw->punkVal = static_cast<IEnumVARIANT*>(makeObject<Enumeration>(std::move(items), size_t{0}).detach());
    raw->vt = VT_UNKNOWN;
    return made;
}

} // namespace velk::devkit
