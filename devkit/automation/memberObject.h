#pragma once

#include "com/com_object.h"
#include "com/variant.h"

#include <span>
#include <string>
#include <vector>

namespace velk::devkit {

// The arguments of one call in reading order; named ones stand in their places, what was left out is missing.
class CallArguments {
public:
    explicit CallArguments(std::vector<const VARIANT*> inOrder) : m_inOrder(std::move(inOrder)) {}

    bool has(size_t place) const;
    // An argument as this type; the fallback when it is missing.
    int32_t number(size_t place, int32_t fallback) const;
    bool truth(size_t place, bool fallback) const;
    std::wstring text(size_t place, const std::wstring& fallback = {}) const;
    com_ptr<IDispatch> object(size_t place) const;
    // The argument as it came; error 449 when it is missing.
    const VARIANT& raw(size_t place) const;
    // All of them; null where one is missing.
    const std::vector<const VARIANT*>& all() const { return m_inOrder; }

private:
    std::vector<const VARIANT*> m_inOrder;
};

// A value of its own; references are followed.
variant copyOf(const VARIANT& value);

// One member of a class: how it is read or called, how it is set, the names of its parameters, and its number where
// the interface fixes one (else members are counted from 1, with the customary numbers of Item and _NewEnum).
template <class Class>
struct Member {
    const wchar_t* name;
    variant (*get)(Class&, const CallArguments&);
    void (*put)(Class&, const CallArguments&) = nullptr; // the value is the last argument
    const wchar_t* parameters = L"";
    DISPID id = DISPID_UNKNOWN;
};

// A member that is a plain field of the class.
template <auto field, class Class>
variant readField(Class& object, const CallArguments&)
{
    using Field = std::remove_cvref_t<decltype(object.*field)>;
    if constexpr (std::is_same_v<Field, std::wstring>)
        return variant(std::wstring_view(object.*field));
    else
        return variant(object.*field);
}
template <auto field, class Class>
void writeField(Class& object, const CallArguments& arguments)
{
    using Field = std::remove_cvref_t<decltype(object.*field)>;
    if constexpr (std::is_same_v<Field, std::wstring>)
        object.*field = arguments.text(0);
    else if constexpr (std::is_same_v<Field, bool>)
        object.*field = arguments.truth(0, false);
    else
        object.*field = arguments.number(0, 0);
    object.changed();
}

// An automation object whose members stand in a table. What a member throws reaches the caller as an automation
// exception.
class MemberObject : public ComObject<MemberObject, IDispatch> {
public:
    void queryExtra(REFIID iid, void** out) noexcept { *out = extraInterface(iid); }

    STDMETHODIMP GetTypeInfoCount(UINT* count) noexcept override;
    STDMETHODIMP GetTypeInfo(UINT, LCID, ITypeInfo**) noexcept override { return E_NOTIMPL; }
    STDMETHODIMP GetIDsOfNames(REFIID, LPOLESTR* names, UINT count, LCID, DISPID* ids) noexcept override;
    STDMETHODIMP Invoke(DISPID id, REFIID, LCID, WORD flags, DISPPARAMS* parameters, VARIANT* result,
                        EXCEPINFO* exception, UINT*) noexcept override;

protected:
    struct MemberName {
        const wchar_t* name;
        const wchar_t* parameters;
        DISPID id = DISPID_UNKNOWN;
    };
    virtual size_t memberCount() const = 0;
    virtual MemberName memberName(size_t index) const = 0;
    virtual variant read(size_t index, const CallArguments& arguments) = 0;
    virtual void write(size_t index, const CallArguments& arguments) = 0;

    // The source that its errors name.
    virtual const wchar_t* errorSource() const = 0;
    // How a call of the member is named to those who may let it fail.
    virtual std::wstring callName(const std::wstring& member) const { return errorSource() + (L"." + member); }
    // Whether this very object has the member.
    virtual bool knows(const wchar_t*) const { return true; }
    // A name was asked for that the object does not know.
    virtual void onUnknownName(const wchar_t*) {}
    // One use of a member by automation.
    virtual variant use(size_t index, bool assigns, const CallArguments& arguments);
    // Further interfaces; not counted here.
    virtual void* extraInterface(REFIID) noexcept { return nullptr; }

private:
    size_t indexOf(DISPID id) const;
    DISPID idOf(size_t index) const;
    HRESULT raise(const Error& error, EXCEPINFO* exception) const;
    HRESULT failAs(HRESULT fault, VARIANT* result, EXCEPINFO* exception) const;
};

// Joins a class with its table of members: `static std::span<const Member<Class>> members()`.
template <class Class, class Base>
class WithMembers : public Base {
public:
    using Base::Base;

protected:
    size_t memberCount() const override { return Class::members().size(); }
    typename Base::MemberName memberName(size_t index) const override
    {
        const Member<Class>& member = Class::members()[index];
        return {member.name, member.parameters, member.id};
    }
    variant read(size_t index, const CallArguments& arguments) override
    {
        const auto get = Class::members()[index].get;
        if (!get)
            throw Error(errorNoSuchMember);
        return get(static_cast<Class&>(*this), arguments);
    }
    void write(size_t index, const CallArguments& arguments) override
    {
        const auto put = Class::members()[index].put;
        if (!put)
            throw Error(errorNoSuchMember);
        put(static_cast<Class&>(*this), arguments);
    }
};

// _NewEnum of a collection.
variant enumerationOf(std::vector<variant> items);

inline variant asVariant(MemberObject* object)
{
    return variant(static_cast<IDispatch*>(object));
}

} // namespace velk::devkit
