#include "base/boundary.h"

#include "base/never_destroyed.h"

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

} // namespace velk
