#include "base/error.h"
#include "window/send_keys.h"

#include <gmock/gmock.h>

namespace velk {
namespace {

using testing::ElementsAre;

KeyStroke character(wchar_t value)
{
    return {0, value, false, false, false};
}
KeyStroke key(WORD value)
{
    return {value, 0, false, false, false};
}
KeyStroke shifted(KeyStroke stroke)
{
    stroke.shift = true;
    return stroke;
}
KeyStroke controlled(KeyStroke stroke)
{
    stroke.control = true;
    return stroke;
}
KeyStroke withAlt(KeyStroke stroke)
{
    stroke.alt = true;
    return stroke;
}
int32_t failureOf(const wchar_t* text)
{
    try {
        parseKeys(text);
    } catch (const Error& error) {
        return error.number();
    }
    return 0;
}

TEST(ParseKeys, plainCharacters_areThemselves)
{
    EXPECT_THAT(parseKeys(L"a["), ElementsAre(character(L'a'), character(L'[')));
}

TEST(ParseKeys, modifier_holdsForTheNextKeyOnly)
{
    EXPECT_THAT(parseKeys(L"+EC"), ElementsAre(shifted(character(L'E')), character(L'C')));
}

TEST(ParseKeys, modifierBeforeAGroup_holdsForAllOfIt)
{
    EXPECT_THAT(parseKeys(L"+(EC)x"), ElementsAre(shifted(character(L'E')), shifted(character(L'C')), character(L'x')));
}

TEST(ParseKeys, modifiers_areStacked)
{
    EXPECT_THAT(parseKeys(L"^+{F4}"), ElementsAre(controlled(shifted(key(VK_F4)))));
}

TEST(ParseKeys, modifierInsideAGroup_addsToTheGroups)
{
    EXPECT_THAT(parseKeys(L"^(a+b)"), ElementsAre(controlled(character(L'a')), controlled(shifted(character(L'b')))));
}

TEST(ParseKeys, tilde_isEnter)
{
    EXPECT_THAT(parseKeys(L"~{ENTER}"), ElementsAre(key(VK_RETURN), key(VK_RETURN)));
}

TEST(ParseKeys, names_haveNoCase)
{
    EXPECT_THAT(parseKeys(L"{bs}{PgDn}{f16}"), ElementsAre(key(VK_BACK), key(VK_NEXT), key(VK_F16)));
}

TEST(ParseKeys, count_repeatsTheKey)
{
    EXPECT_THAT(parseKeys(L"{LEFT 3}"), ElementsAre(key(VK_LEFT), key(VK_LEFT), key(VK_LEFT)));
    EXPECT_EQ(parseKeys(L"{h 10}").size(), 10u);
    EXPECT_EQ(parseKeys(L"{F 4}").size(), 4u);
}

TEST(ParseKeys, braces_makeSpecialCharactersPlain)
{
    EXPECT_THAT(parseKeys(L"{+}{^}{%}{~}{(}{)}{[}{]}{{}{}}"),
                ElementsAre(character(L'+'), character(L'^'), character(L'%'), character(L'~'), character(L'('),
                            character(L')'), character(L'['), character(L']'), character(L'{'), character(L'}')));
}

TEST(ParseKeys, emptyText_isNoKey)
{
    EXPECT_TRUE(parseKeys(L"").empty());
}

TEST(ParseKeys, badSyntax_isErrorFive)
{
    for (const wchar_t* text : {L"{", L"{}", L"{ENTER", L"(ab", L"ab)", L"}", L"{ELEPHANT}", L"{LEFT x}", L"{LEFT -1}",
                                L"{LEFT }", L"+", L"{LEFT 123456}", L"(+)", L"((a)", L"(a))"})
        EXPECT_EQ(failureOf(text), errorInvalidCall) << text;
}

TEST(ParseKeys, groupInsideAGroup_addsToItUntilItsEnd)
{
    EXPECT_THAT(parseKeys(L"^(+(a)b)c"),
                ElementsAre(controlled(shifted(character(L'a'))), controlled(character(L'b')), character(L'c')));
}

TEST(ParseKeys, emptyGroup_isNoKey)
{
    EXPECT_THAT(parseKeys(L"+()a"), ElementsAre(character(L'a')));
}

// More than the stack could hold if each took some of it.
TEST(ParseKeys, anyNumberOfOpenGroups_isErrorFive)
{
    EXPECT_EQ(failureOf(std::wstring(200000, L'(').c_str()), errorInvalidCall);
    EXPECT_EQ(failureOf(std::wstring(200000, L'+').c_str()), errorInvalidCall);
}

TEST(ParseKeys, groupsOfAnyDepth_areRead)
{
    const std::wstring text = L"%" + std::wstring(200000, L'(') + L"a" + std::wstring(200000, L')');
    EXPECT_THAT(parseKeys(text), ElementsAre(withAlt(character(L'a'))));
}

} // namespace
} // namespace velk
