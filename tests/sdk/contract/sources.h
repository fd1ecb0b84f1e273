#pragma once

#include <algorithm>
#include <fstream>
#include <set>
#include <sstream>
#include <string>

namespace velk::test {

// A source of the product, or a document, as it was when this was built.
inline std::string sourceText(const std::string& name)
{
    std::ostringstream text;
    text << std::ifstream("sources/" + name, std::ios::binary).rdbuf();
    return text.str();
}

// The numbers that stand where "#" is in a pattern; "@" is another number, and a blank any number of blanks.
inline std::set<int> numbersIn(const std::string& text, const std::string& pattern)
{
    const auto past = [&text](const char* characters, size_t place) {
        return std::min(text.find_first_not_of(characters, place), text.size());
    };
    std::set<int> found;
    for (size_t start = text.find(pattern.front()); start != std::string::npos;
         start = text.find(pattern.front(), start + 1)) {
        size_t place = start;
        std::string wanted;
        bool fits = true;
        for (const char mark : pattern) {
            const size_t end = mark == ' ' ? past(" \n", place) : past("0123456789", place);
            if (mark == '#')
                wanted = text.substr(place, end - place);
            if (mark == '#' || mark == '@')
                fits = fits && end > place;
            else if (mark != ' ')
                fits = fits && place < text.size() && text[place] == mark;
            place = mark == ' ' || mark == '#' || mark == '@' ? end : place + 1;
            if (!fits)
                break;
        }
        if (fits)
            found.insert(std::stoi(wanted));
    }
    return found;
}

} // namespace velk::test
