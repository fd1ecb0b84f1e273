#pragma once

#include "base/win32.h"

#include <cstdint>
#include <exception>
#include <product.h>
#include <string>
#include <string_view>

namespace velk {

// The numbers of the classic run-time errors that the product raises or receives.
// clang-format off
enum ErrorNumber : int32_t {
    errorInvalidCall         = 5,
    errorOverflow            = 6,
    errorOutOfMemory         = 7,
    errorSubscript           = 9,
    errorTypeMismatch        = 13,
    errorLoadingDll          = 48,
    errorCallingConvention   = 49,
    errorInternal            = 51,
    errorFileNotFound        = 53,
    errorPermissionDenied    = 70,
    errorObjectNotSet        = 91,
    errorInvalidProperty     = 380,
    errorCannotCreate        = 429,
    errorNoSuchMember        = 438,
    errorUnsupportedAction   = 445,
    errorNamedArgument       = 448,
    errorArgumentMissing     = 449,
    errorArgumentCount       = 450,
    errorDllEntryPoint       = 453,
    errorElementNotFound     = 35601,
    errorKeyNotUnique        = 35602,
};
// clang-format on

// A failure as the product reports it: number, description and source. Carries the HRESULT by which the failure
// crosses a COM boundary.
class Error : public std::exception {
public:
    // A classic run-time error; the description is the classic text of the number, followed by ": detail" if any.
    explicit Error(int32_t number, std::wstring_view detail = {});
    Error(int32_t number, std::wstring description, std::wstring source, HRESULT result);

    Error(const Error&);
    Error(Error&&) noexcept;
    Error& operator=(const Error&);
    Error& operator=(Error&&) noexcept;
    ~Error() override;

    // An HRESULT without further word: well-known ones become the classic errors, others keep the HRESULT as number.
    static Error fromResult(HRESULT result);
    // The last Win32 error of the calling thread, with the system's text.
    static Error fromWin32(DWORD code);

    int32_t number() const noexcept { return m_number; }
    const std::wstring& description() const noexcept { return m_description; }
    const std::wstring& source() const noexcept { return m_source; }
    HRESULT result() const noexcept { return m_result; }

    // The same failure with the name of the library that could not be used; the name is not copied. Without one the
    // trouble lies elsewhere, whatever the number. The name does not cross a COM boundary.
    Error ofLibrary(std::wstring_view name) const;
    std::wstring_view library() const noexcept { return m_library; }

    const char* what() const noexcept override;

private:
    int32_t m_number;
    HRESULT m_result;
    std::wstring m_description;
    std::wstring m_source;
    std::wstring_view m_library;
};

// The source of errors that arise in the add-in itself: its application title.
inline constexpr std::wstring_view ownErrorSource = productName;

// Throws Error for a failure code; a thread's pending rich error is not consulted.
void throwIfFailed(HRESULT result);
// Throws the thread's last Win32 error when the condition is false.
void throwLastErrorUnless(bool succeeded);

} // namespace velk
