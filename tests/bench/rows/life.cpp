// A life of the built add-in in the stand-in IDE: connected, started, stopped, disconnected, unloaded.
#include "measure.h"
#include "quickTool.h"
#include "shipped.h"

#include "base/boundary.h"
#include "base/module.h"
#include "base/text.h"
#include "devkit/ide/recorder.h"
#include "devkit/ide/shell.h"

#include <numeric>

namespace velk::bench {
namespace {

constexpr wchar_t ourAddIn[] = L"velkviadd.Connect";
constexpr wchar_t emptyAddIn[] = L"velkbench.Empty";
constexpr wchar_t emptyClass[] = L"{6C5B31A4-8C1D-4E0B-9C0E-2F6F1A3D7E55}";

constexpr wchar_t classes[] = L"Software\\Classes\\";

void setValue(const std::wstring& key, const std::wstring& value, const wchar_t* name = nullptr)
{
    unique_key made;
    RegCreateKeyW(HKEY_LOCAL_MACHINE, (classes + key).c_str(), made.put());
    RegSetValueExW(made.get(), name, 0, REG_SZ, reinterpret_cast<const BYTE*>(value.c_str()),
                   static_cast<DWORD>((value.size() + 1) * sizeof(wchar_t)));
}

std::wstring fullPath(const std::wstring& path)
{
    wchar_t full[MAX_PATH] = L"";
    GetFullPathNameW(path.c_str(), MAX_PATH, full, nullptr);
    return full;
}

void callEntry(const std::wstring& path, const char* name)
{
    const unique_module dll(LoadLibraryW(path.c_str()));
    throwLastErrorUnless(static_cast<bool>(dll));
    const auto entry = reinterpret_cast<HRESULT(WINAPI*)()>(reinterpret_cast<void*>(GetProcAddress(dll.get(), name)));
    throwLastErrorUnless(entry != nullptr);
    throwIfFailed(entry());
}

// Both add-ins can be made by the IDE while it lives.
class Registered {
public:
    Registered() : m_path(fullPath(toWide(shippedDll())))
    {
        callEntry(m_path, "DllRegisterServer");
        const std::wstring server = std::wstring(L"CLSID\\") + emptyClass + L"\\InprocServer32";
        setValue(std::wstring(emptyAddIn) + L"\\CLSID", emptyClass);
        setValue(server, fullPath(L"emptyaddin.dll"));
        setValue(server, L"Apartment", L"ThreadingModel");
    }
    Registered(const Registered&) = delete;
    Registered& operator=(const Registered&) = delete;
    ~Registered()
    {
        swallow(L"bench", L"the next run registers anew", [this] { callEntry(m_path, "DllUnregisterServer"); });
        const std::wstring prefix = classes;
        for (const std::wstring& key :
             {std::wstring(L"CLSID\\") + emptyClass + L"\\InprocServer32", std::wstring(L"CLSID\\") + emptyClass,
              std::wstring(emptyAddIn) + L"\\CLSID", std::wstring(emptyAddIn)})
            RegDeleteKeyW(HKEY_LOCAL_MACHINE, (prefix + key).c_str());
    }

private:
    const std::wstring m_path;
};

// Calls of a phase that leave the add-in.
struct Calls {
    size_t ide = 0;
    int tool = 0;
};

class Ide {
public:
    Ide()
    {
        m_tool.backend.numbersAsTexts = true;
        m_shell.dte().solution->open(fullPath(L"orders.sln"));
    }

    Calls phase(const std::function<void()>& step)
    {
        devkit::recorder().clear();
        const int before = toolCalls();
        step();
        workOffMessages();
        return {devkit::recorder().lines().size(), toolCalls() - before};
    }
    void connect(const wchar_t* addIn) { m_shell.addIns().load(addIn, devkit::ConnectMode::startup); }
    void start()
    {
        const devkit::CommandBar* const bar = m_shell.dte().bars->find(L"Add-Ins");
        const com_ptr<devkit::CommandBarControl> entry(bar ? bar->findCaption(L"#200") : nullptr);
        if (!entry)
            throw Error(errorElementNotFound);
        entry->execute();
    }
    void disconnect(const wchar_t* addIn) { m_shell.addIns().unload(addIn, devkit::DisconnectMode::userClosed); }

    std::string life()
    {
        const Calls connected = phase([this] { connect(ourAddIn); });
        const Calls started = phase([this] { start(); });
        const Calls disconnected = phase([this] { disconnect(ourAddIn); });
        const auto text = [](const char* name, const Calls& calls) {
            return name + std::to_string(calls.tool) + " + " + std::to_string(calls.ide);
        };
        return "calls of tool + IDE: " + text("connect ", connected) + text(", start ", started) +
               text(", end ", disconnected);
    }
    void emptyLife()
    {
        phase([this] { connect(emptyAddIn); });
        phase([this] { disconnect(emptyAddIn); });
    }

private:
    static void workOffMessages()
    {
        MSG message{};
        while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
            TranslateMessage(&message);
            DispatchMessageW(&message);
        }
    }
    int toolCalls() const
    {
        return std::accumulate(m_tool.backend.counts.begin(), m_tool.backend.counts.end(), 0,
                               [](int sum, const auto& one) { return sum + one.second; });
    }

    QuickTool m_tool{1};
    devkit::Shell m_shell{true};
};

Outcome lives(int32_t)
{
    const Registered registered;
    Ide ide;
    std::string calls = ide.life();
    return {runPairs({{}, [&] { ide.life(); }}, {{}, [&] { ide.emptyLife(); }}), calls};
}

// clang-format off
constexpr Row rows[] = {
    {"life", "ms", 6, false, "connect, start, stop, disconnect", "an add-in of one empty class in the same IDE", lives},
};
// clang-format on

} // namespace

std::span<const Row> lifeRows()
{
    if (shippedDll().empty())
        return {};
    return rows;
}

} // namespace velk::bench
