#pragma once

#include "devkit/automation/memberObject.h"

#include <string>

namespace velk::devkit {

// A value for the journal: numbers and texts as Basic writes them, the IDE's own objects by their labels.
std::wstring describe(const VARIANT& value);

// An object of the IDE's automation tree. Every use that comes through IDispatch goes to the journal; the IDE itself
// uses the C++ functions of the classes and leaves no line.
class AutomationObject : public MemberObject {
public:
    explicit AutomationObject(const wchar_t* className) : m_className(className) {}

    // How the journal names this object.
    virtual std::wstring label() const { return m_className; }

protected:
    // Whether this very object has the member (a plain button has no list of controls).
    virtual bool offers(std::wstring_view) const { return true; }
    // Further interfaces; not counted here.
    virtual void* ownInterface(REFIID) noexcept { return nullptr; }

private:
    const wchar_t* errorSource() const override { return L"Development Environment"; }
    bool knows(const wchar_t* member) const override;
    void onUnknownName(const wchar_t* name) override;
    variant use(size_t index, bool assigns, const CallArguments& arguments) override;
    void* extraInterface(REFIID iid) noexcept override;
    std::wstring callName(const std::wstring& member) const override { return m_className + (L"." + member); }

    const wchar_t* m_className;
};

// Joins a class of the IDE with its table of members.
template <class Class>
class Automated : public WithMembers<Class, AutomationObject> {
public:
    using WithMembers<Class, AutomationObject>::WithMembers;
};

// _NewEnum of a list of the IDE's objects.
template <class Items>
variant enumerate(const Items& items)
{
    std::vector<variant> values;
    for (const auto& item : items)
        values.push_back(asVariant(item.get()));
    return enumerationOf(std::move(values));
}

// The IDE's own object behind an automation pointer; null for a foreign one.
AutomationObject* ownObject(IDispatch* object) noexcept;

} // namespace velk::devkit
