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

// clang-format off
const std::array<PublishedClass, 6> classes{{
    {&CLSID_Connect,        L"Connect",        productTitle,                                  make<Connect>,             false},
    {&CLSID_IMgrVI,         L"IMgrVI",         L"Velk integration manager",                    make<IMgrVI>,              false},
    {&CLSID_IntegrationMgr, L"IntegrationMgr", L"Velk integration manager interface",          make<EmptyIntegrationMgr>, false},
    {&CLSID_ModelUtil,      L"ModelUtil",      L"Velk project model interface",                make<EmptyModelUtil>,      false},
    {&CLSID_ModelUtilVI,    L"ModelUtilVI",    L"Velk project model of Visual Interdev",       make<ModelUtilVI>,         false},
    {&CLSID_serverViewDoc,  L"serverViewDoc",  L"Velk server view",                            make<serverViewDoc>,       true},
}};
// clang-format on

} // namespace

std::span<const PublishedClass> publishedClasses()
{
    return classes;
}

} // namespace velk
