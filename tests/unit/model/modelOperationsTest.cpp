#include "com/bstr.h"
#include "com/string_arrays.h"
#include "ideWithWindows.h"
#include "model/ModelUtilVI.h"

#include <array>
#include <gtest/gtest.h>

namespace velk {
namespace {

using Journal = test::FakeObject::Journal;
using Texts = std::vector<std::wstring>;

// One of everything that the operations take by reference, and the place of a result.
struct Values {
    Values() = default;
    Values(const Values&) = delete;
    Values& operator=(const Values&) = delete;
    ~Values() { SafeArrayDestroy(list); }
    BSTR* text(size_t index) { return texts.at(index).ref(); }
    Texts all() const
    {
        Texts shown = textsOf(list);
        for (const bstr& text : texts)
            shown.push_back(text.text());
        for (const long number : numbers)
            shown.push_back(std::to_wstring(number));
        return shown;
    }

    std::array<bstr, 6> texts{bstr(L"a"), bstr(L"b"), bstr(L"c"), bstr(L"d"), bstr(L"e"), bstr(L"f")};
    std::array<long, 4> numbers{1, 2, 3, 4};
    SAFEARRAY* list = arrayOf({L"one", L"two"});
    bstr result;
};

struct OperationRow {
    const char* name;
    HRESULT (*run)(_ModelUtil& model, Values& with);
    const wchar_t* emptyResult; // of the interface's own class
    const wchar_t* result;      // of Visual InterDev's
};

HRESULT existsDataEnvObjs(_ModelUtil& model, Values& with)
{
    VARIANT_BOOL exist = VARIANT_TRUE;
    const HRESULT answer = model.existsDataEnvObjs(&exist);
    with.result = bstr(exist ? L"True" : L"False");
    return answer;
}

// clang-format off
constexpr OperationRow operations[] = { // in slot order
    {"insertClientCode",
     [](_ModelUtil& model, Values& with) {
         return model.insertClientCode(with.text(0), with.text(1), with.text(2)); }, L"", L""},
    {"insertSQLCode",
     [](_ModelUtil& model, Values& with) {
         return model.insertSQLCode(with.text(0), &with.numbers[0], &with.numbers[1], &with.numbers[2],
                                    &with.numbers[3], with.text(1), with.text(2)); }, L"", L""},
    {"addADOConnection",
     [](_ModelUtil& model, Values& with) {
         return model.addADOConnection(with.text(0), with.text(1), with.text(2), with.text(3)); }, L"", L""},
    {"AddADOCommand",
     [](_ModelUtil& model, Values& with) {
         return model.AddADOCommand(&with.numbers[0], with.text(0), with.text(1), with.text(2), with.text(3),
                                    with.text(4)); }, L"", L""},
    {"existsDataEnvObjs", existsDataEnvObjs, L"False", L"False"},
    {"getProjList",
     [](_ModelUtil& model, Values& with) { return model.getProjList(&with.list); }, L"", L""},
    {"getDataEnvList",
     [](_ModelUtil& model, Values& with) { return model.getDataEnvList(&with.list, with.text(0)); }, L"", L""},
    {"getConnectionList",
     [](_ModelUtil& model, Values& with) {
         return model.getConnectionList(&with.list, with.text(0), with.text(1)); }, L"", L""},
    {"getActiveProjName",
     [](_ModelUtil& model, Values& with) { return model.getActiveProjName(with.result.put()); }, L"", L""},
    {"getSelectedcompName",
     [](_ModelUtil& model, Values& with) { return model.getSelectedcompName(with.result.put()); }, L"", L""},
    {"GetDevLanguage",
     [](_ModelUtil& model, Values& with) { return model.GetDevLanguage(with.result.put()); }, L"", L"3"},
    {"saveRZFileName",
     [](_ModelUtil& model, Values& with) { return model.saveRZFileName(with.texts[0].get()); }, L"", L""},
};
// clang-format on
static_assert(std::size(operations) == 12);

class ModelOperationsTest : public testing::TestWithParam<OperationRow> {};

TEST_P(ModelOperationsTest, interfacesOwnClass_doesNothingAndGivesTheEmptyValue)
{
    Values with;
    const Texts before = with.all();
    EXPECT_EQ(GetParam().run(*makeObject<EmptyModelUtil>().get(), with), S_OK);
    EXPECT_EQ(with.all(), before);
    EXPECT_EQ(with.result.text(), GetParam().emptyResult);
}

TEST_P(ModelOperationsTest, visualInterDevsModel_leavesArgumentsAndIdeAlone)
{
    Journal journal;
    Values with;
    const Texts before = with.all();
    const auto model = makeObject<ModelUtilVI>();
    model->putref_VIInstance(test::ideWithWindows({5}, &journal).get());
    journal.clear();
    EXPECT_EQ(GetParam().run(*model.get(), with), S_OK);
    EXPECT_EQ(with.all(), before);
    EXPECT_EQ(with.result.text(), GetParam().result);
    EXPECT_EQ(journal, Journal{});
}

INSTANTIATE_TEST_SUITE_P(All, ModelOperationsTest, testing::ValuesIn(operations),
                         [](const auto& tested) { return std::string(tested.param.name); });

} // namespace
} // namespace velk
