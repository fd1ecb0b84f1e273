#pragma once

#include "platform/com_object.h"
#include "platform/variant.h"

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
    std::wstring describe() const;

private:
    std::vector<const VARIANT*> m_inOrder;
};

// A value for the journal: numbers and texts as Basic writes them, the IDE's own objects by their labels.
std::wstring describe(const VARIANT& value);

// One member of a class of the IDE: how it is read or called, how it is set, and the names of its parameters.
template <class Class>
struct Member {
    const wchar_t* name;
    variant (*get)(Class&, const CallArguments&);
    void (*put)(Class&, const CallArguments&) = nullptr; // the value is the last argument
    const wchar_t* parameters = L"";
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

// An object of the IDE's automation tree. Every use that comes through IDispatch goes to the journal; the IDE itself
// uses the C++ functions of the classes and leaves no line.
class AutomationObject : public ComObject<AutomationObject, IDispatch> {
public:
    explicit AutomationObject(const wchar_t* className) : m_className(className) {}

    // How the journal names this object.
    virtual std::wstring label() const { return m_className; }
    void queryExtra(REFIID iid, void** out) noexcept;

    STDMETHODIMP GetTypeInfoCount(UINT* count) noexcept override;
    STDMETHODIMP GetTypeInfo(UINT, LCID, ITypeInfo**) noexcept override { return E_NOTIMPL; }
    STDMETHODIMP GetIDsOfNames(REFIID, LPOLESTR* names, UINT count, LCID, DISPID* ids) noexcept override;
    STDMETHODIMP Invoke(DISPID id, REFIID, LCID, WORD flags, DISPPARAMS* parameters, VARIANT* result,
                        EXCEPINFO* exception, UINT*) noexcept override;

protected:
    struct MemberName {
        const wchar_t* name;
        const wchar_t* parameters;
    };
    virtual size_t memberCount() const = 0;
    virtual MemberName memberName(size_t index) const = 0;
    virtual variant read(size_t index, const CallArguments& arguments) = 0;
    virtual void write(size_t index, const CallArguments& arguments) = 0;
    // Whether this very object has the member (a plain button has no list of controls).
    virtual bool offers(std::wstring_view) const { return true; }
    // Further interfaces; not counted here.
    virtual void* extraInterface(REFIID) noexcept { return nullptr; }

private:
    size_t indexOf(DISPID id) const;
    DISPID idOf(size_t index) const;
    std::wstring qualified(const wchar_t* member) const { return std::wstring(m_className) + L"." + member; }
    HRESULT use(DISPID id, WORD flags, const DISPPARAMS& parameters, VARIANT* result, EXCEPINFO* exception);

    const wchar_t* m_className;
};

// Joins a class with its table of members: `static std::span<const Member<Class>> members()`.
template <class Class>
class Automated : public AutomationObject {
public:
    using AutomationObject::AutomationObject;

protected:
    size_t memberCount() const override { return Class::members().size(); }
    MemberName memberName(size_t index) const override
    {
        const Member<Class>& member = Class::members()[index];
        return {member.name, member.parameters};
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

// The IDE's own object behind an automation pointer; null for a foreign one.
AutomationObject* ownObject(IDispatch* object) noexcept;

// _NewEnum of a collection.
variant enumerationOf(std::vector<variant> items);

inline variant asVariant(AutomationObject* object)
{
    return variant(static_cast<IDispatch*>(object));
}

} // namespace velk::devkit
