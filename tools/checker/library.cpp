#include "checker/library.h"

#include "checker/checkedCall.h"
#include "checker/settings.h"
#include "checker/texts.h"

#include <iterator>
#include <vector>

namespace velk::check {
namespace {

std::string registers(const CallState& state)
{
    const auto one = [](const char* name, uint32_t given, uint32_t seen) {
        return given == seen ? std::string() : std::string(" ") + name + " " + hexadecimal(seen);
    };
    return one("ebx", CallState::givenEbx, state.ebx) + one("esi", CallState::givenEsi, state.esi) +
           one("edi", CallState::givenEdi, state.edi) +
           (state.ebpOff == 0 ? "" : " ebp off by " + std::to_string(state.ebpOff));
}

std::wstring systemFolder()
{
    wchar_t folder[MAX_PATH]{};
    GetSystemDirectoryW(folder, MAX_PATH);
    return folder;
}

std::string systemText(DWORD code)
{
    wchar_t text[512]{};
    DWORD length = FormatMessageW(FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS, nullptr, code, 0, text,
                                  static_cast<DWORD>(std::size(text)), nullptr);
    while (length > 0 && text[length - 1] <= L' ')
        --length;
    return toUtf8({text, length}) + " (error " + std::to_string(code) + ")";
}

} // namespace

bool Library::load(std::string& reason)
{
    const Settings before = Settings::now();
    SetCurrentDirectoryW(systemFolder().c_str());
    m_probe.pad().enterCall("LoadLibrary", toUtf8(m_probe.pad()->library), true);
    m_probe.lastCall = {"LoadLibrary", shown(toAnsi(std::wstring(m_probe.pad()->library)))};
    m_module.reset(LoadLibraryExW(m_probe.pad()->library, nullptr, LOAD_WITH_ALTERED_SEARCH_PATH));
    const DWORD code = GetLastError();
    m_probe.pad().leaveCall();
    before.restore();
    if (!m_module)
        reason = systemText(code);
    return isLoaded();
}

bool Library::unload()
{
    m_probe.pad().enterCall("FreeLibrary", "", true);
    m_probe.lastCall = {"FreeLibrary", ""};
    const BOOL isFreed = FreeLibrary(m_module.release());
    m_probe.pad().leaveCall();
    return isFreed != FALSE;
}

void* Library::address(Fn function) const noexcept
{
    return m_module ? reinterpret_cast<void*>(GetProcAddress(m_module.get(), rowOf(function).name)) : nullptr;
}

int32_t Library::call(Fn function, std::initializer_list<uint32_t> arguments, const std::string& shownArguments)
{
    const FunctionRow& row = rowOf(function);
    void* const entry = address(function);
    if (!entry)
        throw NotChecked{std::string(row.name) + " is missing"};
    if (m_depth == 0 && beforeCall)
        beforeCall();
    const CallText outer = m_probe.lastCall;
    const Settings before = Settings::now();
    ++m_depth;
    m_probe.lastCall = {row.name, shownArguments};
    const bool isActing = !mustBeQuick(function);
    m_actings += isActing ? 1 : 0;
    m_probe.pad().enterCall(row.name, shownArguments, isActing);
    const int64_t began = CallTimes::now();
    const CallState state = checkedCall(entry, std::vector<uint32_t>(arguments));
    const int64_t ended = CallTimes::now();
    --m_depth;
    m_probe.lastCall = {row.name, shownArguments};
    if (m_depth == 0)
        m_probe.pad().leaveCall();
    else
        m_probe.pad().enterCall(outer.name.c_str(), outer.arguments, true);
    times.add(function, shownArguments, ended - began);
    checkState(state, arguments.size());
    checkSettings(before);
    return state.result;
}

void Library::checkState(const CallState& state, size_t arguments)
{
    const std::string count = std::to_string(arguments * sizeof(uint32_t));
    if (state.stackOff != 0)
        m_probe.found(Rule::F5, count + " bytes of arguments are taken from the stack",
                      std::to_string(static_cast<int>(arguments * sizeof(uint32_t)) + state.stackOff) + " bytes are");
    if (!state.keepsRegisters())
        m_probe.found(Rule::F6, "ebx, esi, edi and ebp as they were", "changed:" + registers(state));
    if (state.isDirectionDown())
        m_probe.found(Rule::F6, "the direction flag clear", "it is set");
    if (!state.keepsFloatStack())
        m_probe.found(Rule::F6, "an empty floating-point stack", "numbers are left on it");
    if (!state.keepsControlWords())
        m_probe.found(Rule::F6, "the control words of the floating-point units as they were",
                      hexadecimal(state.floatControl) + " and " + hexadecimal(state.vectorControl) + ", before " +
                          hexadecimal(state.floatControlBefore) + " and " + hexadecimal(state.vectorControlBefore));
}

void Library::checkSettings(const Settings& before)
{
    const Settings after = Settings::now();
    if (after == before)
        return;
    m_probe.found(Rule::F10, "the settings of process and thread as they were", before.differences(after));
    before.restore();
}

} // namespace velk::check
