// Tested in tests/tools/doctor/checksTest.cpp.
#include "backendFunctions.h"

#include "base/text.h"

namespace velk::doctor {
namespace {

constexpr const char* names[] = {
#define BACKEND_FUNCTION(name, ...) #name,
#include "backend/functions.inc"
#undef BACKEND_FUNCTION
};

} // namespace

std::vector<std::wstring> missingFunctions(const check::PeFile& library)
{
    std::vector<std::wstring> missing;
    for (const char* name : names)
        if (!library.find(name))
            missing.push_back(toWide(name));
    return missing;
}

} // namespace velk::doctor
