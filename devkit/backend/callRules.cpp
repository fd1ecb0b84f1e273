#include "devkit/backend/callRules.h"

namespace velk::devkit {

bool CallRules::mayUseSession()
{
    if (!m_isOpen)
        breach(L"outside of RZInitialize and RZTerminate");
    else if (GetCurrentThreadId() != m_thread)
        breach(L"on another thread than RZInitialize");
    return m_isOpen;
}

void CallRules::sessionBegins()
{
    m_thread = GetCurrentThreadId();
    m_isOpen = true;
}

std::wstring CallRules::input(char* text)
{
    const CountedString string(text);
    if (string.missing())
        breach(L"a string is missing");
    else if (!string.isWellFormed())
        breach(L"the length of a string is not where its NUL is");
    return string.text();
}

bool CallRules::checkPreset(const std::wstring& name, char* text, size_t capacity)
{
    const CountedString string(text);
    if (string.missing())
        breach(name + L" is missing");
    else if (string.length() != capacity)
        breach(name + L" has length " + std::to_wstring(string.length()) + L", not " + std::to_wstring(capacity));
    else if (!string.isBlank())
        breach(name + L" is not preset with NULs");
    // A string that claims more room than it should have may not have it.
    return !string.missing() && string.length() <= capacity;
}

bool CallRules::checkPresets(const void* record, std::span<const TextRow> rows)
{
    if (!record) {
        breach(L"there is no record");
        return false;
    }
    bool complete = true;
    for (const TextRow& row : rows)
        complete = checkPreset(row.name, stringAt(record, row), row.capacity) && complete;
    return complete;
}

bool CallRules::checkLive(int32_t handle)
{
    const bool isLive = m_handles.kindOf(handle) != 0;
    if (!isLive)
        breach(L"the handle is not live");
    return isLive;
}

bool CallRules::checkHandle(int32_t handle, int32_t kind)
{
    const int32_t actual = m_handles.kindOf(handle);
    if (actual == 0)
        breach(L"the handle is not live");
    else if (actual != kind)
        breach(L"the handle is of kind " + std::to_wstring(actual) + L", not " + std::to_wstring(kind));
    return actual == kind;
}

bool CallRules::checkGiven(bool areGiven)
{
    if (!areGiven)
        breach(L"an argument is missing");
    return areGiven;
}

} // namespace velk::devkit
