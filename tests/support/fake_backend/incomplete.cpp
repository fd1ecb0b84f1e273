// A Backend library that lacks all functions but two, one of which takes an argument too many.
#include <cstdint>

extern "C" __declspec(dllexport) int32_t __stdcall RZTerminate()
{
    return 4711;
}

extern "C" __declspec(dllexport) int32_t __stdcall RZLaunchVelkTool(int32_t tool, int32_t)
{
    return tool;
}
