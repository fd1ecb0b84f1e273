#include "devkit/backend/callWatch.h"

#include "base/boundary.h"
#include "devkit/backend/systemFile.h"

namespace velk::devkit {
namespace {

CallHook hook = nullptr;
int depth = 0; // of calls that are under way

} // namespace

void setCallHook(CallHook wanted) noexcept
{
    hook = wanted;
}

void passMoment(const wchar_t* call, CallMoment moment) noexcept
{
    depth += moment == CallMoment::begins ? 1 : 0;
    swallow(L"call watch", L"the call itself goes on", [] {
        if (environmentText(L"VELK_BACKEND_PUMP") == L"1")
            pumpMessages();
    });
    if (hook)
        hook(call, moment);
    depth -= moment == CallMoment::ends ? 1 : 0;
}

bool isInsideAnotherCall() noexcept
{
    return depth > 1;
}

} // namespace velk::devkit
