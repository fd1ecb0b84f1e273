#pragma once

#include <string>
#include <string_view>

namespace velk {

// A name as SQL text: as it is where that means the same, otherwise in double quotes, with quotes in it doubled. Names
// are quoted that
// - are no ordinary identifier (letters of any alphabet, 0 to 9, _, $ and #, and no digit in front),
// - are a word of SQL itself, such as ORDER,
// - have both capitals and small letters: unquoted, a database that folds identifiers would take another name for them,
//   whichever way it folds.
std::wstring sqlName(std::wstring_view name);

// "schema.name", or the name alone for an object without a schema; empty for one without a name.
std::wstring qualifiedName(std::wstring_view schema, std::wstring_view name);

// Collects the text of several objects: their qualified names in a line, separated by a comma and a blank.
class DraggedNames {
public:
    void add(std::wstring_view schema, std::wstring_view name);
    const std::wstring& text() const noexcept { return m_text; }

private:
    std::wstring m_text;
};

} // namespace velk
