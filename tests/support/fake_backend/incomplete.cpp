// A Backend library that lacks all functions but one.
#include <cstdint>

extern "C" __declspec(dllexport) int32_t __stdcall RZTerminate()
{
    return 4711;
}
