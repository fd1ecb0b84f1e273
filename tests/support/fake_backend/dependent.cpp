// A Backend library that does not load without another library of its maker's.
#include <cstdint>

extern "C" __declspec(dllimport) int32_t dependencyNumber();

extern "C" __declspec(dllexport) int32_t __stdcall RZTerminate()
{
    return dependencyNumber();
}
