#include "base/module.h"
#include "devkit/backend/systemFile.h"
#include "devkit/backend/texts.h"

#include <gmock/gmock.h>

namespace velk::test {
namespace {

// Every number that the add-in asks for.
// clang-format off
constexpr int32_t asked[] = {
    100, 101, 200, 201, 202, 203, 204, 206, 207, 208, 209, 210, 211, 212, 213, 219,
    300, 301, 302, 303, 304, 305, 306, 314,
    400, 401, 405, 406, 407, 408, 409, 410, 412, 413, 414, 415, 416, 418, 421, 424, 426, 427, 428, 429, 430,
    431, 432, 433, 434, 438, 439, 440, 443, 444, 445,
    500, 501, 502, 503, 504, 505, 506, 507, 508, 509, 510, 511, 512, 513, 514,
    515, 516, 517, 518, 519, 520, 521, 522, 523, 524, 525, 526, 527, 528, 529, 530, 531, 532,
    600, 601, 602, 603, 604, 605, 606, 607, 610, 611,
    641, 642, 643, 644, 645, 646, 647, 655, 656, 657, 658, 659, 660, 669, 670, 671, 675, 681, 682, 683,
};
// clang-format on

devkit::TextTable tableOf(const std::wstring& language)
{
    const auto bytes = devkit::readBytes(module::folder() + L"\\texts." + language + L".txt");
    return devkit::TextTable(bytes ? devkit::fromUtf8(*bytes) : std::wstring());
}

class TextNumbers : public testing::TestWithParam<int32_t> {};

TEST_P(TextNumbers, number_askedForByTheAddIn_hasAText)
{
    EXPECT_TRUE(tableOf(L"en").has(GetParam()));
}

INSTANTIATE_TEST_SUITE_P(All, TextNumbers, testing::ValuesIn(asked));

struct Language {
    const wchar_t* name;
    UINT codePage;
};

class Translations : public testing::TestWithParam<Language> {
protected:
    const devkit::TextTable english = tableOf(L"en");
    const devkit::TextTable table = tableOf(GetParam().name);
};

// What a text shows of the parameters, in their order by number.
std::wstring parametersOf(const devkit::TextTable& table, int32_t number)
{
    const std::wstring text = table.text(number, {L"\x1", L"\x2", L"\x3", L"\x4"});
    std::wstring shown;
    for (const wchar_t character : {L'\x1', L'\x2', L'\x3', L'\x4'})
        if (text.find(character) != std::wstring::npos)
            shown += character;
    return shown;
}

TEST_P(Translations, everyText_isThereWithItsParameters)
{
    constexpr int32_t last = 999;
    for (int32_t number = 1; number <= last; ++number) {
        EXPECT_EQ(table.has(number), english.has(number)) << number;
        EXPECT_EQ(parametersOf(table, number), parametersOf(english, number)) << number;
    }
}

TEST_P(Translations, everyText_comesThroughTheCodePage)
{
    for (int32_t number = 1; number <= 999; ++number) {
        const std::wstring text = table.text(number);
        if (text.empty())
            continue;
        BOOL lost = FALSE;
        std::string bytes(text.size() * 2, '\0');
        const int length =
            WideCharToMultiByte(GetParam().codePage, WC_NO_BEST_FIT_CHARS, text.data(), static_cast<int>(text.size()),
                                bytes.data(), static_cast<int>(bytes.size()), nullptr, &lost);
        EXPECT_GT(length, 0) << number;
        EXPECT_FALSE(lost) << number;
    }
}

std::string nameOfLanguage(const testing::TestParamInfo<Language>& info)
{
    return "codePage" + std::to_string(info.param.codePage);
}

INSTANTIATE_TEST_SUITE_P(All, Translations, testing::Values(Language{L"ja", 932}, Language{L"zh", 936}),
                         nameOfLanguage);

} // namespace
} // namespace velk::test
