#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace velk::devkit {

// The tool's texts by number, of one language.
class TextTable {
public:
    // Lines "number=text"; "\n" in a text is a line feed, %1 to %9 are parameters, # begins a comment line.
    explicit TextTable(std::wstring_view lines);

    bool has(int32_t number) const { return m_texts.contains(number); }
    // Empty when there is no such text. Each parameter mark is replaced once; what a parameter holds is left alone.
    std::wstring text(int32_t number, const std::vector<std::wstring>& parameters = {}) const;

private:
    std::map<int32_t, std::wstring> m_texts;
};

// A text in double quotes, those in it doubled: a literal of the client's language, and a name in SQL.
std::wstring quoted(const std::wstring& text);

// The texts of the file named by the environment variable VELK_BACKEND_TEXTS, else those built into this module.
TextTable loadTexts();

} // namespace velk::devkit
