// Every published member, called by name as a script does it: through the object's IDispatch and the system's reading
// of the type library.
#include "installedDll.h"
#include "lateBoundArguments.h"
#include "typeText.h"

#include "com/variant.h"
#include "unit/addin/fakeIde.h"

#include <map>
#include <typelib/extensibility.h>

namespace velk {
namespace {

using test::Arguments;
using test::Kind;
using enum test::Kind;

struct Member {
    std::string face;
    const CLSID* clsid;
    std::string name;
    WORD kind;
    std::vector<Kind> arguments;
    VARTYPE result;
};

void PrintTo(const Member& row, std::ostream* out)
{
    *out << row.face << "." << row.name;
}

constexpr WORD call = DISPATCH_METHOD;
constexpr WORD get = DISPATCH_PROPERTYGET;
constexpr WORD putRef = DISPATCH_PROPERTYPUTREF;

// clang-format off
const Member members[] = {
    {"_Connect",           &CLSID_Connect,        "AddToAddInCommandBar",     call,   {textRef},                     VT_DISPATCH},
    {"_IMgrVI",            &CLSID_IMgrVI,         "setupIM",                  call,   {ide, ide},                    VT_EMPTY},
    {"_IMgrVI",            &CLSID_IMgrVI,         "openRZCommunication",      call,   {},                            VT_EMPTY},
    {"_IMgrVI",            &CLSID_IMgrVI,         "closeRZCommunication",     call,   {},                            VT_EMPTY},
    {"_IMgrVI",            &CLSID_IMgrVI,         "createRZUI",               call,   {},                            VT_EMPTY},
    {"_IMgrVI",            &CLSID_IMgrVI,         "deleteRZUI",               call,   {},                            VT_EMPTY},
    {"_IMgrVI",            &CLSID_IMgrVI,         "VIInstance",               get,    {},                            VT_DISPATCH},
    {"_IMgrVI",            &CLSID_IMgrVI,         "VBAddin",                  get,    {},                            VT_DISPATCH},
    {"_IntegrationMgr",    &CLSID_IMgrVI,         "showDevView",              call,   {},                            VT_EMPTY},
    {"_IntegrationMgr",    &CLSID_IMgrVI,         "setRZFileName",            call,   {textRef},                     VT_EMPTY},
    {"_IntegrationMgr",    &CLSID_IMgrVI,         "getRZFileName",            call,   {},                            VT_BSTR},
    {"_IntegrationMgr",    &CLSID_IMgrVI,         "openRZProject",            call,   {},                            VT_EMPTY},
    {"_IntegrationMgr",    &CLSID_IMgrVI,         "getProjList",              call,   {listRef},                     VT_EMPTY},
    {"_IntegrationMgr",    &CLSID_IMgrVI,         "getDataEnvList",           call,   {listRef, textRef},            VT_EMPTY},
    {"_IntegrationMgr",    &CLSID_IMgrVI,         "getConnectionList",        call,   {listRef, textRef, textRef},   VT_EMPTY},
    {"_IntegrationMgr",    &CLSID_IMgrVI,         "getModel",                 get,    {},                            VT_DISPATCH},
    {"_IntegrationMgr",    &CLSID_IMgrVI,         "getIdeType",               get,    {},                            VT_I4},
    {"_IntegrationMgr",    &CLSID_IMgrVI,         "minimizeVSAppWin",         call,   {},                            VT_EMPTY},
    {"_IntegrationMgr",    &CLSID_IMgrVI,         "restoreVSAppWinState",     call,   {},                            VT_EMPTY},
    {"_ModelUtil",         &CLSID_ModelUtilVI,    "insertClientCode",         call,   {textRef, textRef, textRef},   VT_EMPTY},
    {"_ModelUtil",         &CLSID_ModelUtilVI,    "insertSQLCode",            call,   {textRef, longRef, longRef, longRef, longRef, textRef, textRef}, VT_EMPTY},
    {"_ModelUtil",         &CLSID_ModelUtilVI,    "addADOConnection",         call,   {textRef, textRef, textRef, textRef}, VT_EMPTY},
    {"_ModelUtil",         &CLSID_ModelUtilVI,    "AddADOCommand",            call,   {longRef, textRef, textRef, textRef, textRef, textRef}, VT_EMPTY},
    {"_ModelUtil",         &CLSID_ModelUtilVI,    "existsDataEnvObjs",        call,   {},                            VT_BOOL},
    {"_ModelUtil",         &CLSID_ModelUtilVI,    "getProjList",              call,   {listRef},                     VT_EMPTY},
    {"_ModelUtil",         &CLSID_ModelUtilVI,    "getDataEnvList",           call,   {listRef, textRef},            VT_EMPTY},
    {"_ModelUtil",         &CLSID_ModelUtilVI,    "getConnectionList",        call,   {listRef, textRef, textRef},   VT_EMPTY},
    {"_ModelUtil",         &CLSID_ModelUtilVI,    "getActiveProjName",        call,   {},                            VT_BSTR},
    {"_ModelUtil",         &CLSID_ModelUtilVI,    "getSelectedcompName",      call,   {},                            VT_BSTR},
    {"_ModelUtil",         &CLSID_ModelUtilVI,    "GetDevLanguage",           call,   {},                            VT_BSTR},
    {"_ModelUtil",         &CLSID_ModelUtilVI,    "saveRZFileName",           call,   {text},                        VT_EMPTY},
    {"_ModelUtilVI",       &CLSID_ModelUtilVI,    "VIInstance",               putRef, {ide},                         VT_EMPTY},
    {"_ModelUtilVI",       &CLSID_ModelUtilVI,    "VIInstance",               get,    {},                            VT_DISPATCH},
    {"_ModelUtilVI",       &CLSID_ModelUtilVI,    "ModelUtil_saveRZFileName", call,   {text},                        VT_EMPTY},
    {"_ModelUtilVI",       &CLSID_ModelUtilVI,    "printToFocusedWindow",     call,   {textRef, boolRef},            VT_EMPTY},
    {"_serverViewDoc",     &CLSID_serverViewDoc,  "IMgr",                     putRef, {manager},                     VT_EMPTY},
    {"_serverViewDoc",     &CLSID_serverViewDoc,  "IMgr",                     get,    {},                            VT_DISPATCH},
    {"_serverViewDoc",     &CLSID_serverViewDoc,  "setupGUI",                 call,   {},                            VT_EMPTY},
    {"_IDTExtensibility2", &CLSID_Connect,        "OnConnection",             call,   {ide, number, ide, custom},    VT_EMPTY},
    {"_IDTExtensibility2", &CLSID_Connect,        "OnDisconnection",          call,   {number, custom},              VT_EMPTY},
    {"_IDTExtensibility2", &CLSID_Connect,        "OnAddInsUpdate",           call,   {custom},                      VT_EMPTY},
    {"_IDTExtensibility2", &CLSID_Connect,        "OnStartupComplete",        call,   {custom},                      VT_EMPTY},
    {"_IDTExtensibility2", &CLSID_Connect,        "OnBeginShutdown",          call,   {custom},                      VT_EMPTY},
};
// The classes that are empty by themselves have the same faces.
const Member emptyMembers[] = {
    {"_IntegrationMgr",    &CLSID_IntegrationMgr, "getRZFileName",            call,   {},                            VT_BSTR},
    {"_IntegrationMgr",    &CLSID_IntegrationMgr, "getModel",                 get,    {},                            VT_DISPATCH},
    {"_IntegrationMgr",    &CLSID_IntegrationMgr, "getIdeType",               get,    {},                            VT_I4},
    {"_IntegrationMgr",    &CLSID_IntegrationMgr, "getConnectionList",        call,   {listRef, textRef, textRef},   VT_EMPTY},
    {"_ModelUtil",         &CLSID_ModelUtil,      "existsDataEnvObjs",        call,   {},                            VT_BOOL},
    {"_ModelUtil",         &CLSID_ModelUtil,      "GetDevLanguage",           call,   {},                            VT_BSTR},
    {"_ModelUtil",         &CLSID_ModelUtil,      "getProjList",              call,   {listRef},                     VT_EMPTY},
};
// clang-format on

const std::map<std::string, const IID*> faces = {
    {"_Connect", &IID__Connect},
    {"_IMgrVI", &IID__IMgrVI},
    {"_IntegrationMgr", &IID__IntegrationMgr},
    {"_ModelUtil", &IID__ModelUtil},
    {"_ModelUtilVI", &IID__ModelUtilVI},
    {"_serverViewDoc", &IID__serverViewDoc},
    {"_IDTExtensibility2", &IID__IDTExtensibility2},
};

class LateBound : public test::InstalledDll {
protected:
    LateBound() { put(VELK_COMPLETE_BACKEND, addinFolder()); }
    ~LateBound() override
    {
        if (const auto events = object.tryAs<_IDTExtensibility2>())
            events->OnDisconnection(ext_dm_UserClosed, nullptr);
        if (const auto integration = object.tryAs<_IMgrVI>()) {
            integration->closeRZCommunication();
            integration->deleteRZUI();
        }
        result = {};
        object.reset();
        manager.reset();
    }
    // An object of the class, inside an IDE where it takes one.
    void makeObjectOf(REFCLSID clsid)
    {
        object = make<IUnknown>(clsid);
        manager = make<IDispatch>(CLSID_IntegrationMgr);
        if (const auto events = object.tryAs<_IDTExtensibility2>())
            events->OnConnection(ide.dte.get(), ext_cm_Startup, ide.addin.get(), nullptr);
        if (const auto integration = object.tryAs<_IMgrVI>())
            integration->setupIM(ide.dte.get(), ide.addin.get());
    }
    HRESULT invoke(const Member& row)
    {
        const auto face = object.tryAs<IDispatch>(*faces.at(row.face));
        std::wstring name(row.name.begin(), row.name.end());
        wchar_t* names = name.data();
        DISPID id = DISPID_UNKNOWN;
        if (const HRESULT found = face->GetIDsOfNames(IID_NULL, &names, 1, LOCALE_USER_DEFAULT, &id); found != S_OK)
            return found;
        Arguments arguments(row.arguments.size());
        for (size_t index = 0; index < row.arguments.size(); ++index)
            arguments.set(index, row.arguments[index], ide.dte.get(), manager.get());
        DISPID named = DISPID_PROPERTYPUT;
        const bool isPut = row.kind == putRef;
        DISPPARAMS parameters{arguments.values(), isPut ? &named : nullptr, static_cast<UINT>(row.arguments.size()),
                              isPut ? 1u : 0u};
        return face->Invoke(id, IID_NULL, LOCALE_USER_DEFAULT, row.kind, &parameters, isPut ? nullptr : result.put(),
                            nullptr, nullptr);
    }
    // "_Connect.AddToAddInCommandBar/1", the way of the call behind the name.
    static std::multiset<std::string> namesInTheLibrary(const wchar_t* resource)
    {
        std::multiset<std::string> names;
        com_ptr<ITypeLib> library;
        LoadTypeLibEx((path() + resource).c_str(), REGKIND_NONE, library.put());
        for (const std::string& type : test::typesOf(library.get()))
            if (faces.contains(type))
                for (const std::string& line :
                     test::membersOf(test::slotFace(test::typeNamed(library.get(), type).get()).get()))
                    names.insert(type + "." +
                                 line.substr(line.find(' ', line.find(' ') + 1) + 1,
                                             line.find('(') - line.find(' ', line.find(' ') + 1) - 1));
        return names;
    }
    static std::multiset<std::string> namesInTheTable()
    {
        const std::map<WORD, std::string> words = {{call, "method "}, {get, "get "}, {putRef, "putref "}};
        std::multiset<std::string> names;
        for (const Member& row : members)
            names.insert(row.face + "." + words.at(row.kind) + row.name);
        return names;
    }

