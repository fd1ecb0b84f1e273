// The type libraries in the built DLL, whole, against what callers were built against.
#include "../dllFixture.h"
#include "typeText.h"

#include <gmock/gmock.h>

namespace velk {
namespace {

using testing::UnorderedElementsAre;

struct Interface {
    const wchar_t* library; // number of the resource behind the DLL's path
    std::string name;
    std::string guid;
    std::string flags;
    std::vector<std::string> members;
};

void PrintTo(const Interface& row, std::ostream* out)
{
    *out << row.name;
}

constexpr char publishedFlags[] = "hidden dual nonextensible oleautomation dispatchable";

// The argument of a property that can be set has no name: it is the property's value.
const Interface interfaces[] = {
    {L"\\1",
     "_Connect",
     "{06576FA9-9F23-4170-869D-0EA3F472D896}",
     publishedFlags,
     {"1 7 method AddToAddInCommandBar(in out BSTR* sCaption, out retval CommandBarControl** control)"}},
    {L"\\1",
     "_IMgrVI",
     "{58D2795B-B17F-418F-89D6-D3B874BC3595}",
     publishedFlags,
     {"1 7 method setupIM(in IDispatch* myApp, in IDispatch* myaddin)", "2 8 method openRZCommunication()",
      "3 9 method closeRZCommunication()", "4 10 method createRZUI()", "5 11 method deleteRZUI()",
      "6 12 get VIInstance(out retval IDispatch** instance)", "7 13 get VBAddin(out retval IDispatch** addin)"}},
    {L"\\1",
     "_IntegrationMgr",
     "{E1D4ECFC-4439-41AC-A02F-256E6B2F4EFC}",
     publishedFlags,
     {"1 7 method showDevView()", "2 8 method setRZFileName(in out BSTR* rzFile)",
      "3 9 method getRZFileName(out retval BSTR* rzFile)", "4 10 method openRZProject()",
      "5 11 method getProjList(in out SAFEARRAY(BSTR)* projList)",
      "6 12 method getDataEnvList(in out SAFEARRAY(BSTR)* dataEnvList, in out BSTR* projName)",
      "7 13 method getConnectionList(in out SAFEARRAY(BSTR)* conList, in out BSTR* dataenvName, in out BSTR* projName)",
      "8 14 get getModel(out retval _ModelUtil** model)", "9 15 get getIdeType(out retval long* ideType)",
      "10 16 method minimizeVSAppWin()", "11 17 method restoreVSAppWinState()"}},
    {L"\\1",
     "_ModelUtil",
     "{FC3A24F7-B985-4FDA-A04A-68987248D312}",
     publishedFlags,
     {"1 7 method insertClientCode(in out BSTR* clientCode, in out BSTR* projName, in out BSTR* compName)",
      "2 8 method insertSQLCode(in out BSTR* sqlCode, in out long* startLine, in out long* startCol, "
      "in out long* endLine, in out long* endCol, in out BSTR* projName, in out BSTR* compName)",
      "3 9 method addADOConnection(in out BSTR* conString, in out BSTR* conName, in out BSTR* dataenvName, "
      "in out BSTR* projName)",
      "4 10 method AddADOCommand(in out long* commandType, in out BSTR* commandText, in out BSTR* commandName, "
      "in out BSTR* conName, in out BSTR* dataenvName, in out BSTR* projName)",
      "5 11 method existsDataEnvObjs(out retval VARIANT_BOOL* exist)",
      "6 12 method getProjList(in out SAFEARRAY(BSTR)* projList)",
      "7 13 method getDataEnvList(in out SAFEARRAY(BSTR)* dataEnvList, in out BSTR* projName)",
      "8 14 method getConnectionList(in out SAFEARRAY(BSTR)* conList, in out BSTR* dataenvName, in out BSTR* projName)",
      "9 15 method getActiveProjName(out retval BSTR* name)", "10 16 method getSelectedcompName(out retval BSTR* name)",
      "11 17 method GetDevLanguage(out retval BSTR* language)", "12 18 method saveRZFileName(in BSTR fileName)"}},
    {L"\\1",
     "_ModelUtilVI",
     "{99C7B052-9E5A-4FDC-97CF-34C7E517B4B7}",
     publishedFlags,
     {"1 7 putref VIInstance(in IDispatch*)", "1 8 get VIInstance(out retval IDispatch**)",
      "2 9 method ModelUtil_saveRZFileName(in BSTR fileName)",
      "3 10 method printToFocusedWindow(in out BSTR* strText, in out VARIANT_BOOL* toStatusWin)"}},
    {L"\\1",
     "_serverViewDoc",
     "{E68E46E4-B2DC-4B40-8EA1-942D414EF68F}",
     publishedFlags,
     {"1 7 putref IMgr(in _IntegrationMgr*)", "1 8 get IMgr(out retval _IntegrationMgr**)", "2 9 method setupGUI()"}},
    {L"\\1", "CommandBarControl", "{2F5B8D46-93A7-4E0C-8B1D-6A40C7E951F3}", "hidden dispatchable", {}},
    {L"\\2",
     "_IDTExtensibility2",
     "{B65AD801-ABAF-11D0-BB8B-00A0C90F2744}",
     "hidden dual oleautomation dispatchable",
     {"1 7 method OnConnection(in IDispatch* Application, in ext_ConnectMode ConnectMode, in IDispatch* AddInInst, "
      "in SAFEARRAY(VARIANT)* custom)",
      "2 8 method OnDisconnection(in ext_DisconnectMode RemoveMode, in SAFEARRAY(VARIANT)* custom)",
      "3 9 method OnAddInsUpdate(in SAFEARRAY(VARIANT)* custom)",
      "4 10 method OnStartupComplete(in SAFEARRAY(VARIANT)* custom)",
      "5 11 method OnBeginShutdown(in SAFEARRAY(VARIANT)* custom)"}},
};

struct Class {
    std::string name;
    std::string guid;
    std::vector<std::string> faces;
};

void PrintTo(const Class& row, std::ostream* out)
{
    *out << row.name;
}

const Class classes[] = {
    {"Connect", "{76BEE3D6-7C2B-45A6-A9C5-2C994216EC34}", {"default _Connect"}},
    {"IMgrVI", "{6D9E5347-5857-48EC-881C-EDBB029FFF15}", {"default _IMgrVI", "_IntegrationMgr"}},
    {"IntegrationMgr", "{3D04F8EF-4AAE-4AF8-81AD-30C3E253828D}", {"default _IntegrationMgr"}},
    {"ModelUtil", "{80E6F3FA-40A1-4726-9CCC-1FDCF9E43651}", {"default _ModelUtil"}},
    {"ModelUtilVI", "{59450A38-82E1-4D7E-B2DF-6816872DEBF3}", {"default _ModelUtilVI", "_ModelUtil"}},
    {"serverViewDoc", "{6909EA14-5C98-4FB5-81E4-C5747A3EE852}", {"default _serverViewDoc"}},
};

class TypeLibraryTest : public test::DllFixture {
protected:
    static com_ptr<ITypeLib> library(const wchar_t* resource)
    {
        com_ptr<ITypeLib> found;
        LoadTypeLibEx((path() + resource).c_str(), REGKIND_NONE, found.put());
        return found;
    }
};

class PublishedInterface : public TypeLibraryTest, public testing::WithParamInterface<Interface> {};

TEST_P(PublishedInterface, membersAndTypes_areThoseOfTheTable)
{
    const auto info = test::typeNamed(library(GetParam().library).get(), GetParam().name);
    ASSERT_TRUE(info);
    EXPECT_EQ(test::membersOf(test::slotFace(info.get()).get()), GetParam().members);
}

TEST_P(PublishedInterface, identity_isThatOfTheTable)
{
    const auto info = test::typeNamed(library(GetParam().library).get(), GetParam().name);
    ASSERT_TRUE(info);
    EXPECT_EQ(test::guidOf(info.get()), GetParam().guid);
    EXPECT_EQ(test::flagsOf(test::slotFace(info.get()).get()), GetParam().flags);
    EXPECT_EQ(test::baseOf(test::slotFace(info.get()).get()), "IDispatch");
}

INSTANTIATE_TEST_SUITE_P(each, PublishedInterface, testing::ValuesIn(interfaces));

class PublishedClass : public TypeLibraryTest, public testing::WithParamInterface<Class> {};

TEST_P(PublishedClass, identityAndInterfaces_areThoseOfTheTable)
{
    const auto info = test::typeNamed(library(L"\\1").get(), GetParam().name);
    ASSERT_TRUE(info);
    EXPECT_EQ(test::guidOf(info.get()), GetParam().guid);
    EXPECT_EQ(test::flagsOf(info.get()), "creatable");
    EXPECT_EQ(test::facesOf(info.get()), GetParam().faces);
}

INSTANTIATE_TEST_SUITE_P(each, PublishedClass, testing::ValuesIn(classes));

TEST_F(TypeLibraryTest, publishedLibrary_hasNothingElse)
{
    EXPECT_THAT(test::typesOf(library(L"\\1").get()),
                UnorderedElementsAre("Connect", "IMgrVI", "IntegrationMgr", "ModelUtil", "ModelUtilVI", "serverViewDoc",
                                     "_Connect", "_IMgrVI", "_IntegrationMgr", "_ModelUtil", "_ModelUtilVI",
                                     "_serverViewDoc", "CommandBarControl"));
}

TEST_F(TypeLibraryTest, publishedLibrary_bearsItsNameAndNumber)
{
    bstr name;
    bstr described;
    TLIBATTR* attributes = nullptr;
    const auto published = library(L"");
    ASSERT_EQ(published->GetDocumentation(-1, name.put(), described.put(), nullptr, nullptr), S_OK);
    ASSERT_EQ(published->GetLibAttr(&attributes), S_OK);
    EXPECT_EQ(name.view(), L"velkviadd");
    EXPECT_EQ(described.view(), L"Velk Development Add-In for Visual Interdev");
    EXPECT_EQ(attributes->guid, LIBID_velkviadd);
    EXPECT_EQ(attributes->wMajorVerNum * 10 + attributes->wMinorVerNum, 10);
    published->ReleaseTLibAttr(attributes);
}

} // namespace
} // namespace velk
