#include "base/error.h"

#include <array>

namespace velk {
namespace {

struct ClassicError {
    int32_t number;
    const wchar_t* text;
};

// clang-format off
constexpr ClassicError classicErrors[] = {
    {errorInvalidCall,       L"Invalid procedure call or argument"},
    {errorOverflow,          L"Overflow"},
    {errorOutOfMemory,       L"Out of memory"},
    {errorSubscript,         L"Subscript out of range"},
    {errorTypeMismatch,      L"Type mismatch"},
    {errorLoadingDll,        L"Error in loading DLL"},
    {errorCallingConvention, L"Bad DLL calling convention"},
    {errorInternal,          L"Internal error"},
    {errorFileNotFound,      L"File not found"},
    {errorPermissionDenied,  L"Permission denied"},
    {errorObjectNotSet,      L"Object variable or With block variable not set"},
    {errorInvalidProperty,   L"Invalid property value"},
    {errorCannotCreate,      L"ActiveX component can't create object"},
    {errorNoSuchMember,      L"Object doesn't support this property or method"},
    {errorUnsupportedAction, L"Object doesn't support this action"},
    {errorNamedArgument,     L"Named argument not found"},
    {errorArgumentMissing,   L"Argument not optional"},
    {errorArgumentCount,     L"Wrong number of arguments or invalid property assignment"},
    {errorDllEntryPoint,     L"Can't find DLL entry point"},
    {errorElementNotFound,   L"Element not found"},
    {errorKeyNotUnique,      L"Key is not unique in collection"},
};

struct KnownResult {
    HRESULT result;
    int32_t number;
};

constexpr KnownResult knownResults[] = {
    {E_INVALIDARG,             errorInvalidCall},
    {DISP_E_OVERFLOW,          errorOverflow},
    {E_OUTOFMEMORY,            errorOutOfMemory},
    {DISP_E_BADINDEX,          errorSubscript},
    {DISP_E_TYPEMISMATCH,      errorTypeMismatch},
    {STG_E_FILENOTFOUND,       errorFileNotFound},
    {E_ACCESSDENIED,           errorPermissionDenied},
    {E_POINTER,                errorObjectNotSet},
    {REGDB_E_CLASSNOTREG,      errorCannotCreate},
    {CO_E_CLASSSTRING,         errorCannotCreate},
    {DISP_E_UNKNOWNNAME,       errorNoSuchMember},
    {DISP_E_MEMBERNOTFOUND,    errorNoSuchMember},
    {E_NOTIMPL,                errorUnsupportedAction},
    {DISP_E_UNKNOWNINTERFACE,  errorUnsupportedAction},
    {DISP_E_NONAMEDARGS,       errorNamedArgument},
    {DISP_E_PARAMNOTFOUND,     errorNamedArgument},
    {DISP_E_PARAMNOTOPTIONAL,  errorArgumentMissing},
    {DISP_E_BADPARAMCOUNT,     errorArgumentCount},
};
// clang-format on

// The classic run-time errors cross a COM boundary in the control facility.
HRESULT classicResult(int32_t number)
{
    return MAKE_HRESULT(SEVERITY_ERROR, FACILITY_CONTROL, static_cast<WORD>(number));
}

std::wstring classicText(int32_t number)
{
    for (const ClassicError& row : classicErrors)
        if (row.number == number)
            return row.text;
    return L"Application-defined or object-defined error";
}

std::wstring systemText(DWORD code)
{
    std::array<wchar_t, 512> buffer{};
    DWORD length = FormatMessageW(FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS, nullptr, code, 0,
                                  buffer.data(), static_cast<DWORD>(buffer.size()), nullptr);
    while (length > 0 && buffer[length - 1] <= L' ')
        --length;
    return length ? std::wstring(buffer.data(), length) : classicText(0);
}

int32_t numberOf(HRESULT result)
{
    for (const KnownResult& row : knownResults)
        if (row.result == result)
            return row.number;
    return HRESULT_FACILITY(result) == FACILITY_CONTROL ? HRESULT_CODE(result) : result;
}

} // namespace

Error::Error(int32_t number, std::wstring_view detail)
    : m_number(number), m_result(classicResult(number)), m_description(classicText(number)), m_source(ownErrorSource)
{
    if (!detail.empty())
        m_description.append(L": ").append(detail);
}

Error::Error(int32_t number, std::wstring description, std::wstring source, HRESULT result)
    : m_number(number), m_result(result), m_description(std::move(description)), m_source(std::move(source))
{
}

// Not in the header: every place that can fail would have them written out.
Error::Error(const Error&) = default;
Error::Error(Error&&) noexcept = default;
Error& Error::operator=(const Error&) = default;
Error& Error::operator=(Error&&) noexcept = default;
Error::~Error() = default;

Error Error::fromResult(HRESULT result)
{
    const int32_t number = numberOf(result);
    if (number == result)
        return Error(number, systemText(static_cast<DWORD>(result)), std::wstring(ownErrorSource), result);
    return Error(number, classicText(number), std::wstring(ownErrorSource), result);
}

Error Error::fromWin32(DWORD code)
{
    return Error(static_cast<int32_t>(code), systemText(code), std::wstring(ownErrorSource), HRESULT_FROM_WIN32(code));
}

Error Error::ofLibrary(std::wstring_view name) const
{
    Error error = *this;
    error.m_library = name;
    return error;
}

const char* Error::what() const noexcept
{
    return "velk::Error";
}

void throwIfFailed(HRESULT result)
{
    if (FAILED(result))
        throw Error::fromResult(result);
}

void throwLastErrorUnless(bool succeeded)
{
    if (!succeeded)
        throw Error::fromWin32(GetLastError());
}

} // namespace velk
