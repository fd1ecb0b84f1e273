#pragma once

// As much of the system's header as the units need that are fuzzed where there is no Windows.
#include <cstdint>
#include <cwchar>
#include <strings.h>

using BOOL = int;
using WORD = uint16_t;
using DWORD = uint32_t;
using UINT = uint32_t;
using LONG = int32_t;
using HRESULT = int32_t;
using OLECHAR = wchar_t;

// clang-format off
#define FAILED(result) ((result) < 0)
#define MAKE_HRESULT(severity, facility, code) static_cast<HRESULT>((uint32_t{severity} << 31) | (uint32_t{facility} << 16) | (code))
#define HRESULT_CODE(result) ((result) & 0xFFFF)
#define HRESULT_FACILITY(result) (((result) >> 16) & 0x1FFF)
#define HRESULT_FROM_WIN32(code) static_cast<HRESULT>((code) | 0x80070000)
#define SEVERITY_ERROR 1U
#define FACILITY_CONTROL 10U

constexpr HRESULT resultOf(uint32_t number) { return static_cast<HRESULT>(number); }
constexpr HRESULT E_NOTIMPL = resultOf(0x80004001), E_POINTER = resultOf(0x80004003);
constexpr HRESULT E_INVALIDARG = resultOf(0x80070057), E_OUTOFMEMORY = resultOf(0x8007000E);
constexpr HRESULT E_ACCESSDENIED = resultOf(0x80070005), STG_E_FILENOTFOUND = resultOf(0x80030002);
constexpr HRESULT REGDB_E_CLASSNOTREG = resultOf(0x80040154), CO_E_CLASSSTRING = resultOf(0x800401F3);
constexpr HRESULT DISP_E_UNKNOWNINTERFACE = resultOf(0x80020001), DISP_E_MEMBERNOTFOUND = resultOf(0x80020003);
constexpr HRESULT DISP_E_PARAMNOTFOUND = resultOf(0x80020004), DISP_E_TYPEMISMATCH = resultOf(0x80020005);
constexpr HRESULT DISP_E_UNKNOWNNAME = resultOf(0x80020006), DISP_E_NONAMEDARGS = resultOf(0x80020007);
constexpr HRESULT DISP_E_OVERFLOW = resultOf(0x8002000A), DISP_E_BADINDEX = resultOf(0x8002000B);
constexpr HRESULT DISP_E_BADPARAMCOUNT = resultOf(0x8002000E), DISP_E_PARAMNOTOPTIONAL = resultOf(0x8002000F);

enum : WORD {
    VK_CANCEL = 3, VK_BACK = 8, VK_TAB = 9, VK_CLEAR = 12, VK_RETURN = 13, VK_CAPITAL = 20, VK_ESCAPE = 27, VK_PRIOR = 33,
    VK_NEXT, VK_END, VK_HOME, VK_LEFT, VK_UP, VK_RIGHT, VK_DOWN, VK_SNAPSHOT = 44, VK_INSERT, VK_DELETE, VK_HELP,
    VK_F1 = 112, VK_F2, VK_F3, VK_F4, VK_F5, VK_F6, VK_F7, VK_F8, VK_F9, VK_F10, VK_F11, VK_F12, VK_F13, VK_F14, VK_F15,
    VK_F16, VK_NUMLOCK = 144, VK_SCROLL,
};
// clang-format on

enum { FORMAT_MESSAGE_FROM_SYSTEM = 0x1000, FORMAT_MESSAGE_IGNORE_INSERTS = 0x200 };
enum : uint32_t {
    MB_OK = 0,
    MB_YESNOCANCEL = 3,
    MB_YESNO = 4,
    MB_TYPEMASK = 15,
    MB_ICONHAND = 16,
    MB_ICONQUESTION = 32,
    MB_ICONEXCLAMATION = 48,
    MB_ICONASTERISK = 64,
    MB_ICONMASK = 240,
};
enum { CP_ACP = 0, LOCALE_USER_DEFAULT = 0x400 };

inline DWORD GetLastError()
{
    return 0;
}
inline DWORD FormatMessageW(DWORD, const void*, DWORD, DWORD, wchar_t*, DWORD, void*)
{
    return 0;
}
// A code page like the East Asian ones: a byte from 0x81 on leads a second one, which may be any, and only a pair whose
// second byte is missing is lost.
constexpr bool isLeadByte(unsigned char byte)
{
    return byte > 0x80;
}
inline int MultiByteToWideChar(UINT, DWORD, const char* bytes, int length, wchar_t* text, int room)
{
    int made = 0;
    for (int place = 0; place < length && made < room; ++place) {
        const auto first = static_cast<unsigned char>(bytes[place]);
        if (!isLeadByte(first))
            text[made++] = first;
        else if (++place < length)
            text[made++] = static_cast<wchar_t>(first << 8 | static_cast<unsigned char>(bytes[place]));
        else
            text[made++] = L'?';
    }
    return made;
}
inline int WideCharToMultiByte(UINT, DWORD, const wchar_t* text, int length, char* bytes, int room, const char*, BOOL*)
{
    int made = 0;
    const auto put = [&](int byte) {
        if (made < room)
            bytes[made] = static_cast<char>(byte);
        ++made;
    };
    for (int place = 0; place < length; ++place) {
        if (text[place] > 0xFF)
            put(text[place] >> 8);
        put(text[place] & 0xFF);
    }
    return room == 0 || made <= room ? made : 0;
}
inline HRESULT VarI4FromStr(OLECHAR*, DWORD, DWORD, LONG*)
{
    return DISP_E_TYPEMISMATCH;
}
inline int _wcsicmp(const wchar_t* one, const wchar_t* other)
{
    return wcscasecmp(one, other);
}
