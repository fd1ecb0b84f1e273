#include "devkit/ide/addInManager.h"

#include "devkit/ide/extensibility.h"
#include "devkit/ide/recorder.h"
#include "platform/automation.h"

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

void AddInManager::load(const std::wstring& progId, ConnectMode mode)
{
    if (isLoaded(progId))
        return;
    const com_ptr<IDispatch> object = automation::createObject(progId);
    void* raw = nullptr;
    throwIfFailed(object->QueryInterface(extensibilityIid, &raw));
    com_ptr<Extensibility> extensibility;
    extensibility.attach(static_cast<Extensibility*>(raw));
    const com_ptr<AddIn> description = describe(progId);
    SAFEARRAY* custom = nullptr;
    recorder().write(L"-- OnConnection");
    throwIfFailed(extensibility->OnConnection(&m_dte, static_cast<int>(mode), description.get(), &custom));
    description->connected = true;
    m_loaded[progId] = {com_ptr<IDispatch>(extensibility.get()), description};
    if (mode == ConnectMode::startup)
        extensibility->OnStartupComplete(&custom);
    barsChanged();
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

void AddInManager::unload(const std::wstring& progId, DisconnectMode mode)
{
    const auto place = m_loaded.find(progId);
    if (place == m_loaded.end())
        return;
    Loaded loaded = std::move(place->second);
    m_loaded.erase(place);
    SAFEARRAY* custom = nullptr;
    auto* extensibility = static_cast<Extensibility*>(loaded.object.get());
    recorder().write(L"-- OnDisconnection");
    if (mode == DisconnectMode::hostShutdown)
        extensibility->OnBeginShutdown(&custom);
    extensibility->OnDisconnection(static_cast<int>(mode), &custom);
    loaded.description->connected = false;
    m_dte.windows->closeOwnedBy(loaded.description.get());
    loaded.object.reset();
    // The first call marks the library, the second one unloads it.
    CoFreeUnusedLibrariesEx(0, 0);
    CoFreeUnusedLibrariesEx(0, 0);
    barsChanged();
}

void AddInManager::unloadAll()
{
    while (!m_loaded.empty())
        unload(m_loaded.begin()->first, DisconnectMode::hostShutdown);
}

} // namespace velk::devkit
