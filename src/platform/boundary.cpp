#include "platform/boundary.h"

#include "platform/bstr.h"
#include "platform/com_ptr.h"
#include "platform/never_destroyed.h"

namespace velk {
namespace {

FailureObserver& observerSlot() noexcept
{
    static never_destroyed<FailureObserver> observer;
    return observer.get();
}

Error copyOfCurrent()
{
    try {
        throw;
    } catch (const Error& error) {
        return error;
    } catch (const std::bad_alloc&) {
        return Error(errorOutOfMemory);
    } catch (...) {
        return Error::fromResult(E_UNEXPECTED);
    }
}

} // namespace

FailureObserver setFailureObserver(FailureObserver observer)
{
    return std::exchange(observerSlot(), std::move(observer));
}

void reportFailure(std::wstring_view where, std::wstring_view why, const Error& error) noexcept
{
    try {
        if (observerSlot())
            observerSlot()(Failure{where, why, error});
    } catch (...) {
        // There is nobody left to tell.
    }
}

Error currentError() noexcept
{
    try {
        return copyOfCurrent();
    } catch (...) {
        return Error(errorOutOfMemory, {}, {}, E_OUTOFMEMORY); // without words, which would want memory again
    }
}

HRESULT publishError(const Error& error) noexcept
{
    com_ptr<ICreateErrorInfo> info;
    if (SUCCEEDED(CreateErrorInfo(info.put()))) {
        info->SetDescription(const_cast<LPOLESTR>(error.description().c_str()));
        info->SetSource(const_cast<LPOLESTR>(error.source().c_str()));
        SetErrorInfo(0, info.tryAs<IErrorInfo>().get());
    }
    return FAILED(error.result()) ? error.result() : E_FAIL;
}

} // namespace velk
