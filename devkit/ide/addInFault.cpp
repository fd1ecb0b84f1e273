#include "devkit/ide/addInFault.h"

#include "devkit/ide/textFile.h"

#include <cwchar>

namespace velk::devkit {
namespace {

constexpr wchar_t addIn[] = L"velkviadd.dll";

UINT exitCodeOfFaults = 0;

bool isFault(DWORD code)
{
    return code == EXCEPTION_ACCESS_VIOLATION || code == EXCEPTION_ILLEGAL_INSTRUCTION ||
           code == EXCEPTION_STACK_OVERFLOW || code == EXCEPTION_INT_DIVIDE_BY_ZERO;
}

LONG CALLBACK end(EXCEPTION_POINTERS* raised) noexcept
{
    if (const std::wstring fault = addInFault(*raised->ExceptionRecord); !fault.empty()) {
        writeOutput(L"FAILED: " + fault);
        TerminateProcess(GetCurrentProcess(), exitCodeOfFaults);
    }
    return EXCEPTION_CONTINUE_SEARCH;
}

} // namespace

std::wstring addInFault(const EXCEPTION_RECORD& raised)
{
    if (!isFault(raised.ExceptionCode))
        return {};
    wchar_t text[MAX_PATH] = L"";
    HMODULE module = nullptr;
    const auto address = reinterpret_cast<UINT_PTR>(raised.ExceptionAddress);
    if (!GetModuleHandleExW(GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT,
                            reinterpret_cast<LPCWSTR>(address), &module)) {
        wsprintfW(text, L"fault %08lX in code of nobody, at %08lX", raised.ExceptionCode, address);
        return text;
    }
    wchar_t path[MAX_PATH] = L"";
    GetModuleFileNameW(module, path, MAX_PATH);
    const wchar_t* const backslash = std::wcsrchr(path, L'\\');
    if (_wcsicmp(backslash ? backslash + 1 : path, addIn) != 0)
        return {};
    wsprintfW(text, L"fault %08lX in %s+%lX", raised.ExceptionCode, addIn,
              address - reinterpret_cast<UINT_PTR>(module));
    return text;
}

void endOnAddInFault(UINT exitCode) noexcept
{
    exitCodeOfFaults = exitCode;
    AddVectoredExceptionHandler(1, end);
}

} // namespace velk::devkit
