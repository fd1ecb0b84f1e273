#pragma once

#include "base/win32.h"

#include <product.h>

// Where the registration stands: for what writes it, and for programs that look whether it is right.
namespace velk {

#define VELK_IDE_ROOT L"Software\\Microsoft\\VisualStudio\\6.0\\AddIns"

// No objects: what is made while the DLL is being loaded has nobody to tell that it could not be made.
inline constexpr wchar_t classesRoot[] = L"Software\\Classes\\";
inline constexpr wchar_t ideRoot[] = VELK_IDE_ROOT;
inline constexpr wchar_t ideRootStop[] = L"Software\\Microsoft";
inline constexpr wchar_t addinKey[] = VELK_IDE_ROOT L"\\" VELK_OWN_NAME("Connect");
inline constexpr wchar_t threadingModel[] = L"Apartment";
inline constexpr DWORD loadAtStartup = 1;

} // namespace velk
