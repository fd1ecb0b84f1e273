#pragma once

#include "addin/classes.h"
#include "com/com_boundary.h"
#include "com/com_object.h"

namespace velk {

// Makes objects of one published class.
class ClassFactory : public ComObject<ClassFactory, IClassFactory> {
public:
    explicit ClassFactory(const PublishedClass& row) : m_class(row) {}

    STDMETHODIMP CreateInstance(IUnknown* outer, REFIID iid, void** out) noexcept override
    {
        if (!out)
            return E_POINTER;
        *out = nullptr;
        if (outer)
            return CLASS_E_NOAGGREGATION;
        return atBoundary(L"IClassFactory.CreateInstance", [&] { return m_class.make()->QueryInterface(iid, out); });
    }
    STDMETHODIMP LockServer(BOOL shall) noexcept override
    {
        if (shall)
            module::lock();
        else
            module::unlock();
        return S_OK;
    }

private:
    const PublishedClass& m_class;
};

} // namespace velk
