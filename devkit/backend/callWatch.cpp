#include "devkit/backend/callWatch.h"

#include "devkit/backend/systemFile.h"
#include "platform/boundary.h"

namespace velk::devkit {
namespace {

CallHook hook = nullptr;

} // namespace

void setCallHook(CallHook wanted) noexcept
{
    hook = wanted;
}

void passMoment(const wchar_t* call, CallMoment moment) noexcept
{
    swallow(L"call watch", L"the call itself goes on", [] {
        if (environmentText(L"VELK_BACKEND_PUMP") == L"1")
            pumpMessages();
    });
    if (hook)
        hook(call, moment);
}

} // namespace velk::devkit
