#include "devkit/ide/reentry.h"

#include "base/boundary.h"
#include "base/never_destroyed.h"

#include <cwchar>

namespace velk::devkit {
namespace {

constexpr std::wstring_view atTheEnd = L".end";

void __stdcall hearBackend(const wchar_t* call, CallMoment moment) noexcept
{
    if (moment == CallMoment::begins)
        reentry().begin(call);
    else
        reentry().end();
}

std::wstring besideTheProgram(const std::wstring& file)
{
    wchar_t path[MAX_PATH] = L"";
    GetModuleFileNameW(nullptr, path, MAX_PATH);
    const std::wstring program = path;
    return program.substr(0, program.rfind(L'\\') + 1) + file;
}

} // namespace

std::optional<CallPlace> callPlace(const std::wstring& text)
{
    const bool isEnd = text.ends_with(atTheEnd);
    const std::wstring start = isEnd ? text.substr(0, text.size() - atTheEnd.size()) : text;
    const size_t mark = start.rfind(L'#');
    const int occurrence = mark == std::wstring::npos ? 0 : _wtoi(start.c_str() + mark + 1);
    if (mark == 0 || occurrence < 1)
        return std::nullopt;
    return CallPlace{start.substr(0, mark), occurrence, isEnd ? CallMoment::ends : CallMoment::begins};
}

std::wstring placeText(const CallPlace& place)
{
    const std::wstring text = place.call + L"#" + std::to_wstring(place.occurrence);
    return place.moment == CallMoment::ends ? text + std::wstring(atTheEnd) : text;
}

void Reentry::count()
{
    m_counts.clear();
    m_place.reset();
    m_action = nullptr;
    m_isReached = false;
}

void Reentry::plan(const CallPlace& place, std::function<void()> action)
{
    count();
    m_place = place;
    m_action = std::move(action);
}

void Reentry::setObserver(std::function<void(const std::wstring&, CallMoment)> observer)
{
    m_observer = std::move(observer);
}

void Reentry::hookBackend()
{
    static const HMODULE library = LoadLibraryW(besideTheProgram(L"velkvsadd.dll").c_str());
    throwLastErrorUnless(library != nullptr);
    const FARPROC found = GetProcAddress(library, "RZStandinSetCallHook");
    throwLastErrorUnless(found != nullptr);
    reinterpret_cast<int32_t(__stdcall*)(CallHook)>(reinterpret_cast<void*>(found))(hearBackend);
}

void Reentry::begin(const std::wstring& call) noexcept
{
    swallow(L"re-entry", L"the call itself goes on", [&] {
        m_open.push_back({call, ++m_counts[call], CallMoment::begins});
        pass(CallPlace(m_open.back()));
    });
}

void Reentry::end() noexcept
{
    swallow(L"re-entry", L"the caller gets its result", [&] {
        CallPlace here = std::move(m_open.back());
        m_open.pop_back();
        here.moment = CallMoment::ends;
        pass(here);
    });
}

void Reentry::pass(const CallPlace& here)
{
    if (m_observer)
        m_observer(here.call, here.moment);
    if (m_isPumping && !here.call.starts_with(L"RZ"))
        pumpMessages();
    if (m_isReached || m_place != here)
        return;
    m_isReached = true;
    m_action();
}

Reentry& reentry()
{
    static never_destroyed<Reentry> only;
    return only.get();
}

} // namespace velk::devkit
