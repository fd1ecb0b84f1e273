#include "devkit/backend/projectFile.h"

#include "devkit/backend/systemFile.h"
#include "devkit/base/words.h"

#include <algorithm>

namespace velk::devkit {
namespace {

bool truth(const std::wstring& value, int line)
{
    if (value != L"yes" && value != L"no")
        throw ProjectFileError(line, L"\"" + value + L"\" is neither yes nor no");
    return value == L"yes";
}

// A section that is being read: its heading's line, and what its values go into.
struct Section {
    std::wstring name;
    int line = 0;
};

using Setter = void (*)(ProjectFile&, const std::wstring& value, int line);
struct ValueRow {
    std::wstring_view section, name;
    Setter set;
};

// clang-format off
constexpr ValueRow valueRows[] = {
    {L"project",    L"name",       [](ProjectFile& p, const std::wstring& v, int) { p.name = v; }},
    {L"project",    L"filter",     [](ProjectFile& p, const std::wstring& v, int) { p.filter = v; }},
    {L"connection", L"name",       [](ProjectFile& p, const std::wstring& v, int) { p.connections.back().name = v; }},
    {L"connection", L"odbc",       [](ProjectFile& p, const std::wstring& v, int) { p.connections.back().odbc = v; }},
    {L"procedure",  L"file",       [](ProjectFile& p, const std::wstring& v, int) { p.procedures.back().file = v; }},
    {L"procedure",  L"connection", [](ProjectFile& p, const std::wstring& v, int) { p.procedures.back().connection = v; }},
    {L"procedure",  L"debug",      [](ProjectFile& p, const std::wstring& v, int l) { p.procedures.back().debug = truth(v, l); }},
    {L"function",   L"file",       [](ProjectFile& p, const std::wstring& v, int) { p.functions.back().file = v; }},
    {L"function",   L"connection", [](ProjectFile& p, const std::wstring& v, int) { p.functions.back().connection = v; }},
    {L"function",   L"debug",      [](ProjectFile& p, const std::wstring& v, int l) { p.functions.back().debug = truth(v, l); }},
};
// clang-format on

void begin(ProjectFile& project, const Section& section)
{
    if (section.name == L"connection")
        project.connections.emplace_back();
    else if (section.name == L"procedure")
        project.procedures.emplace_back();
    else if (section.name == L"function")
        project.functions.emplace_back();
    else if (section.name != L"project")
        throw ProjectFileError(section.line, L"there is no section [" + section.name + L"]");
}

void requireConnection(const ProjectFile& project, const ProjectRoutine& routine, int line)
{
    if (routine.file.empty())
        throw ProjectFileError(line, L"the section has no line file=");
    const auto named = [&](const ProjectConnection& connection) { return connection.name == routine.connection; };
    if (!routine.connection.empty() && std::none_of(project.connections.begin(), project.connections.end(), named))
        throw ProjectFileError(line, L"there is no connection " + routine.connection + L" above this section");
}

// What must stand in a section, seen when it ends.
void finish(const ProjectFile& project, const Section& section)
{
    if (section.name == L"connection") {
        const ProjectConnection& made = project.connections.back();
        if (made.name.empty() || made.odbc.empty())
            throw ProjectFileError(section.line, L"a connection needs the lines name= and odbc=");
        const auto same = [&](const ProjectConnection& other) { return other.name == made.name; };
        if (std::count_if(project.connections.begin(), project.connections.end(), same) > 1)
            throw ProjectFileError(section.line, L"there are two connections named " + made.name);
    } else if (section.name == L"procedure") {
        requireConnection(project, project.procedures.back(), section.line);
    } else if (section.name == L"function") {
        requireConnection(project, project.functions.back(), section.line);
    }
}

void setValue(ProjectFile& project, const Section& section, const std::wstring& line, int number)
{
    const size_t equals = line.find(L'=');
    const std::wstring name = trimmed(line.substr(0, equals));
    const auto* const row = std::find_if(std::begin(valueRows), std::end(valueRows), [&](const ValueRow& candidate) {
        return candidate.section == section.name && candidate.name == name;
    });
    if (equals == std::wstring::npos || row == std::end(valueRows))
        throw ProjectFileError(number, L"\"" + line + L"\" is not understood");
    row->set(project, trimmed(line.substr(equals + 1)), number);
}

} // namespace

ProjectFile parseProject(std::string_view bytes)
{
    ProjectFile project;
    Section section;
    for (int number = 1; !bytes.empty(); ++number) {
        const size_t end = bytes.find('\n');
        const auto decoded = fromUtf8Strictly(bytes.substr(0, end));
        bytes.remove_prefix(end == std::string_view::npos ? bytes.size() : end + 1);
        if (!decoded)
            throw ProjectFileError(number, L"the line is not UTF-8 text");
        const std::wstring line = trimmed(*decoded, L" \t\r\n\xFEFF");
        if (line.empty() || line.front() == L'#')
            continue;
        if (line.front() == L'[' && line.back() == L']') {
            finish(project, section);
            section = {line.substr(1, line.size() - 2), number};
            begin(project, section);
        } else {
            setValue(project, section, line, number);
        }
    }
    finish(project, section);
    return project;
}

std::string projectText(const ProjectFile& project)
{
    std::wstring text = L"# A Rozel project. Paths are relative to this file.\n[project]\nname=" + project.name +
                        L"\nfilter=" + project.filter + L"\n";
    for (const ProjectConnection& connection : project.connections)
        text += L"\n[connection]\nname=" + connection.name + L"\nodbc=" + connection.odbc + L"\n";
    const auto add = [&text](const wchar_t* section, const std::vector<ProjectRoutine>& routines) {
        for (const ProjectRoutine& routine : routines) {
            text += L"\n[" + std::wstring(section) + L"]\nfile=" + routine.file + L"\n";
            if (!routine.connection.empty())
                text += L"connection=" + routine.connection + L"\n";
            if (routine.debug)
                text += L"debug=yes\n";
        }
    };
    add(L"procedure", project.procedures);
    add(L"function", project.functions);
    return toUtf8(text);
}

} // namespace velk::devkit
