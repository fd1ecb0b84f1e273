#pragma once

#include "base/win32.h"

namespace velk::devkit {

// The interface by which an environment talks to its add-ins. Not in an anonymous namespace: the compiler would
// conclude that nobody implements it, and optimise the calls away.
struct Extensibility : IDispatch {
    virtual HRESULT __stdcall OnConnection(IDispatch* application, int mode, IDispatch* addIn, SAFEARRAY** custom) = 0;
    virtual HRESULT __stdcall OnDisconnection(int mode, SAFEARRAY** custom) = 0;
    virtual HRESULT __stdcall OnAddInsUpdate(SAFEARRAY** custom) = 0;
    virtual HRESULT __stdcall OnStartupComplete(SAFEARRAY** custom) = 0;
    virtual HRESULT __stdcall OnBeginShutdown(SAFEARRAY** custom) = 0;
};
inline constexpr IID extensibilityIid{0xB65AD801, 0xABAF, 0x11D0, {0xBB, 0x8B, 0x00, 0xA0, 0xC9, 0x0F, 0x27, 0x44}};

} // namespace velk::devkit
