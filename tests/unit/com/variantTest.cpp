#include "com/variant.h"

#include "base/error.h"
#include "support/fakeObject.h"
#include "support/memorySearch.h"

#include <gtest/gtest.h>

namespace velk {
namespace {

TEST(variantValue, constructors_chooseTheWireType)
{
    EXPECT_EQ(variant().type(), VT_EMPTY);
    EXPECT_EQ(variant(int16_t{13}).type(), VT_I2);
    EXPECT_EQ(variant(int32_t{13}).type(), VT_I4);
    EXPECT_EQ(variant(true).get().boolVal, VARIANT_TRUE);
    EXPECT_EQ(variant(L"a").type(), VT_BSTR);
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

constexpr std::wstring_view veiledSecret = L"A-text-that-is-veiled-in-a-test-of-variants-and-long-enough";
// The system writes its own into the beginning of a block that is given back: only the end tells.
constexpr std::wstring_view veiledEnd = veiledSecret.substr(veiledSecret.size() - 20);

std::wstring unveiled()
{
    std::wstring text(veiledSecret);
    for (wchar_t& character : text)
        character = static_cast<wchar_t>(character ^ 1);
    return text;
}

TEST(variantSecret, whenItGoes_isZeroedAndItsCopiesToo)
{
    {
        std::wstring text = unveiled();
        const variant secret = variant::secret(text);
        const variant copy = secret;
        variant moved = variant(secret);
        SecureZeroMemory(text.data(), text.size() * sizeof(wchar_t));
        EXPECT_EQ(test::copiesInMemory(veiledEnd), 3u);
        EXPECT_EQ(SysStringLen(copy.get().bstrVal), veiledSecret.size());
        *moved.put() = VARIANT{};
    }
    EXPECT_EQ(test::copiesInMemory(veiledEnd), 0u);
}

} // namespace
} // namespace velk
