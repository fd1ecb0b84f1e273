#include "sources.h"

#include "serverview/folderKinds.h"
#include "serverview/menuRows.h"

#include <gmock/gmock.h>
#include <map>

namespace velk::test {
namespace {

struct Text {
    int parameters;
    std::string english;
    bool operator==(const Text&) const = default;
};

const std::map<int, Text> table{
#define RZ_TEXT(number, parameters, english, where) {number, {parameters, english}},
#include "sdk/texts.inc"
#undef RZ_TEXT
};

// Of the floors above the bridge.
std::string allSources()
{
    std::string all;
    WIN32_FIND_DATAW found{};
    for (const std::string floor : {"addin", "model", "notify", "scc", "serverview", "ui"}) {
        const std::wstring pattern = L"sources\\" + std::wstring(floor.begin(), floor.end()) + L"\\*.*";
        const HANDLE search = FindFirstFileW(pattern.c_str(), &found);
        EXPECT_NE(search, INVALID_HANDLE_VALUE) << floor;
        do {
            const std::wstring name = found.cFileName;
            all += sourceText(floor + "/" + std::string(name.begin(), name.end()));
        } while (FindNextFileW(search, &found));
        FindClose(search);
    }
    return all;
}

// What the product asks for: by its tables, and in the ways in which its sources name a text.
std::set<int> asked()
{
    std::set<int> numbers;
    for (const MenuRow& row : menuRows())
        numbers.insert(row.text);
    for (const FolderKindRow& row : folderKindRows()) {
        numbers.insert(row.nameText);
        numbers.insert(row.headers.begin(), row.headers.end());
    }
    // clang-format off
    constexpr const char* patterns[] = {
        "getRZString(#)", "Text = #;", "Caption = #;",
        "{#, noFace, L", "{#, @, L",
        "label, #,", "button, #,", "defaultButton, #,", "group, #,",
        "Texts {#, @, @}", "Texts {@, #, @}", "Texts {@, @, #}",
        "lines({#", "lines({@, #", "lines({@, @, #",
        "SQLText, #},", "ADOText, #},", "Removed, #},", "Added, #},", "DE, #},",
    };
    // clang-format on
    const std::string sources = allSources();
    for (const char* pattern : patterns)
        numbers.merge(numbersIn(sources, pattern));
    numbers.erase(noText);
    for (const int length : numbersIn(sources, "longestText = #;"))
        numbers.erase(length);
    return numbers;
}

TEST(Texts, ofTheTable_areThoseThatTheProductAsksFor)
{
    const std::set<int> numbers = asked();
    std::vector<int> neverAskedFor;
    for (const auto& [number, text] : table)
        if (!numbers.contains(number))
            neverAskedFor.push_back(number);
    std::vector<int> withoutARow;
    for (const int number : numbers)
        if (!table.contains(number))
            withoutARow.push_back(number);
    EXPECT_THAT(neverAskedFor, testing::IsEmpty());
    EXPECT_THAT(withoutARow, testing::IsEmpty());
}

TEST(Texts, ofTheTable_areTheStandInsWithTheirParameters)
{
    std::map<int, Text> standIn;
    std::istringstream lines(sourceText("texts.en.txt"));
    constexpr int firstOfTheToolsOwn = 700;
    for (std::string line; std::getline(lines, line);) {
        const size_t equals = line.find('=');
        if (line.starts_with("#") || equals == std::string::npos || std::stoi(line) >= firstOfTheToolsOwn)
            continue;
        const std::string text = line.substr(equals + 1);
        const bool hasSecond = text.find("%2") != std::string::npos;
        standIn[std::stoi(line)] = {hasSecond ? 2 : text.find("%1") != std::string::npos ? 1 : 0, text};
    }
    EXPECT_EQ(table.size(), standIn.size());
    for (const auto& [number, text] : standIn) {
        ASSERT_TRUE(table.contains(number)) << number;
        EXPECT_EQ(table.at(number).english, text.english);
        EXPECT_EQ(table.at(number).parameters, text.parameters) << number;
    }
}

TEST(Texts, withParameters_areThoseThatTheProductGivesSome)
{
    const std::string sources = allSources();
    for (const auto& [number, text] : table) {
        const bool isP1 = number == 675;
        const bool isP2 = number == 683;
        EXPECT_EQ(text.parameters, isP1 ? 1 : isP2 ? 2 : 0) << number;
    }
    EXPECT_THAT(sources, testing::HasSubstr("getRZStringP1(cannotHandleText,"));
    EXPECT_THAT(sources, testing::HasSubstr("cannotHandleText = 675;"));
    EXPECT_THAT(sources, testing::HasSubstr("getRZStringP2(noFileText,"));
    EXPECT_THAT(sources, testing::HasSubstr("noFileText = 683;"));
}

} // namespace
} // namespace velk::test
