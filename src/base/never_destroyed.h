#pragma once

#include <new>
#include <utility>

namespace velk {

// Module-wide state without a destructor. What a DLL holds at the end must be let go of before its process ends or
// it is unloaded; destructors that run during process exit would call into libraries that are already gone.
template <class T>
class never_destroyed {
public:
    template <class... Arguments>
    explicit never_destroyed(Arguments&&... arguments)
    {
        new (m_storage) T(std::forward<Arguments>(arguments)...);
    }
    never_destroyed(const never_destroyed&) = delete;
    never_destroyed& operator=(const never_destroyed&) = delete;

    T& get() noexcept { return *std::launder(reinterpret_cast<T*>(m_storage)); }

private:
    alignas(T) unsigned char m_storage[sizeof(T)];
};

} // namespace velk
