#pragma once

#include "base/win32.h"

#include <cstddef>
#include <utility>

namespace velk {

// Owns one reference to a COM object. get() lends, put() receives (and lets go of what was held), attach() takes
// over a reference without counting, detach() gives it away. Empty is a valid state; nothing here throws.
template <class T>
class com_ptr {
public:
    com_ptr() noexcept = default;
    com_ptr(std::nullptr_t) noexcept {}
    com_ptr(T* object) noexcept : m_object(object) { addRef(); }
    com_ptr(const com_ptr& other) noexcept : m_object(other.m_object) { addRef(); }
    com_ptr(com_ptr&& other) noexcept : m_object(std::exchange(other.m_object, nullptr)) {}
    ~com_ptr() { reset(); }

    com_ptr& operator=(com_ptr other) noexcept
    {
        std::swap(m_object, other.m_object);
        return *this;
    }

    T* get() const noexcept { return m_object; }
    T* operator->() const noexcept { return m_object; }
    explicit operator bool() const noexcept { return m_object != nullptr; }

    // For out arguments; an object still held is released first.
    T** put() noexcept
    {
        reset();
        return &m_object;
    }
    void** putVoid() noexcept { return reinterpret_cast<void**>(put()); }

    void reset() noexcept
    {
        // The member is empty before the release, because the object's destructor may come back to us.
        if (T* old = std::exchange(m_object, nullptr))
            old->Release();
    }
    void attach(T* object) noexcept
    {
        reset();
        m_object = object;
    }
    T* detach() noexcept { return std::exchange(m_object, nullptr); }

    // The same object as a counted reference for an out argument of a COM method.
    void copyTo(T** out) const noexcept
    {
        *out = m_object;
        addRef();
    }

    // Another interface of the object; empty when the object has none (or is itself missing).
    template <class U>
    com_ptr<U> tryAs() const noexcept
    {
        return tryAs<U>(__uuidof(U));
    }
    template <class U>
    com_ptr<U> tryAs(REFIID iid) const noexcept
    {
        com_ptr<U> other;
        if (m_object)
            m_object->QueryInterface(iid, other.putVoid());
        return other;
    }

private:
    void addRef() const noexcept
    {
        if (m_object)
            m_object->AddRef();
    }

    T* m_object = nullptr;
};

template <class T>
bool operator==(const com_ptr<T>& a, const com_ptr<T>& b) noexcept
{
    return a.get() == b.get();
}

} // namespace velk
