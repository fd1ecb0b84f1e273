#include "ui/uiFont.h"

#include <gtest/gtest.h>

namespace velk {
namespace {

TEST(fontCharset, firstDoubleByteName_is136)
{
    EXPECT_EQ(fontCharset(L"\u00CB\u00CE\u00CC\u00E5"), 136);
}

TEST(fontCharset, secondDoubleByteName_is128)
{
    const std::wstring name =
        L"\u0082\u006C\u0082\u0072\u0020\u0082\u006F\u0083\u0053\u0083\u0056\u0083\u0062\u0083\u004E";
    EXPECT_EQ(fontCharset(name), 128);
}

TEST(fontCharset, thirdDoubleByteName_is129)
{
    EXPECT_EQ(fontCharset(L"\u00B7\u0073\u00B2\u00D3\u00A9\u00FA\u00C5\u00E9"), 129);
}

TEST(fontCharset, fourthDoubleByteName_is134)
{
    EXPECT_EQ(fontCharset(L"\u00B1\u00BC\u00B8\u00B2"), 134);
}

TEST(fontCharset, otherName_is1)
{
    EXPECT_EQ(fontCharset(L"MS Sans Serif"), 1);
    EXPECT_EQ(fontCharset(L""), 1);
}

TEST(fontCharset, beginningOfAName_is1)
{
    EXPECT_EQ(fontCharset(L"\u00CB\u00CE\u00CC"), 1);
}

TEST(fontCharset, otherLetterCase_is1)
{
    EXPECT_EQ(fontCharset(L"\u00B7\u0053\u00B2\u00D3\u00A9\u00FA\u00C5\u00E9"), 1);
}

TEST(makeFont, namedFont_hasNameSizeAndCharset)
{
    const unique_font font = makeFont({L"Tahoma", 12, 204});
    LOGFONTW description{};
    GetObjectW(font.get(), sizeof description, &description);
    EXPECT_STREQ(description.lfFaceName, L"Tahoma");
    EXPECT_EQ(description.lfHeight, -16); // 12 points at 96 dpi
    EXPECT_EQ(description.lfCharSet, 204);
}

} // namespace
} // namespace velk
