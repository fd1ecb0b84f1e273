#include "support/fakeObject.h"

namespace velk::test {
namespace {

std::wstring shown(const variant& value)
{
    if (value.type() == VT_DISPATCH)
        return L"<object>";
    if (value.type() & VT_BYREF)
        return L"<reference>";
    return value.type() == VT_BSTR ? L"\"" + value.asText() + L"\"" : value.asText();
}

std::vector<variant> inOrder(const DISPPARAMS& parameters)
{
    std::vector<variant> arguments;
    for (UINT index = parameters.cArgs; index-- > 0;) {
        variant copy;
        // References are passed on as such: the function of a test may want to write through them.
        if (parameters.rgvarg[index].vt & VT_BYREF)
            *copy.put() = parameters.rgvarg[index];
        else
            VariantCopy(copy.put(), &parameters.rgvarg[index]);
        arguments.push_back(std::move(copy));
    }
    return arguments;
}

std::wstring joined(const std::wstring& before, const std::wstring& next)
{
    return before.empty() ? next : before + L", " + next;
}

} // namespace

// Positional arguments in reading order, then named ones as "name:=value".
std::wstring FakeObject::shownArguments(const DISPPARAMS& parameters) const
{
    const std::vector<variant> arguments = inOrder(parameters);
    const size_t positional = arguments.size() - parameters.cNamedArgs;
    std::wstring text;
    for (size_t place = 0; place < positional; ++place)
        text = joined(text, shown(arguments[place]));
    for (size_t place = arguments.size(); place-- > positional;) {
        const DISPID name = parameters.rgdispidNamedArgs[arguments.size() - 1 - place];
        text = joined(text, m_members[static_cast<size_t>(name)] + L":=" + shown(arguments[place]));
    }
    return text;
}

DISPID FakeObject::idOf(const std::wstring& member)
{
    const auto [found, isNew] = m_ids.try_emplace(member, static_cast<DISPID>(m_members.size()));
    if (isNew)
        m_members.push_back(member);
    return found->second;
}

HRESULT FakeObject::GetIDsOfNames(REFIID, LPOLESTR* names, UINT count, LCID, DISPID* ids) noexcept
{
    ++m_namesAsked;
    for (UINT place = 1; place < count; ++place)
        ids[place] = idOf(names[place]); // any name of an argument will do
    const auto found = m_ids.find(names[0]);
    ids[0] = found == m_ids.end() ? DISPID_UNKNOWN : found->second;
    return found == m_ids.end() ? DISP_E_UNKNOWNNAME : S_OK;
}

HRESULT FakeObject::Invoke(DISPID id, REFIID, LCID, WORD flags, DISPPARAMS* parameters, VARIANT* result,
                           EXCEPINFO* exception, UINT*) noexcept
{
    const auto failure = m_failures.find(id);
    if (failure == m_failures.end())
        return answer(id, flags, *parameters, result);
    write(m_members[static_cast<size_t>(id)] + L" fails");
    *exception = {};
    exception->scode = failure->second.result();
    exception->bstrDescription = SysAllocString(failure->second.description().c_str());
    exception->bstrSource = SysAllocString(failure->second.source().c_str());
    return DISP_E_EXCEPTION;
}

HRESULT FakeObject::answer(DISPID id, WORD flags, const DISPPARAMS& parameters, VARIANT* result)
{
    const std::wstring member = m_members[static_cast<size_t>(id)];
    const std::vector<variant> arguments = inOrder(parameters);
    if (flags & (DISPATCH_PROPERTYPUT | DISPATCH_PROPERTYPUTREF)) {
        write(member + L" = " + shown(arguments.at(0)));
        m_values[id] = arguments.at(0);
        if (const auto deed = m_deeds.find(id); deed != m_deeds.end())
            deed->second();
        return S_OK;
    }
    const auto function = m_functions.find(id);
    write(function == m_functions.end() ? member : member + L"(" + shownArguments(parameters) + L")");
    try {
        const variant value = function == m_functions.end() ? m_values[id] : function->second(arguments);
        return result ? VariantCopy(result, const_cast<VARIANT*>(&value.get())) : S_OK;
    } catch (const Error& error) {
        return error.result();
    }
}

} // namespace velk::test
