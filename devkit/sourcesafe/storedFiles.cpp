// The half of a database that keeps files: their versions, and who has them.

#include "devkit/base/utf8.h"
#include "devkit/sourcesafe/failures.h"
#include "devkit/sourcesafe/files.h"
#include "devkit/sourcesafe/store.h"

#include <algorithm>
#include <cwchar>

namespace velk::devkit::vss {
namespace {

std::wstring contentPath(const Place& file, int32_t version)
{
    return files::join(file.folder, std::to_wstring(version));
}

std::wstring notePath(const Place& file, int32_t version)
{
    return contentPath(file, version) + L".txt";
}

std::wstring checkOutPath(const Place& file)
{
    return files::join(file.folder, L"out.txt");
}

void requireFile(const Place& place)
{
    if (place.isProject)
        throw failure(Code::wantFile, L"\"" + place.spec + L"\" is a project, not a file.");
}

bool isNumber(const std::wstring& name)
{
    return name.find_first_not_of(L"0123456789") == std::wstring::npos;
}

int32_t newestOf(const Place& file)
{
    int32_t newest = 0;
    for (const std::wstring& name : files::namesIn(file.folder))
        if (isNumber(name))
            newest = std::max(newest, static_cast<int32_t>(std::wcstol(name.c_str(), nullptr, 10)));
    return newest;
}

std::string readLocal(const std::wstring& local)
{
    if (!files::isFile(local))
        throw failure(Code::noLocalFile, L"The file \"" + local + L"\" cannot be found.");
    return files::read(local);
}

// The content comes last: the version is there with its rename.
void addVersion(const Place& file, int32_t number, const std::wstring& user, const std::wstring& comment,
                const std::string& content)
{
    files::replace(notePath(file, number), toUtf8(user + L"\r\n" + comment));
    files::replace(contentPath(file, number), content);
}

void putLocal(const std::wstring& local, const std::string& content)
{
    files::makeFolder(files::folderOf(local));
    files::replace(local, content);
}

bool isSame(const std::wstring& user, const std::wstring& other)
{
    return _wcsicmp(user.c_str(), other.c_str()) == 0;
}

// The second half of a note: all after its first line.
std::wstring afterFirstLine(const std::wstring& text)
{
    const size_t end = text.find(L"\r\n");
    return end == std::wstring::npos ? std::wstring() : text.substr(end + 2);
}

} // namespace

Place Store::addFile(const Place& parent, const std::wstring& local, const std::wstring& user,
                     const std::wstring& comment)
{
    if (!parent.isProject)
        throw failure(Code::wantProject, L"\"" + parent.spec + L"\" is a file, not a project.");
    const std::string content = readLocal(local);
    const std::wstring name = files::nameOf(local);
    const files::Lock lock(lockPath());
    if (lookUp(parent, name))
        throw failure(Code::exists, L"\"" + name + L"\" exists already in \"" + parent.spec + L"\".");
    const std::wstring folder = files::join(parent.folder, L"f," + name);
    files::makeFolder(folder);
    addVersion({L"", name, folder, false}, 1, user, comment, content);
    files::setReadOnly(local, true);
    return childOf(parent, name);
}

std::vector<Version> Store::versionsOf(const Place& file) const
{
    requireFile(file);
    std::vector<Version> versions;
    for (int32_t number = 1; number <= newestOf(file); ++number) {
        if (!files::isFile(contentPath(file, number)) || !files::isFile(notePath(file, number)))
            throw failure(Code::corrupt, L"The file \"" + file.spec + L"\" is damaged: a version is missing.");
        const std::wstring note = files::readText(notePath(file, number));
        versions.push_back({number, files::linesOf(note).at(0), afterFirstLine(note)});
    }
    return versions;
}

std::string Store::contentOf(const Place& file, int32_t version) const
{
    requireFile(file);
    if (!files::isFile(contentPath(file, version)))
        throw failure(Code::notFound, L"\"" + file.spec + L"\" has no version " + std::to_wstring(version) + L".");
    return files::read(contentPath(file, version));
}

std::optional<CheckOut> Store::checkOutOf(const Place& file) const
{
    requireFile(file);
    if (!files::isFile(checkOutPath(file)))
        return {};
    const std::wstring record = files::readText(checkOutPath(file));
    return CheckOut{files::linesOf(record).at(0), afterFirstLine(record)};
}

CheckOut Store::ownCheckOut(const Place& file, const std::wstring& user) const
{
    const std::optional<CheckOut> holder = checkOutOf(file);
    if (!holder || !isSame(holder->user, user))
        throw failure(Code::notCheckedOut, L"\"" + file.spec + L"\" is not checked out by you.");
    return *holder;
}

void Store::checkOut(const Place& file, const std::wstring& user, const std::wstring& local, bool replacesWritable)
{
    requireFile(file);
    const files::Lock lock(lockPath());
    if (const std::optional<CheckOut> holder = checkOutOf(file)) {
        if (isSame(holder->user, user))
            throw failure(Code::checkedOutByYou, L"You have \"" + file.spec + L"\" checked out already.");
        throw failure(Code::checkedOutByAnother,
                      L"\"" + file.spec + L"\" is checked out by user \"" + holder->user + L"\".");
    }
    // Writable last: a writable copy without its check-out would look like somebody's work.
    if (replacesWritable || !files::isFile(local) || files::isReadOnly(local)) {
        putLocal(local, contentOf(file, newestOf(file)));
        files::setReadOnly(local, true);
    }
    files::replace(checkOutPath(file), toUtf8(user + L"\r\n" + files::fullPath(local)));
    files::setReadOnly(local, false);
}

void Store::checkIn(const Place& file, const std::wstring& user, const std::wstring& local, const std::wstring& comment,
                    bool keepsCheckOut)
{
    requireFile(file);
    const files::Lock lock(lockPath());
    const CheckOut holder = ownCheckOut(file, user);
    const std::wstring path = local.empty() ? holder.local : local;
    addVersion(file, newestOf(file) + 1, user, comment, readLocal(path));
    if (keepsCheckOut)
        return;
    files::remove(checkOutPath(file));
    files::setReadOnly(path, true);
}

void Store::undoCheckOut(const Place& file, const std::wstring& user, const std::wstring& local)
{
    requireFile(file);
    const files::Lock lock(lockPath());
    const CheckOut holder = ownCheckOut(file, user);
    const std::wstring path = local.empty() ? holder.local : local;
    putLocal(path, contentOf(file, newestOf(file)));
    files::remove(checkOutPath(file));
    files::setReadOnly(path, true);
}

} // namespace velk::devkit::vss