    test::FakeIde ide;
    com_ptr<IUnknown> object;
    com_ptr<IDispatch> manager;
    variant result;
};

class LateBoundMember : public LateBound, public testing::WithParamInterface<Member> {};

TEST_P(LateBoundMember, calledByName_answersAndGivesItsType)
{
    makeObjectOf(*GetParam().clsid);
    ASSERT_TRUE(object);
    EXPECT_EQ(invoke(GetParam()), S_OK);
    EXPECT_EQ(result.type(), GetParam().result);
}

INSTANTIATE_TEST_SUITE_P(published, LateBoundMember, testing::ValuesIn(members));
INSTANTIATE_TEST_SUITE_P(empty, LateBoundMember, testing::ValuesIn(emptyMembers));

TEST_F(LateBound, everyMemberOfTheLibraries_isInTheTable)
{
    std::multiset<std::string> published = namesInTheLibrary(L"\\1");
    published.merge(namesInTheLibrary(L"\\2"));
    EXPECT_EQ(namesInTheTable(), published);
}

TEST_F(LateBound, addToAddInCommandBar_givesTheControlItself)
{
    makeObjectOf(CLSID_Connect);
    EXPECT_EQ(invoke(members[0]), S_OK);
    EXPECT_EQ(result.asObject().get(), ide.entry.get());
    EXPECT_EQ(ide.entry->read(L"Caption").asText(), L"text");
}

TEST_F(LateBound, failingMember_givesNumberSourceAndDescription)
{
    makeObjectOf(CLSID_IMgrVI);
    const auto face = object.tryAs<IDispatch>(IID__IMgrVI);
    ide.windows->failing(L"CreateToolWindow", Error(errorPermissionDenied));
    EXCEPINFO exception{};
    DISPPARAMS none{};
    EXPECT_EQ(face->Invoke(2, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_METHOD, &none, nullptr, &exception, nullptr),
              DISP_E_EXCEPTION);
    EXPECT_EQ(exception.scode, static_cast<SCODE>(0x800A0046));
    EXPECT_EQ(bstr::viewOf(exception.bstrSource), L"velkviadd");
    EXPECT_EQ(bstr::viewOf(exception.bstrDescription), L"Permission denied");
    SysFreeString(exception.bstrSource);
    SysFreeString(exception.bstrDescription);
    SysFreeString(exception.bstrHelpFile);
}

} // namespace
} // namespace velk
