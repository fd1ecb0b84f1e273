#include "checks.h"

#include "base/module.h"

namespace velk::devkit {
namespace {

std::vector<std::wstring> wrongInProcess(const Life& life)
{
    std::vector<std::wstring> wrong = life.problems();
    const auto left = leftInProcess();
    wrong.insert(wrong.end(), left.begin(), left.end());
    return wrong;
}

} // namespace

std::wstring solutionPath()
{
    wchar_t path[MAX_PATH] = L"";
    GetFullPathNameW(L"orders.sln", MAX_PATH, path, nullptr);
    return path;
}

std::vector<std::wstring> wrongAfter(Life& life, SessionWatch& watch)
{
    std::vector<std::wstring> wrong = wrongInProcess(life);
    const auto more = watch.takeProblems();
    wrong.insert(wrong.end(), more.begin(), more.end());
    if (watch.isOpen())
        wrong.push_back(L"the session is left open");
    if (furniture(life.shell()) != life.furnitureBefore())
        wrong.push_back(L"bars or windows are not as before");
    return wrong;
}

std::vector<std::wstring> wrongAfterFault(Life& life, SessionWatch& watch)
{
    std::vector<std::wstring> wrong = wrongInProcess(life);
    if (isSourceSafeHeld())
        wrong.push_back(L"objects of SourceSafe are held");
    if (watch.isOpen())
        wrong.push_back(L"the session is left open");
    return wrong;
}

std::vector<std::wstring> cleanLife(SessionWatch& watch, Ending ending)
{
    Life life(solutionPath());
    reentry().count();
    life.brief(ending == Ending::letGo);
    std::vector<std::wstring> wrong = wrongAfter(life, watch);
    if (life.facts() != std::vector<std::wstring>{L"nodes: 7", L"Tables: 8"})
        wrong.push_back(L"the start or the folder was not right");
    for (std::wstring& text : wrong)
        text.insert(0, L"in the clean life: ");
    return wrong;
}

long heldObjects()
{
    return module::lockCount();
}

bool isSourceSafeHeld()
{
    const HMODULE library = GetModuleHandleW(L"ssapi.dll");
    const FARPROC found = library ? GetProcAddress(library, "DllCanUnloadNow") : nullptr;
    return found && reinterpret_cast<HRESULT(__stdcall*)()>(reinterpret_cast<void*>(found))() != S_OK;
}

} // namespace velk::devkit
