#include "platform/bstr.h"
#include "platform/com_ptr.h"
#include "platform/error.h"
#include "platform/unique_any.h"
#include "platform/variant.h"
#include "support/fakeObject.h"

#include <gtest/gtest.h>

namespace velk {
namespace {

// An object that counts its references.
struct Counted : IUnknown {
    ULONG references = 1;
    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** out) override
    {
        *out = iid == IID_IUnknown ? this : nullptr;
        return *out ? (AddRef(), S_OK) : E_NOINTERFACE;
    }
    ULONG STDMETHODCALLTYPE AddRef() override { return ++references; }
    ULONG STDMETHODCALLTYPE Release() override { return --references; }
};

TEST(comPtr, copiesAndScopes_countEachHolderOnce)
{
    Counted object;
    {
        const com_ptr<IUnknown> first(&object);
        const com_ptr<IUnknown> second = first;
        EXPECT_EQ(object.references, 3u);
        EXPECT_TRUE(first == second);
    }
    EXPECT_EQ(object.references, 1u);
}

TEST(comPtr, moveAttachAndDetach_doNotCount)
{
    Counted object;
    com_ptr<IUnknown> first;
    first.attach(&object);
    com_ptr<IUnknown> second = std::move(first);
    EXPECT_FALSE(first);
    EXPECT_EQ(second.detach(), &object);
    EXPECT_EQ(object.references, 1u);
}

TEST(comPtr, put_releasesWhatWasHeld)
{
    Counted object;
    com_ptr<IUnknown> holder(&object);
    EXPECT_EQ(*holder.put(), nullptr);
    EXPECT_EQ(object.references, 1u);
}

TEST(comPtr, tryAs_givesOnlyWhatTheObjectHas)
{
    Counted object;
    const com_ptr<IUnknown> holder(&object);
    EXPECT_TRUE(holder.tryAs<IUnknown>());
    EXPECT_FALSE(holder.tryAs<IDispatch>());
    EXPECT_FALSE(com_ptr<IUnknown>().tryAs<IUnknown>());
    EXPECT_EQ(object.references, 2u);
}

TEST(bstrText, embeddedNul_isKept)
{
    const std::wstring text(L"a\0b", 3);
    EXPECT_EQ(bstr(text).view(), text);
    EXPECT_EQ(bstr(bstr(text)).text(), text);
}

TEST(bstrText, nullString_readsAsEmpty)
{
    EXPECT_EQ(bstr::viewOf(nullptr), L"");
}

TEST(assignBstr, textHeldBefore_isReplaced)
{
    BSTR target = SysAllocString(L"old");
    assignBstr(&target, L"new");
    EXPECT_EQ(bstr::viewOf(target), L"new");
    SysFreeString(target);
}

TEST(variantValue, constructors_chooseTheWireType)
{
    EXPECT_EQ(variant().type(), VT_EMPTY);
    EXPECT_EQ(variant(int16_t{13}).type(), VT_I2);
    EXPECT_EQ(variant(int32_t{13}).type(), VT_I4);
    EXPECT_EQ(variant(true).get().boolVal, VARIANT_TRUE);
    EXPECT_EQ(variant(L"a").type(), VT_BSTR);
    EXPECT_TRUE(variant::missing().isMissing());
}

TEST(variantValue, conversions_followAutomation)
{
    EXPECT_EQ(variant(L"12").asLong(), 12);
    EXPECT_EQ(variant(int32_t{7}).asText(), L"7");
    EXPECT_EQ(variant(true).asText(), L"True");
    EXPECT_TRUE(variant(int16_t{5}).asBool());
    EXPECT_THROW(variant(L"x").asLong(), Error);
}

TEST(variantValue, copyAndMove_keepTheText)
{
    variant first(L"text");
    const variant copy = first;
    const variant moved = std::move(first);
    EXPECT_EQ(copy.asText(), L"text");
    EXPECT_EQ(moved.asText(), L"text");
    EXPECT_EQ(first.type(), VT_EMPTY);
}

TEST(variantValue, nothing_isNoObject)
{
    EXPECT_FALSE(variant().asObject());
    EXPECT_FALSE(variant(static_cast<IDispatch*>(nullptr)).asObject());
}

TEST(variantValue, objectBehindUnknownOrReference_isFound)
{
    const com_ptr<IDispatch> object(test::fakeObject(L"Bar").get());
    IDispatch* lent = object.get();
    VARIANT unknown{};
    unknown.vt = VT_UNKNOWN;
    unknown.punkVal = object.get();
    variant behind;
    VariantCopy(behind.put(), &unknown);
    EXPECT_EQ(behind.asObject().get(), object.get());
    EXPECT_EQ(variant::refTo(&lent).asObject().get(), object.get());
}

struct closing_traits : null_handle<int*> {
    static void close(int* count) noexcept { ++*count; }
};

TEST(uniqueAny, handedOnAndReset_closesOnce)
{
    int closed = 0;
    unique_any<closing_traits> first(&closed);
    unique_any<closing_traits> second(std::move(first));
    EXPECT_EQ(closed, 0);
    second.reset();
    second.reset();
    EXPECT_EQ(closed, 1);
}

TEST(scopeExit, endOfTheScope_runsTheFunction)
{
    int runs = 0;
    {
        const scope_exit atTheEnd([&] { ++runs; });
        EXPECT_EQ(runs, 0);
    }
    EXPECT_EQ(runs, 1);
}

} // namespace
} // namespace velk
