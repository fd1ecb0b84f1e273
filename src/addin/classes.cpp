// Tested in tests/system/unloadTest.cpp.
#include "addin/classes.h"

#include "addin/Connect.h"
#include "addin/EmptyIntegrationMgr.h"
#include "addin/IMgrVI.h"
#include "model/ModelUtilVI.h"
#include "serverview/serverViewDoc.h"

#include <array>
#include <product.h>

namespace velk {
namespace {

template <class Class>
com_ptr<IUnknown> make()
{
    return com_ptr<IUnknown>(makeObject<Class>()->identity());
}

const std::array classes{
#define PUBLISHED_CLASS(name, description, made, isDocument)                                                           \
    PublishedClass{&CLSID_##name, L"" #name, description, make<made>, isDocument},
#include "addin/classes.inc"
#undef PUBLISHED_CLASS
};

} // namespace

std::span<const PublishedClass> publishedClasses()
{
    return classes;
}

} // namespace velk
