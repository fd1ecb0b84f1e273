#include "addin/traceSettings.h"

#include "addin/traceTarget.h"
#include "base/boundary.h"
#include "base/module.h"
#include "base/text.h"
#include "base/trace.h"
#include "base/unique_any.h"
#include "com/host_report.h"

#include <array>
#include <product.h>

namespace velk {
namespace {

constexpr size_t settingRoom = 1024; // characters

std::wstring setting()
{
    std::array<wchar_t, settingRoom> text{};
    if (GetEnvironmentVariableW(traceVariable, text.data(), static_cast<DWORD>(text.size())) != 0)
        return text.data();
    unique_key key;
    auto size = static_cast<DWORD>(sizeof(wchar_t) * (text.size() - 1));
    if (RegOpenKeyExW(HKEY_CURRENT_USER, traceKey, 0, KEY_READ, key.put()) == ERROR_SUCCESS)
        RegQueryValueExW(key.get(), traceValue, nullptr, nullptr, reinterpret_cast<BYTE*>(text.data()), &size);
    return text.data();
}

std::wstring hostName()
{
    std::array<wchar_t, MAX_PATH> path{};
    GetModuleFileNameW(nullptr, path.data(), static_cast<DWORD>(path.size() - 1));
    return path.data();
}

std::wstring lineOf(const Failure& failure)
{
    wchar_t result[16];
    wsprintfW(result, L"0x%08lX", static_cast<unsigned long>(failure.error.result()));
    std::wstring line = std::wstring(failure.where) + L": " + numberText(failure.error.number()) + L" (" + result +
                        L") " + failure.error.description();
    return failure.why.empty() ? line : line + L"; " + std::wstring(failure.why);
}

} // namespace

void beginTrace() noexcept
{
    swallow(L"beginTrace", L"the add-in works without its log", [] {
        const TraceTarget target = traceTarget(setting());
        if (target.path.empty())
            return;
        trace::open(target.path, target.isFiner ? trace::Level::calls : trace::Level::failures,
                    std::wstring(productName) + L" " + productVersion + L" in " + hostName() + L", code page " +
                        numberText(static_cast<int32_t>(GetACP())));
        beginHostReports();
        setFailureObserver([](const Failure& failure) { trace::write(trace::Level::failures, lineOf(failure)); });
    });
}

void endTrace() noexcept
{
    if (!trace::isOn(trace::Level::failures))
        return;
    setFailureObserver(nullptr);
    trace::close();
}

} // namespace velk
