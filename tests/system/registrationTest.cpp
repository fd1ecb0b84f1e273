#include "dllFixture.h"

namespace velk {
namespace {

class RegistrationTest : public test::DllFixture {
protected:
    ~RegistrationTest() override { callEntry("DllUnregisterServer"); }
};

TEST_F(RegistrationTest, unregistering_leavesNoTrace)
{
    callEntry("DllUnregisterServer");
    const std::set<std::wstring> before = registry();
    EXPECT_EQ(callEntry("DllRegisterServer"), S_OK);
    EXPECT_GT(registry().size(), before.size());
    EXPECT_EQ(callEntry("DllUnregisterServer"), S_OK);
    EXPECT_EQ(registry(), before);
}

TEST_F(RegistrationTest, unregisteringWhatIsNotRegistered_succeeds)
{
    callEntry("DllUnregisterServer");
    EXPECT_EQ(callEntry("DllUnregisterServer"), S_OK);
}

TEST_F(RegistrationTest, registeringTwice_writesTheSame)
{
    EXPECT_EQ(callEntry("DllRegisterServer"), S_OK);
    const std::set<std::wstring> once = registry();
    EXPECT_EQ(callEntry("DllRegisterServer"), S_OK);
    EXPECT_EQ(registry(), once);
}

TEST_F(RegistrationTest, everyClass_isFoundByItsName)
{
    callEntry("DllRegisterServer");
    for (const wchar_t* name :
         {L"Connect", L"IMgrVI", L"IntegrationMgr", L"ModelUtil", L"ModelUtilVI", L"serverViewDoc"}) {
        CLSID clsid{};
        EXPECT_EQ(CLSIDFromProgID((std::wstring(L"velkviadd.") + name).c_str(), &clsid), S_OK) << name;
    }
}

TEST_F(RegistrationTest, registeredClass_isMadeByCom)
{
    callEntry("DllRegisterServer");
    com_ptr<_ModelUtil> model;
    EXPECT_EQ(CoCreateInstance(CLSID_ModelUtilVI, nullptr, CLSCTX_INPROC_SERVER, __uuidof(_ModelUtil), model.putVoid()),
              S_OK);
    bstr language;
    EXPECT_EQ(model->GetDevLanguage(language.put()), S_OK);
    EXPECT_EQ(language.view(), L"3");
}

TEST_F(RegistrationTest, typeLibrary_isRegisteredAndHostsInterfaceIsNot)
{
    callEntry("DllRegisterServer");
    com_ptr<ITypeLib> library;
    EXPECT_EQ(LoadRegTypeLib(LIBID_velkviadd, 1, 0, LOCALE_NEUTRAL, library.put()), S_OK);
    EXPECT_EQ(valueOf(L"Software\\Classes\\Interface\\{B65AD801-ABAF-11D0-BB8B-00A0C90F2744}"), L"");
}

} // namespace
} // namespace velk
