#include "addin/startFailure.h"

#include "backend/library.h"

namespace velk {
namespace {

struct WayOut {
    int32_t number;
    const wchar_t* advice;
};

// clang-format off
constexpr WayOut waysOut[] = {
    {errorFileNotFound,  L"Install or repair Rozel so that this library stands beside the add-in, then click the entry again."},
    {errorLoadingDll,    L"The library is damaged or not a 32-bit one. Repair the Rozel installation, then click the entry again."},
    {errorDllEntryPoint, L"The library belongs to another release. Install the Rozel release of this add-in, then click the entry again."},
};
// clang-format on

} // namespace

std::wstring startFailureText(const Error& error)
{
    if (!isBackendLibraryFailure(error))
        return error.description();
    for (const WayOut& row : waysOut)
        if (row.number == error.number())
            return error.description() + L"\r\n\r\n" + row.advice;
    return error.description();
}

} // namespace velk
