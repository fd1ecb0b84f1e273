#include "window/dialog_template.h"

#include <gmock/gmock.h>

namespace velk {
namespace {

// Where the font stands in the template of a form without a caption: size, weight, italic with the character set.
std::vector<WORD> fontOf(const DialogFont& font)
{
    constexpr size_t beforeTheFont = 16; // words
    const std::vector<WORD> words = dialogTemplate({100, 40, {}}, font);
    return {words.begin() + beforeTheFont, words.end()};
}

TEST(DialogTemplate, font_isGivenWithSizeAndCharacterSet)
{
    EXPECT_THAT(fontOf({L"Ab", 9, SHIFTJIS_CHARSET}),
                testing::ElementsAre(9, FW_NORMAL, SHIFTJIS_CHARSET << 8, L'A', L'b', 0));
}

TEST(DialogTemplate, noFont_isTheSystemsDialogFont)
{
    const std::vector<WORD> words = fontOf({});
    EXPECT_THAT(words, testing::SizeIs(3 + 12 + 1));
    EXPECT_EQ(std::wstring(words.begin() + 3, words.end() - 1), L"MS Shell Dlg");
}

} // namespace
} // namespace velk
