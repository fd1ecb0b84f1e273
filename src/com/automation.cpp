#include "com/automation.h"

#include "base/error.h"
#include "base/trace.h"

#include <algorithm>
#include <vector>

namespace velk::automation {
namespace {

constexpr LCID englishUs = MAKELCID(MAKELANGID(LANG_ENGLISH, SUBLANG_ENGLISH_US), SORT_DEFAULT);

struct AccessRow {
    WORD flags;
    bool assigns;
};

// Hosts written in Basic expose members that are neither clearly property nor method, so reading and calling ask
// for both.
// clang-format off
constexpr AccessRow accessRows[] = {
    /* get    */ {DISPATCH_PROPERTYGET | DISPATCH_METHOD, false},
    /* put    */ {DISPATCH_PROPERTYPUT,                   true},
    /* putRef */ {DISPATCH_PROPERTYPUTREF,                true},
    /* call   */ {DISPATCH_METHOD | DISPATCH_PROPERTYGET, false},
};
// clang-format on

std::vector<DISPID> idsOf(IDispatch* object, std::wstring_view member, const Arguments& arguments)
{
    std::vector<std::wstring> texts{std::wstring(member)};
    for (const NamedArgument& argument : arguments.named)
        texts.emplace_back(argument.name);
    std::vector<LPOLESTR> names;
    for (std::wstring& text : texts)
        names.push_back(text.data());
    std::vector<DISPID> ids(names.size(), DISPID_UNKNOWN);
    const HRESULT result =
        object->GetIDsOfNames(IID_NULL, names.data(), static_cast<UINT>(names.size()), englishUs, ids.data());
    if (FAILED(result) && ids[0] != DISPID_UNKNOWN)
        throw Error(errorNamedArgument);
    if (FAILED(result))
        throw Error::fromResult(result);
    return ids;
}

// Automation wants the arguments backwards: the named ones first, then the positional ones from the last to the
// first. They are lent, not copied, so that references reach the callee as such.
std::vector<VARIANTARG> backwards(const Arguments& arguments)
{
    std::vector<VARIANTARG> raw;
    for (const NamedArgument& argument : arguments.named)
        raw.push_back(argument.value.get());
    std::vector<VARIANTARG> positional;
    for (const variant& value : arguments.positional)
        positional.push_back(value.get());
    raw.insert(raw.end(), positional.rbegin(), positional.rend());
    return raw;
}

// Takes over the three strings of an exception record.
struct Exception : EXCEPINFO {
    Exception() : EXCEPINFO{} {}
    Exception(const Exception&) = delete;
    Exception& operator=(const Exception&) = delete;
    ~Exception()
    {
        SysFreeString(bstrDescription);
        SysFreeString(bstrSource);
        SysFreeString(bstrHelpFile);
    }
    Error toError()
    {
        if (pfnDeferredFillIn)
            pfnDeferredFillIn(this);
        const HRESULT result = scode ? scode : MAKE_HRESULT(SEVERITY_ERROR, FACILITY_CONTROL, wCode);
        const Error plain = Error::fromResult(result);
        const std::wstring_view description = bstr::viewOf(bstrDescription);
        return Error(plain.number(), description.empty() ? plain.description() : std::wstring(description),
                     std::wstring(bstr::viewOf(bstrSource)), result);
    }
};

} // namespace

variant invoke(IDispatch* object, std::wstring_view member, Access access, const Arguments& arguments)
{
    if (!object)
        throw Error(errorObjectNotSet);
    const AccessRow row = accessRows[static_cast<size_t>(access)];
    std::vector<DISPID> ids = idsOf(object, member, arguments);
    std::vector<VARIANTARG> raw = backwards(arguments);
    DISPID assigned = DISPID_PROPERTYPUT;
    DISPPARAMS parameters{raw.data(), row.assigns ? &assigned : ids.data() + 1, static_cast<UINT>(raw.size()),
                          row.assigns ? 1u : static_cast<UINT>(arguments.named.size())};
    variant answer;
    Exception exception;
    UINT badArgument = 0;
    const HRESULT result = object->Invoke(ids[0], IID_NULL, englishUs, row.flags, &parameters,
                                          row.assigns ? nullptr : answer.put(), &exception, &badArgument);
    if (trace::isOn(trace::Level::calls))
        trace::write(trace::Level::calls, L"host: " + std::wstring(member) + (SUCCEEDED(result) ? L"" : L" failed"));
    if (result == DISP_E_EXCEPTION)
        throw exception.toError();
    throwIfFailed(result);
    return answer;
}

bool hasMember(IDispatch* object, const wchar_t* member) noexcept
{
    LPOLESTR name = const_cast<LPOLESTR>(member);
    DISPID id = DISPID_UNKNOWN;
    return object && SUCCEEDED(object->GetIDsOfNames(IID_NULL, &name, 1, englishUs, &id));
}

com_ptr<IDispatch> createObject(std::wstring_view progId)
{
    CLSID clsid{};
    com_ptr<IDispatch> object;
    if (FAILED(CLSIDFromProgID(std::wstring(progId).c_str(), &clsid)) ||
        FAILED(CoCreateInstance(clsid, nullptr, CLSCTX_INPROC_SERVER | CLSCTX_LOCAL_SERVER, IID_IDispatch,
                                object.putVoid())))
        throw Error(errorCannotCreate);
    return object;
}

} // namespace velk::automation
