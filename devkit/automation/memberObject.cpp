#include "devkit/automation/memberObject.h"

#include "com/com_boundary.h"
#include "devkit/automation/faults.h"

#include <cwchar>
#include <sstream>

namespace velk::devkit {
namespace {

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

variant copyOf(const VARIANT& value)
{
    variant copy;
    throwIfFailed(VariantCopyInd(copy.put(), const_cast<VARIANT*>(&value)));
    return copy;
}

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

HRESULT MemberObject::GetTypeInfoCount(UINT* count) noexcept
{
    *count = 0;
    return S_OK;
}

DISPID MemberObject::idOf(size_t index) const
{
    const MemberName member = memberName(index);
    const std::wstring_view name = member.name;
    if (member.id != DISPID_UNKNOWN)
        return member.id;
    if (name == L"Item")
        return DISPID_VALUE;
    return name == L"_NewEnum" ? DISPID_NEWENUM : static_cast<DISPID>(index + 1);
}

size_t MemberObject::indexOf(DISPID id) const
{
    for (size_t index = 0; index < memberCount(); ++index)
        if (idOf(index) == id)
            return index;
    throw Error::fromResult(DISP_E_MEMBERNOTFOUND);
}

HRESULT MemberObject::GetIDsOfNames(REFIID, LPOLESTR* names, UINT count, LCID, DISPID* ids) noexcept
{
    return atBoundary(L"GetIDsOfNames", [&] {
        for (UINT index = 0; index < count; ++index)
            ids[index] = DISPID_UNKNOWN;
        if (const auto fault = faultOf(callName(names[0]) + L"?"))
            return *fault;
        for (size_t index = 0; index < memberCount(); ++index) {
            const MemberName member = memberName(index);
            if (_wcsicmp(member.name, names[0]) != 0 || !knows(member.name))
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
            onUnknownName(names[index]);
            return DISP_E_UNKNOWNNAME;
        }
        return S_OK;
    });
}

HRESULT MemberObject::Invoke(DISPID id, REFIID, LCID, WORD flags, DISPPARAMS* parameters, VARIANT* result,
                             EXCEPINFO* exception, UINT*) noexcept
{
    const com_ptr<MemberObject> untilDone(this);
    try {
        const size_t index = indexOf(id);
        const bool assigns = (flags & (DISPATCH_PROPERTYPUT | DISPATCH_PROPERTYPUTREF)) != 0;
        if (const auto fault = faultOf(callName(memberName(index).name) + (assigns ? L"=" : L"")))
            return failAs(*fault, assigns ? nullptr : result, exception);
        const variant answer = use(index, assigns, inReadingOrder(*parameters));
        if (result && !assigns)
            throwIfFailed(VariantCopy(result, const_cast<VARIANT*>(&answer.get())));
        return S_OK;
    } catch (const Error& error) {
        return raise(error, exception);
    } catch (const std::exception&) {
        return E_FAIL;
    }
}

variant MemberObject::use(size_t index, bool assigns, const CallArguments& arguments)
{
    if (!assigns)
        return read(index, arguments);
    write(index, arguments);
    return variant();
}

HRESULT MemberObject::raise(const Error& error, EXCEPINFO* exception) const
{
    if (!exception)
        return error.result();
    *exception = {};
    exception->scode = error.result();
    exception->bstrDescription = bstr(error.description()).detach();
    exception->bstrSource = bstr(errorSource()).detach();
    return DISP_E_EXCEPTION;
}

HRESULT MemberObject::failAs(HRESULT fault, VARIANT* result, EXCEPINFO* exception) const
{
    if (fault == DISP_E_EXCEPTION)
        return raise(Error(errorUnsupportedAction, L"the call was told to fail"), exception);
    if (SUCCEEDED(fault) && result) {
        result->vt = VT_DISPATCH;
        result->pdispVal = nullptr;
    }
    return fault;
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
