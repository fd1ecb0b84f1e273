#include "model/ModelUtilVI.h"
#include "base/module.h"
#include "com/automation.h"
#include "com/string_arrays.h"
#include "ideWithWindows.h"
#include "model/ModelUtil.h"
#include "support/folders.h"

#include <filesystem>
#include <fstream>
#include <gmock/gmock.h>
#include <map>

namespace velk {
namespace {

using test::FakeObject;
using test::fakeObject;
using test::ideWithWindows;

// Whether there is a status window: the windows of these tests are none that can be typed into.
bool hasStatusWindow(ModelUtilVI& model)
{
    bstr text;
    VARIANT_BOOL toStatus = VARIANT_TRUE;
    return FAILED(model.printToFocusedWindow(text.ref(), &toStatus));
}

TEST(ModelUtilVI, bindingWithWindowOfType5_takesTheFirst)
{
    FakeObject::Journal journal;
    const auto model = makeObject<ModelUtilVI>();
    EXPECT_EQ(model->putref_VIInstance(ideWithWindows({12, 5, 5}, &journal).get()), S_OK);
    EXPECT_EQ(journal, (FakeObject::Journal{L"DTE.Windows", L"Windows.Count", L"Windows.Item(1)", L"Window1.Type",
                                            L"Windows.Item(2)", L"Window2.Type"}));
    EXPECT_TRUE(hasStatusWindow(*model.get()));
}

TEST(ModelUtilVI, bindingWithoutWindowOfType5_leavesTheStatusWindowEmpty)
{
    const auto model = makeObject<ModelUtilVI>();
    EXPECT_EQ(model->putref_VIInstance(ideWithWindows({12, 6}).get()), S_OK);
    EXPECT_FALSE(hasStatusWindow(*model.get()));
}

TEST(ModelUtilVI, bindingThatFails_tellsItsCaller)
{
    const auto ide = fakeObject(L"DTE");
    ide->value(L"Windows", variant())->failing(L"Windows", Error(errorPermissionDenied));
    const auto model = makeObject<ModelUtilVI>();
    EXPECT_EQ(model->putref_VIInstance(ide.get()), Error(errorPermissionDenied).result());
}

TEST(ModelUtilVI, boundInstance_isReadBack)
{
    const auto ide = ideWithWindows({});
    const auto model = makeObject<ModelUtilVI>();
    model->putref_VIInstance(ide.get());
    com_ptr<IDispatch> read;
    EXPECT_EQ(model->get_VIInstance(read.put()), S_OK);
    EXPECT_EQ(read.get(), ide.get());
}

TEST(ModelUtilVI, newBinding_forgetsTheStatusWindowOfTheOneBefore)
{
    const auto model = makeObject<ModelUtilVI>();
    model->putref_VIInstance(ideWithWindows({5}).get());
    ASSERT_TRUE(hasStatusWindow(*model.get()));
    model->putref_VIInstance(ideWithWindows({6}).get());
    EXPECT_FALSE(hasStatusWindow(*model.get()));
}

TEST(ModelUtilVI, end_letsTheIdeAndTheStatusWindowGo)
{
    const auto references = [](IDispatch& object) {
        object.AddRef();
        return object.Release();
    };
    const auto window = fakeObject(L"Window");
    window->value(L"Type", variant(int32_t{5}));
    auto ide = test::ideWith({window});
    auto model = makeObject<ModelUtilVI>();
    model->putref_VIInstance(ide.get());
    EXPECT_EQ(references(*ide.get()), 2u);
    const ULONG held = references(*window.get());
    model.reset();
    EXPECT_EQ(references(*ide.get()), 1u);
    EXPECT_EQ(references(*window.get()), held - 1);
}

TEST(ModelUtilVI, GetDevLanguage_isTheTextThree)
{
    const ModelUtil model(com_ptr<_ModelUtil>(makeObject<ModelUtilVI>().get()));
    EXPECT_EQ(model.GetDevLanguage(), L"3");
}

TEST(ModelUtilVI, existsDataEnvObjsAfterAddADOConnection_isStillFalse)
{
    const ModelUtil model(com_ptr<_ModelUtil>(makeObject<ModelUtilVI>().get()));
    model.addADOConnection(L"DSN=x", L"Connection1", L"DataEnvironment1", L"Project1");
    EXPECT_FALSE(model.existsDataEnvObjs());
}

TEST(ModelUtilVI, projectAndComponentNames_areEmpty)
{
    const ModelUtil model(com_ptr<_ModelUtil>(makeObject<ModelUtilVI>().get()));
    EXPECT_EQ(model.getActiveProjName(), L"");
    EXPECT_EQ(model.getSelectedcompName(), L"");
}

TEST(ModelUtilVI, lists_areLeftAsTheyCame)
{
    const auto model = makeObject<ModelUtilVI>();
    SAFEARRAY* list = arrayOf({L"one", L"two"});
    bstr name(L"Project1");
    EXPECT_EQ(model->getProjList(&list), S_OK);
    EXPECT_EQ(model->getDataEnvList(&list, name.ref()), S_OK);
    EXPECT_EQ(textsOf(list), (std::vector<std::wstring>{L"one", L"two"}));
    SafeArrayDestroy(list);
}

// A model bound to an IDE, and a folder with the files that the tool's requests name.
class RequestsTest : public testing::Test {
protected:
    using Files = std::map<std::string, std::string>;

