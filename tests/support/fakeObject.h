#pragma once

#include "com/com_object.h"
#include "com/variant.h"

#include <functional>
#include <map>
#include <string>
#include <vector>

namespace velk::test {

// An automation object whose members a test writes down: values to read and write, and functions to call. Every use
// goes to a journal that several objects may share: `bar.Controls`, `entry.Caption = "x"`, `entry.Delete()`.
class FakeObject : public ComObject<FakeObject, IDispatch> {
public:
    using Journal = std::vector<std::wstring>;
    using Function = std::function<variant(const std::vector<variant>& arguments)>;

    FakeObject(std::wstring name, Journal* journal) : m_name(std::move(name)), m_journal(journal) {}

    FakeObject* value(const std::wstring& member, variant initial)
    {
        m_values[idOf(member)] = std::move(initial);
        return this;
    }
    FakeObject* function(const std::wstring& member, Function answer)
    {
        m_functions[idOf(member)] = std::move(answer);
        return this;
    }
    // What happens inside an assignment to the member.
    FakeObject* whenAssigned(const std::wstring& member, std::function<void()> deed)
    {
        m_deeds[idOf(member)] = std::move(deed);
        return this;
    }
    // From now on every use of the member fails with this error.
    FakeObject* failing(const std::wstring& member, Error error)
    {
        m_failures.insert_or_assign(idOf(member), std::move(error));
        return this;
    }
    // Works again.
    void mend(const std::wstring& member) { m_failures.erase(idOf(member)); }
    variant read(const std::wstring& member) { return m_values[idOf(member)]; }
    // How often somebody asked for the number of a name.
    int namesAsked() const noexcept { return m_namesAsked; }

    STDMETHODIMP GetTypeInfoCount(UINT* count) noexcept override
    {
        *count = 0;
        return S_OK;
    }
    STDMETHODIMP GetTypeInfo(UINT, LCID, ITypeInfo**) noexcept override { return E_NOTIMPL; }
    STDMETHODIMP GetIDsOfNames(REFIID, LPOLESTR* names, UINT, LCID, DISPID* ids) noexcept override;
    STDMETHODIMP Invoke(DISPID id, REFIID, LCID, WORD flags, DISPPARAMS* parameters, VARIANT* result, EXCEPINFO*,
                        UINT*) noexcept override;

private:
    DISPID idOf(const std::wstring& member);
    void write(const std::wstring& text)
    {
        if (m_journal)
            m_journal->push_back(m_name + L"." + text);
    }
    std::wstring shownArguments(const DISPPARAMS& parameters) const;
    HRESULT answer(DISPID id, WORD flags, const DISPPARAMS& parameters, VARIANT* result);

    std::wstring m_name;
    Journal* m_journal;
    int m_namesAsked = 0;
    std::map<std::wstring, DISPID> m_ids;
    std::vector<std::wstring> m_members;
    std::map<DISPID, variant> m_values;
    std::map<DISPID, Function> m_functions;
    std::map<DISPID, std::function<void()>> m_deeds;
    std::map<DISPID, Error> m_failures;
};

inline com_ptr<FakeObject> fakeObject(const std::wstring& name, FakeObject::Journal* journal = nullptr)
{
    return makeObject<FakeObject>(name, journal);
}

inline variant asVariant(const com_ptr<FakeObject>& object)
{
    return variant(static_cast<IDispatch*>(object.get()));
}

} // namespace velk::test
