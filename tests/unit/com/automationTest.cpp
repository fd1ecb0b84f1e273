#include "com/automation.h"

#include "com/com_object.h"
#include "support/fakeObject.h"

#include <gmock/gmock.h>

namespace velk {
namespace {

using test::fakeObject;

// Takes every member under its number 1, and keeps how it was used last.
class Recorder : public ComObject<Recorder, IDispatch> {
public:
    STDMETHODIMP GetTypeInfoCount(UINT*) noexcept override { return E_NOTIMPL; }
    STDMETHODIMP GetTypeInfo(UINT, LCID, ITypeInfo**) noexcept override { return E_NOTIMPL; }
    STDMETHODIMP GetIDsOfNames(REFIID, LPOLESTR*, UINT count, LCID, DISPID* ids) noexcept override
    {
        for (UINT index = 0; index < count; ++index)
            ids[index] = static_cast<DISPID>(index) + 1;
        return S_OK;
    }
    STDMETHODIMP Invoke(DISPID, REFIID, LCID, WORD how, DISPPARAMS* parameters, VARIANT*, EXCEPINFO*,
                        UINT*) noexcept override
    {
        flags = how;
        values.clear();
        for (UINT index = 0; index < parameters->cArgs; ++index)
            values.push_back(parameters->rgvarg[index].lVal);
        names.assign(parameters->rgdispidNamedArgs, parameters->rgdispidNamedArgs + parameters->cNamedArgs);
        return S_OK;
    }

    WORD flags = 0;
    std::vector<LONG> values;
    std::vector<DISPID> names;
};

class AutomationTest : public testing::Test {
protected:
    com_ptr<Recorder> recorder = makeObject<Recorder>();
    com_ptr<IDispatch> object{recorder.get()};
};

TEST_F(AutomationTest, reading_asksForPropertyAndMethod)
{
    automation::get(object, L"Count");
    EXPECT_EQ(recorder->flags, DISPATCH_PROPERTYGET | DISPATCH_METHOD);
}

TEST_F(AutomationTest, assignments_tellValueFromReference)
{
    automation::put(object, L"Caption", variant(int32_t{7}));
    EXPECT_EQ(recorder->flags, DISPATCH_PROPERTYPUT);
    EXPECT_THAT(recorder->names, testing::ElementsAre(DISPID_PROPERTYPUT));
    automation::putRef(object, L"IMgr", nullptr);
    EXPECT_EQ(recorder->flags, DISPATCH_PROPERTYPUTREF);
}

TEST_F(AutomationTest, arguments_goBackwardsBehindTheNamedOnes)
{
    automation::call(object, L"Add", {{variant(int32_t{1}), variant(int32_t{2})}, {{L"x", variant(int32_t{3})}}});
    EXPECT_THAT(recorder->values, testing::ElementsAre(3, 2, 1));
    EXPECT_THAT(recorder->names, testing::ElementsAre(2));
}

// The error of a use, as "number: description, source".
template <class Use>
std::wstring errorOf(Use use)
{
    try {
        use();
    } catch (const Error& error) {
        return std::to_wstring(error.number()) + L": " + error.description() + L", " + error.source();
    }
    return L"none";
}

TEST(automation, missingObject_isError91)
{
    EXPECT_EQ(errorOf([] { automation::get(nullptr, L"Count"); }),
              L"91: Object variable or With block variable not set, velkviadd");
}

TEST(automation, unknownMember_isError438)
{
    const com_ptr<IDispatch> object(fakeObject(L"Bar").get());
    EXPECT_EQ(errorOf([&] { automation::get(object, L"Elephant"); }),
              L"438: Object doesn't support this property or method, velkviadd");
}

// Fails as automation servers do: with an exception record.
class Failing : public Recorder {
public:
    STDMETHODIMP Invoke(DISPID, REFIID, LCID, WORD, DISPPARAMS*, VARIANT*, EXCEPINFO* exception,
                        UINT*) noexcept override
    {
        exception->wCode = 1004;
        exception->bstrDescription = SysAllocString(L"The bar is locked");
        exception->bstrSource = SysAllocString(L"Host");
        return DISP_E_EXCEPTION;
    }
};

TEST(automation, failureInsideAMember_keepsNumberDescriptionAndSource)
{
    const com_ptr<IDispatch> object(static_cast<Recorder*>(new Failing));
    EXPECT_EQ(errorOf([&] { automation::call(object, L"Add"); }), L"1004: The bar is locked, Host");
}

TEST(automation, classThatIsNotThere_isError429)
{
    EXPECT_EQ(errorOf([] { automation::createObject(L"velkviadd.Elephant"); }),
              L"429: ActiveX component can't create object, velkviadd");
}

} // namespace
} // namespace velk
