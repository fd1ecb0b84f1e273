#include "com/com_ptr.h"

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

} // namespace
} // namespace velk
