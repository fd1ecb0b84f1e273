#include "devkit/sourcesafe/store.h"

#include "devkit/base/utf8.h"
#include "devkit/sourcesafe/failures.h"
#include "devkit/sourcesafe/files.h"

#include <algorithm>
#include <cwchar>

namespace velk::devkit::vss {
namespace {

constexpr wchar_t projectMark[] = L"p,";
constexpr wchar_t fileMark[] = L"f,";
constexpr wchar_t badCharacters[] = L"\\/:*?\"<>|;";
constexpr size_t longestName = 200;

// Whether the name can be that of an item (and of a folder of the system).
bool isGoodName(const std::wstring& name)
{
    return !name.empty() && name.size() <= longestName && name.front() != L'$' && name.back() != L'.' &&
           name.back() != L' ' && name.find_first_of(badCharacters) == std::wstring::npos &&
           std::none_of(name.begin(), name.end(), [](wchar_t character) { return character < L' '; });
}

bool hasVersion(const std::wstring& folder)
{
    return files::isFile(files::join(folder, L"1"));
}

std::vector<std::wstring> partsOf(const std::wstring& spec)
{
    if (spec.rfind(L"$/", 0) != 0 && spec != L"$")
        throw failure(Code::badSpec, L"\"" + spec + L"\" is not the name of an item: it does not begin with \"$/\".");
    std::vector<std::wstring> parts;
    for (size_t begin = 2; begin < spec.size();) {
        const size_t end = std::min(spec.find(L'/', begin), spec.size());
        parts.push_back(spec.substr(begin, end - begin));
        if (!isGoodName(parts.back()))
            throw failure(Code::badSpec, L"\"" + spec + L"\" is not the name of an item.");
        begin = end + 1;
    }
    return parts;
}

std::wstring childSpec(const Place& parent, const std::wstring& name)
{
    return (parent.name.empty() ? parent.spec : parent.spec + L"/") + name;
}

Place placeOf(const Place& parent, const std::wstring& kept)
{
    const std::wstring name = kept.substr(2);
    return {childSpec(parent, name), name, files::join(parent.folder, kept), kept.rfind(projectMark, 0) == 0};
}

std::wstring beside(const std::wstring& iniPath, const std::wstring& path)
{
    const bool isWhole = path.find(L':') != std::wstring::npos || path.rfind(L"\\", 0) == 0;
    return isWhole ? path : files::join(files::folderOf(iniPath), path);
}

} // namespace

Store::Store(const std::wstring& iniPath)
{
    if (iniPath.empty() || !files::isFile(iniPath))
        throw failure(Code::noIniFile, L"The database's file \"" + iniPath + L"\" cannot be found.");
    m_iniPath = files::fullPath(iniPath);
    m_name = files::nameOf(files::folderOf(m_iniPath));
    m_data = beside(m_iniPath, L"data");
    m_users = beside(m_iniPath, L"users.txt");
    for (const std::wstring& line : files::linesOf(files::readText(m_iniPath))) {
        const auto [key, value] = files::keyAndValue(line);
        if (key == L"Database_Name")
            m_name = value;
        else if (key == L"Data_Path")
            m_data = beside(m_iniPath, value);
        else if (key == L"Users_Txt")
            m_users = beside(m_iniPath, value);
    }
    if (!files::isFile(m_users) || !files::isFolder(m_data))
        throw failure(Code::corrupt,
                      L"The database \"" + m_name + L"\" is damaged: its users or its data are missing.");
}

std::wstring Store::logIn(const std::wstring& user, const std::wstring& password) const
{
    for (const std::wstring& line : files::linesOf(files::readText(m_users))) {
        const auto [name, secret] = files::keyAndValue(line);
        if (name.empty() || _wcsicmp(name.c_str(), user.c_str()) != 0)
            continue;
        if (secret != password)
            throw failure(Code::badPassword, L"The password for user \"" + name + L"\" is wrong.");
        return name;
    }
    throw failure(Code::noUser, L"User \"" + user + L"\" is not known in the database \"" + m_name + L"\".");
}

std::optional<Place> Store::lookUp(const Place& parent, const std::wstring& name) const
{
    for (const wchar_t* mark : {projectMark, fileMark})
        for (const std::wstring& kept : files::namesIn(parent.folder, mark + name))
            // A file without a version is what a stopped Add left behind. The pattern also meets short names.
            if (const Place place = placeOf(parent, kept);
                _wcsicmp(place.name.c_str(), name.c_str()) == 0 && (place.isProject || hasVersion(place.folder)))
                return place;
    return {};
}

Place Store::childOf(const Place& parent, const std::wstring& name) const
{
    if (const std::optional<Place> found = parent.isProject ? lookUp(parent, name) : std::nullopt)
        return *found;
    throw failure(Code::notFound, L"\"" + childSpec(parent, name) + L"\" does not exist.");
}

Place Store::find(const std::wstring& spec, const std::wstring& from) const
{
    Place place{L"$/", L"", m_data, true};
    const std::wstring whole = spec.rfind(L"$", 0) == 0 ? spec : from + (from.back() == L'/' ? L"" : L"/") + spec;
    for (const std::wstring& part : partsOf(whole))
        place = childOf(place, part);
    return place;
}

std::vector<Place> Store::childrenOf(const Place& project) const
{
    if (!project.isProject)
        throw failure(Code::wantProject, L"\"" + project.spec + L"\" is a file, not a project.");
    std::vector<Place> children;
    for (const wchar_t* mark : {projectMark, fileMark})
        for (const std::wstring& kept : files::namesIn(project.folder, std::wstring(mark) + L"*"))
            if (const Place place = placeOf(project, kept); place.isProject || hasVersion(place.folder))
                children.push_back(place);
    return children;
}

Place Store::addProject(const Place& parent, const std::wstring& name)
{
    if (!parent.isProject)
        throw failure(Code::wantProject, L"\"" + parent.spec + L"\" is a file, not a project.");
    if (!isGoodName(name))
        throw failure(Code::badName, L"\"" + name + L"\" cannot be the name of a project.");
    const files::Lock lock(lockPath());
    if (lookUp(parent, name))
        throw failure(Code::exists, L"\"" + childSpec(parent, name) + L"\" exists already.");
    const std::wstring kept = projectMark + name;
    files::makeFolder(files::join(parent.folder, kept));
    return placeOf(parent, kept);
}

std::wstring Store::lockPath() const
{
    return files::join(m_data, L"lock");
}

// One line for each user and project: "user|spec=folder". A folder set for a project counts below it too.
std::wstring Store::workingFolder(const Place& project, const std::wstring& user) const
{
    const std::wstring path = files::join(m_data, L"working.txt");
    if (!files::isFile(path))
        return {};
    std::wstring best;
    size_t bestLength = 0;
    for (const std::wstring& line : files::linesOf(files::readText(path))) {
        const auto [key, folder] = files::keyAndValue(line);
        const std::wstring spec = key.substr(std::min(key.size(), user.size() + 1));
        if (key != user + L"|" + spec || spec.empty() || spec.size() < bestLength)
            continue;
        if (project.spec == spec) {
            best = folder;
            bestLength = spec.size();
        } else if (const std::wstring above = spec.back() == L'/' ? spec : spec + L"/";
                   project.spec.rfind(above, 0) == 0) {
            best = folder;
            for (const std::wstring& part : partsOf(L"$/" + project.spec.substr(above.size())))
                best = files::join(best, part);
            bestLength = spec.size();
        }
    }
    return best;
}

void Store::setWorkingFolder(const Place& project, const std::wstring& user, const std::wstring& folder)
{
    const files::Lock lock(lockPath());
    const std::wstring path = files::join(m_data, L"working.txt");
    const std::wstring key = user + L"|" + project.spec;
    std::wstring text;
    if (files::isFile(path))
        for (const std::wstring& line : files::linesOf(files::readText(path)))
            text += files::keyAndValue(line).first == key ? L"" : line + L"\r\n";
    files::replace(path, toUtf8(text + key + L"=" + folder + L"\r\n"));
}

} // namespace velk::devkit::vss
