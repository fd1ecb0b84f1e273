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
    // Connects a second object of a class beside the one that is loaded; it is disconnected with the IDE's end or by
    // unloadOthers.
    void loadAnother(const std::wstring& progId);
    void unloadOthers();
    // Lets go of an add-in without a word to it, as an IDE does that fails in its own end.
    void letGo(const std::wstring& progId);
    bool isLoaded(const std::wstring& progId) const { return m_loaded.contains(progId); }
    std::vector<std::wstring> loaded() const;

private:
    struct Loaded {
        com_ptr<IDispatch> object;
        com_ptr<AddIn> description;
    };
    com_ptr<AddIn> describe(const std::wstring& progId) const;
    Loaded make(const std::wstring& progId) const;
    void connect(const Loaded& addIn, ConnectMode mode);
    void disconnect(Loaded addIn, DisconnectMode mode);
    void forget(Loaded addIn);

    Dte& m_dte;
    std::map<std::wstring, Loaded> m_loaded;
    std::vector<Loaded> m_others;
};

} // namespace velk::devkit
