#pragma once

#include <string>

namespace velk::doctor {

// Where the parts of a registration stand, below HKEY_LOCAL_MACHINE or HKEY_CURRENT_USER.
std::wstring classPlace(const std::wstring& clsid);
std::wstring progIdPlace(const std::wstring& progId);
std::wstring libraryPlace();     // the type library's key with all below it
std::wstring libraryFilePlace(); // the key that names its file
inline constexpr wchar_t interfacesPlace[] = L"Software\\Classes\\Interface";
inline constexpr wchar_t uninstallPlace[] = L"Software\\Microsoft\\Windows\\CurrentVersion\\Uninstall\\";

} // namespace velk::doctor
