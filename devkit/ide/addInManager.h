#pragma once

#include "devkit/ide/dte.h"

#include <map>

namespace velk::devkit {

// An add-in as its registration describes it.
struct RegisteredAddIn {
    std::wstring progId;
    std::wstring friendlyName;
    uint32_t loadBehavior = 0;
};

// clang-format off
enum class ConnectMode    : int { afterStartup = 0, startup = 1 };
enum class DisconnectMode : int { hostShutdown = 0, userClosed = 1 };
// clang-format on

// Loads and unloads add-ins by their registration.
class AddInManager {
public:
    explicit AddInManager(Dte& dte) : m_dte(dte) {}

    // What the registry lists, the user's own entries before the machine's.
    std::vector<RegisteredAddIn> registered() const;
    // Makes the add-in and connects it; throws with a description fit for the user. Nothing happens when it is loaded.
    void load(const std::wstring& progId, ConnectMode mode);
    // Every add-in that asks to be loaded with the IDE; what fails is told to the caller, one line each.
    std::vector<std::wstring> loadAtStart();
    // Disconnects, closes what windows the add-in left, and lets COM unload its library.
    void unload(const std::wstring& progId, DisconnectMode mode);
    void unloadAll();
    bool isLoaded(const std::wstring& progId) const { return m_loaded.contains(progId); }

private:
    struct Loaded {
        com_ptr<IDispatch> object;
        com_ptr<AddIn> description;
    };
    com_ptr<AddIn> describe(const std::wstring& progId) const;

    Dte& m_dte;
    std::map<std::wstring, Loaded> m_loaded;
};

} // namespace velk::devkit
