// How the standard library says that it was asked for what cannot be: as failures of ours. Its own kinds hold their
// words in strings of an older time, which bring a tenth of the DLL with them. At the boundaries all are the same.
// The library's own come back, and the linker finds these twice, where a floor throws one of its kinds itself.
// Tested in scripts/check.

#include "base/error.h"

#include <new>

namespace std {

void __throw_bad_alloc()
{
    throw std::bad_alloc();
}

void __throw_bad_array_new_length()
{
    throw std::bad_alloc();
}

void __throw_bad_function_call()
{
    throw velk::Error::fromResult(E_UNEXPECTED);
}

void __throw_length_error(const char*)
{
    throw velk::Error::fromResult(E_UNEXPECTED);
}

void __throw_logic_error(const char*)
{
    throw velk::Error::fromResult(E_UNEXPECTED);
}

void __throw_out_of_range_fmt(const char*, ...)
{
    throw velk::Error::fromResult(E_UNEXPECTED);
}

} // namespace std