    RequestsTest()
    {
        test::removeTree(folder);
        CreateDirectoryW(folder.c_str(), nullptr);
        for (const auto& [name, bytes] : kept)
            std::ofstream(std::filesystem::path(folder) / name, std::ios::binary) << bytes;
        model->putref_VIInstance(ideWithWindows({5}, &journal).get());
        journal.clear();
    }
    ~RequestsTest() override { test::removeTree(folder); }
    Files files() const
    {
        Files found;
        for (const auto& entry : std::filesystem::directory_iterator(folder)) {
            std::ifstream file(entry.path(), std::ios::binary);
            found[entry.path().filename().string()] = std::string(std::istreambuf_iterator<char>(file), {});
        }
        return found;
    }
    // Neither a file nor the IDE was touched.
    void expectNoEffect() const
    {
        EXPECT_EQ(files(), kept);
        EXPECT_EQ(journal, FakeObject::Journal{});
    }

    const Files kept{{"a.asp", "<% first %>"}, {"a.sql", "select 2"}, {"web.vip", "project"}};
    const std::wstring folder = module::folder() + L"\\requests";
    bstr code = bstr(L"select 1");
    bstr project = bstr(folder + L"\\web.vip");
    FakeObject::Journal journal;
    com_ptr<ModelUtilVI> model = makeObject<ModelUtilVI>();
};

TEST_F(RequestsTest, insertSQLCode_isAcceptedWithoutEffect)
{
    bstr component(folder + L"\\a.sql");
    long range[] = {1, 2, 3, 4};
    EXPECT_EQ(
        model->insertSQLCode(code.ref(), &range[0], &range[1], &range[2], &range[3], project.ref(), component.ref()),
        S_OK);
    EXPECT_THAT(range, testing::ElementsAre(1, 2, 3, 4));
    EXPECT_EQ(code.text(), L"select 1");
    EXPECT_EQ(component.text(), folder + L"\\a.sql");
    expectNoEffect();
}

TEST_F(RequestsTest, insertClientCode_isAcceptedWithoutEffect)
{
    bstr component(folder + L"\\a.asp");
    EXPECT_EQ(model->insertClientCode(code.ref(), project.ref(), component.ref()), S_OK);
    EXPECT_EQ(code.text(), L"select 1");
    EXPECT_EQ(component.text(), folder + L"\\a.asp");
    expectNoEffect();
}

TEST_F(RequestsTest, AddADOCommand_isAcceptedWithoutEffect)
{
    long type = 4;
    bstr name(L"Command1");
    bstr connection(L"Connection1");
    bstr environment(L"DataEnvironment1");
    EXPECT_EQ(model->AddADOCommand(&type, code.ref(), name.ref(), connection.ref(), environment.ref(), project.ref()),
              S_OK);
    EXPECT_EQ(type, 4);
    EXPECT_EQ(name.text(), L"Command1");
    VARIANT_BOOL exist = VARIANT_TRUE;
    EXPECT_EQ(model->existsDataEnvObjs(&exist), S_OK);
    EXPECT_EQ(exist, VARIANT_FALSE);
    expectNoEffect();
}

TEST_F(RequestsTest, saveRZFileName_takesTheNameAndDropsItByBothItsNames)
{
    const bstr name(folder + L"\\orders.rzv");
    EXPECT_EQ(model->saveRZFileName(name.get()), S_OK);
    EXPECT_EQ(model->ModelUtil_saveRZFileName(name.get()), S_OK);
    EXPECT_EQ(model->saveRZFileName(nullptr), S_OK); // an empty name in automation
    expectNoEffect();
}

TEST(ModelUtilVI, lateBoundCaller_findsBothHalves)
{
    const com_ptr<IDispatch> own(makeObject<ModelUtilVI>().tryAs<IDispatch>());
    EXPECT_TRUE(automation::hasMember(own.get(), L"printToFocusedWindow"));
    const com_ptr<IDispatch> model(own.tryAs<IDispatch>(__uuidof(_ModelUtil)));
    EXPECT_EQ(automation::call(model, L"GetDevLanguage").type(), VT_BSTR);
    EXPECT_EQ(automation::call(model, L"GetDevLanguage").asText(), L"3");
    EXPECT_TRUE(automation::hasMember(model.get(), L"GetDevLanguage"));
    EXPECT_FALSE(automation::hasMember(model.get(), L"printToFocusedWindow"));
}

TEST(EmptyModelUtil, everyOperation_givesTheEmptyValue)
{
    const ModelUtil model(com_ptr<_ModelUtil>(makeObject<EmptyModelUtil>().get()));
    EXPECT_EQ(model.GetDevLanguage(), L"");
    EXPECT_FALSE(model.existsDataEnvObjs());
    EXPECT_NO_THROW(model.insertSQLCode(L"select 1", {1, 1, 2, 2}, L"Project1", L"a.sql"));
}

TEST(ModelUtil, missingObject_isError91)
{
    try {
        ModelUtil().GetDevLanguage();
        FAIL() << "no error";
    } catch (const Error& error) {
        EXPECT_EQ(error.number(), errorObjectNotSet);
    }
}

} // namespace
} // namespace velk
