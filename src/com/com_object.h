#pragma once

#include "base/boundary.h"
#include "base/module.h"
#include "base/win32.h"
#include "com/com_ptr.h"
#include "com/dispatch.h"

#include <atomic>
#include <type_traits>

namespace velk {

// The interface by which a class in the list is asked for: its own, or the one whose automation half it brings.
template <class Interface>
struct interface_of {
    using type = Interface;
};
template <class Interface>
    requires requires { typename Interface::Described; }
struct interface_of<Interface> {
    using type = typename Interface::Described;
};

// Reference counting and QueryInterface for a class that lists its interfaces. Objects live on the heap and are
// made by makeObject; each one keeps the module loaded. The class may add aggregated answers by hiding
// queryExtra(). All calls come on the apartment's thread; the counter is atomic only because COM's rules ask for it.
template <class Derived, class... Interfaces>
class ComObject : public Interfaces..., public ISupportErrorInfo {
public:
    ComObject() noexcept { module::lock(); }
    ComObject(const ComObject&) = delete;
    ComObject& operator=(const ComObject&) = delete;

    STDMETHODIMP QueryInterface(REFIID iid, void** out) noexcept override
    {
        if (!out)
            return E_POINTER;
        *out = nullptr;
        if (iid == IID_IUnknown)
            *out = identity();
        else if (iid == IID_ISupportErrorInfo)
            *out = static_cast<ISupportErrorInfo*>(this);
        else
            (void)(answer<Interfaces>(iid, out) || ...);
        if (!*out)
            static_cast<Derived*>(this)->queryExtra(iid, out);
        if (!*out)
            return E_NOINTERFACE;
        AddRef();
        return S_OK;
    }
    STDMETHODIMP_(ULONG) AddRef() noexcept override { return ++m_references; }
    STDMETHODIMP_(ULONG) Release() noexcept override
    {
        const ULONG left = --m_references;
        if (left == 0) {
            // The destructor may hand out references to itself while it lets go of others.
            m_references = 1;
            delete static_cast<Derived*>(this);
        }
        return left;
    }
    STDMETHODIMP InterfaceSupportsErrorInfo(REFIID) noexcept override { return S_OK; }

    IUnknown* identity() noexcept { return static_cast<IUnknown*>(static_cast<ISupportErrorInfo*>(this)); }
    void queryExtra(REFIID, void**) noexcept {}

protected:
    virtual ~ComObject() { module::unlock(); }

private:
    template <class Interface>
    bool answer(REFIID iid, void** out) noexcept
    {
        using Named = typename interface_of<Interface>::type;
        // A dual interface brings IDispatch; the first one in a class's list is what IDispatch itself means there.
        const bool isAutomation = std::is_base_of_v<IDispatch, Named> && iid == IID_IDispatch;
        if (iid == __uuidof(Named) || isAutomation)
            *out = static_cast<Named*>(static_cast<Interface*>(this));
        return *out != nullptr;
    }

    std::atomic<ULONG> m_references{0};
};

// Makes an object on the heap; the pointer holds its first reference.
template <class Class, class... Arguments>
com_ptr<Class> makeObject(Arguments&&... arguments)
{
    return com_ptr<Class>(new Class(std::forward<Arguments>(arguments)...));
}

} // namespace velk
