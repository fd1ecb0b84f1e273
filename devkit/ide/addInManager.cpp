#include "devkit/ide/addInManager.h"

#include "com/automation.h"
#include "devkit/ide/extensibility.h"
#include "devkit/ide/recorder.h"

#include <algorithm>

namespace velk::devkit {
namespace {

constexpr wchar_t addInsKey[] = L"Software\\Microsoft\\VisualStudio\\6.0\\AddIns";
constexpr uint32_t loadWithEnvironment = 1;

std::wstring textValue(HKEY key, const wchar_t* name)
{
    wchar_t text[512] = L"";
    DWORD size = sizeof text - sizeof(wchar_t);
    RegQueryValueExW(key, name, nullptr, nullptr, reinterpret_cast<BYTE*>(text), &size);
    return text;
}

uint32_t numberValue(HKEY key, const wchar_t* name)
{
    DWORD number = 0;
    DWORD size = sizeof number;
    RegQueryValueExW(key, name, nullptr, nullptr, reinterpret_cast<BYTE*>(&number), &size);
    return number;
}

void collect(HKEY root, std::vector<RegisteredAddIn>& found)
{
    unique_key list;
    if (RegOpenKeyExW(root, addInsKey, 0, KEY_READ, list.put()) != ERROR_SUCCESS)
        return;
    wchar_t name[256];
    for (DWORD index = 0; RegEnumKeyW(list.get(), index, name, 256) == ERROR_SUCCESS; ++index) {
        unique_key key;
        const bool known = std::any_of(found.begin(), found.end(), [&](const auto& one) { return one.progId == name; });
        if (!known && RegOpenKeyExW(list.get(), name, 0, KEY_READ, key.put()) == ERROR_SUCCESS)
            found.push_back({name, textValue(key.get(), L"FriendlyName"), numberValue(key.get(), L"LoadBehavior")});
    }
}

} // namespace

std::vector<RegisteredAddIn> AddInManager::registered() const
{
    std::vector<RegisteredAddIn> found;
    collect(HKEY_CURRENT_USER, found);
    collect(HKEY_LOCAL_MACHINE, found);
    return found;
}

com_ptr<AddIn> AddInManager::describe(const std::wstring& progId) const
{
    for (const auto& known : m_dte.addIns->all)
        if (known->progId == progId)
            return known;
    const auto made = makeObject<AddIn>(progId);
    for (const RegisteredAddIn& row : registered())
        if (row.progId == progId)
            made->friendlyName = row.friendlyName;
    m_dte.addIns->all.push_back(made);
    return made;
}

AddInManager::Loaded AddInManager::make(const std::wstring& progId) const
{
    const com_ptr<IDispatch> object = automation::createObject(progId);
    void* raw = nullptr;
    throwIfFailed(object->QueryInterface(extensibilityIid, &raw));
    com_ptr<Extensibility> extensibility;
    extensibility.attach(static_cast<Extensibility*>(raw));
    return {com_ptr<IDispatch>(extensibility.get()), describe(progId)};
}

void AddInManager::connect(const Loaded& addIn, ConnectMode mode)
{
    SAFEARRAY* custom = nullptr;
    recorder().write(L"-- OnConnection");
    throwIfFailed(static_cast<Extensibility*>(addIn.object.get())
                      ->OnConnection(&m_dte, static_cast<int>(mode), addIn.description.get(), &custom));
}

// It counts as loaded from the beginning of its connection on: an IDE that is closed meanwhile disconnects it.
void AddInManager::load(const std::wstring& progId, ConnectMode mode)
{
    if (isLoaded(progId))
        return;
    const Loaded addIn = make(progId);
    m_loaded[progId] = addIn;
    try {
        connect(addIn, mode);
    } catch (const Error&) {
        m_loaded.erase(progId);
        throw;
    }
    addIn.description->connected = isLoaded(progId);
    SAFEARRAY* custom = nullptr;
    if (mode == ConnectMode::startup && isLoaded(progId))
        static_cast<Extensibility*>(addIn.object.get())->OnStartupComplete(&custom);
    barsChanged();
}

void AddInManager::loadAnother(const std::wstring& progId)
{
    m_others.push_back(make(progId));
    connect(Loaded(m_others.back()), ConnectMode::afterStartup);
}

std::vector<std::wstring> AddInManager::loadAtStart()
{
    std::vector<std::wstring> failures;
    for (const RegisteredAddIn& row : registered()) {
        if ((row.loadBehavior & loadWithEnvironment) == 0)
            continue;
        try {
            load(row.progId, ConnectMode::startup);
        } catch (const Error& error) {
            failures.push_back(L"The add-in " + row.progId + L" could not be loaded: " + error.description());
        }
    }
    return failures;
}

void AddInManager::disconnect(Loaded addIn, DisconnectMode mode)
{
    SAFEARRAY* custom = nullptr;
    auto* extensibility = static_cast<Extensibility*>(addIn.object.get());
    recorder().write(L"-- OnDisconnection");
    if (mode == DisconnectMode::hostShutdown)
        extensibility->OnBeginShutdown(&custom);
    extensibility->OnDisconnection(static_cast<int>(mode), &custom);
    forget(std::move(addIn));
}

void AddInManager::forget(Loaded addIn)
{
    addIn.description->connected = false;
    m_dte.windows->closeOwnedBy(addIn.description.get());
    addIn.object.reset();
    // The first call marks the library, the second one unloads it.
    CoFreeUnusedLibrariesEx(0, 0);
    CoFreeUnusedLibrariesEx(0, 0);
    barsChanged();
}

void AddInManager::unload(const std::wstring& progId, DisconnectMode mode)
{
    if (auto taken = m_loaded.extract(progId))
        disconnect(std::move(taken.mapped()), mode);
}

void AddInManager::letGo(const std::wstring& progId)
{
    if (auto taken = m_loaded.extract(progId))
        forget(std::move(taken.mapped()));
}

void AddInManager::unloadOthers()
{
    for (Loaded& addIn : std::exchange(m_others, {}))
        disconnect(std::move(addIn), DisconnectMode::userClosed);
}

void AddInManager::unloadAll()
{
    unloadOthers();
    while (!m_loaded.empty())
        unload(m_loaded.begin()->first, DisconnectMode::hostShutdown);
}

std::vector<std::wstring> AddInManager::loaded() const
{
    std::vector<std::wstring> progIds;
    for (const auto& [progId, addIn] : m_loaded)
        progIds.push_back(progId);
    return progIds;
}

} // namespace velk::devkit
