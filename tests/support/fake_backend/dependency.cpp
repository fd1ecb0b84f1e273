// A library that a Backend library needs; the build gives its number.
#include <cstdint>

extern "C" __declspec(dllexport) int32_t dependencyNumber()
{
    return DEPENDENCY_NUMBER;
}
