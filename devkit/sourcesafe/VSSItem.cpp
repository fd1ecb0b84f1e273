#include "devkit/sourcesafe/VSSItem.h"

#include "devkit/sourcesafe/collection.h"
#include "devkit/sourcesafe/files.h"

#include <cwchar>

namespace velk::devkit::vss {
namespace {

constexpr int32_t typeProject = 0;
constexpr int32_t typeFile = 1;
constexpr int32_t flagReplaceWritable = 192; // the mask of the four answers
constexpr int32_t replaceWritable = 128;
constexpr int32_t flagKeepYes = 0x20000;

bool replacesWritable(int32_t flags)
{
    return (flags & flagReplaceWritable) == replaceWritable;
}

variant spec(VSSItem& item, const CallArguments&)
{
    return textVariant(item.place.spec);
}

variant name(VSSItem& item, const CallArguments&)
{
    return textVariant(item.place.name);
}

variant type(VSSItem& item, const CallArguments&)
{
    return variant(item.place.isProject ? typeProject : typeFile);
}

variant localSpec(VSSItem& item, const CallArguments&)
{
    return textVariant(item.localSpec());
}

void setLocalSpec(VSSItem& item, const CallArguments& arguments)
{
    if (!item.place.isProject)
        throw failure(Code::wantProject,
                      L"A working folder is set for a project, and \"" + item.place.spec + L"\" is a file.");
    item.session->store.setWorkingFolder(item.place, item.session->user, files::fullPath(arguments.text(0)));
}

variant versionNumber(VSSItem& item, const CallArguments&)
{
    return variant(item.versionNumber());
}

variant isCheckedOut(VSSItem& item, const CallArguments&)
{
    constexpr int32_t nobody = 0, another = 1, me = 2;
    const std::optional<CheckOut> holder = item.session->store.checkOutOf(item.place);
    if (!holder)
        return variant(nobody);
    return variant(_wcsicmp(holder->user.c_str(), item.session->user.c_str()) == 0 ? me : another);
}

// The argument asks for deleted items too; there are none.
variant items(VSSItem& item, const CallArguments&)
{
    std::vector<variant> children;
    std::vector<std::wstring> names;
    for (const Place& place : item.session->store.childrenOf(item.place)) {
        children.push_back(itemVariant(item.session, place));
        names.push_back(place.name);
    }
    return collectionOf(std::move(children), std::move(names));
}

variant newSubproject(VSSItem& item, const CallArguments& arguments)
{
    return itemVariant(item.session, item.session->store.addProject(item.place, arguments.text(0)));
}

variant add(VSSItem& item, const CallArguments& arguments)
{
    const Place made = item.session->store.addFile(item.place, files::fullPath(arguments.text(0)), item.session->user,
                                                   arguments.text(1));
    return itemVariant(item.session, made);
}

// The local file gets the item's content and becomes read-only. A writable file stays as it is unless told otherwise.
variant get(VSSItem& item, const CallArguments& arguments)
{
    const std::wstring local = item.localPath(arguments.text(0));
    const std::string content = item.session->store.contentOf(item.place, item.versionNumber());
    if (files::isFile(local) && !files::isReadOnly(local) && !replacesWritable(arguments.number(1, 0)))
        return {};
    files::makeFolder(files::folderOf(local));
    files::replace(local, content);
    files::setReadOnly(local, true);
    return {};
}

// Places of the arguments: the comment, the local path, the flags.
variant checkOut(VSSItem& item, const CallArguments& arguments)
{
    item.session->store.checkOut(item.place, item.session->user, item.localPath(arguments.text(1)),
                                 replacesWritable(arguments.number(2, 0)));
    return {};
}

variant checkIn(VSSItem& item, const CallArguments& arguments)
{
    item.session->store.checkIn(item.place, item.session->user, arguments.text(1), arguments.text(0),
                                (arguments.number(2, 0) & flagKeepYes) != 0);
    return {};
}

variant undoCheckOut(VSSItem& item, const CallArguments& arguments)
{
    item.session->store.undoCheckOut(item.place, item.session->user, arguments.text(0));
    return {};
}

variant versions(VSSItem& item, const CallArguments&)
{
    return versionsOf(item.session, item.place);
}

variant versionAt(VSSItem& item, const CallArguments& arguments)
{
    const int32_t number = arguments.number(0, item.versionNumber());
    item.session->store.contentOf(item.place, number);
    return itemVariant(item.session, item.place, number);
}

// clang-format off
constexpr Member<VSSItem> rows[] = {
    {L"Spec",          spec,          nullptr,      L"",                      1},
    {L"Type",          type,          nullptr,      L"",                      4},
    {L"LocalSpec",     localSpec,     setLocalSpec, L"",                      5},
    {L"Name",          name,          nullptr,      L"",                      6},
    {L"VersionNumber", versionNumber, nullptr,      L"",                      8},
    {L"Items",         items,         nullptr,      L"IncludeDeleted",        9},
    {L"Get",           get,           nullptr,      L"Local iFlags",         10},
    {L"Checkout",      checkOut,      nullptr,      L"Comment Local iFlags", 11},
    {L"Checkin",       checkIn,       nullptr,      L"Comment Local iFlags", 12},
    {L"UndoCheckout",  undoCheckOut,  nullptr,      L"Local iFlags",         13},
    {L"IsCheckedOut",  isCheckedOut,  nullptr,      L"",                     14},
    {L"Add",           add,           nullptr,      L"Local Comment iFlags", 17},
    {L"NewSubproject", newSubproject, nullptr,      L"Name Comment",         18},
    {L"Versions",      versions,      nullptr,      L"iFlags",               23},
    {L"Version",       versionAt,     nullptr,      L"Version",              24},
};
// clang-format on

} // namespace

std::span<const Member<VSSItem>> VSSItem::members()
{
    return rows;
}

std::wstring VSSItem::localSpec() const
{
    if (place.isProject)
        return session->store.workingFolder(place, session->user);
    const Place project = session->store.find(place.spec.substr(0, place.spec.rfind(L'/') + 1));
    const std::wstring folder = session->store.workingFolder(project, session->user);
    return folder.empty() ? folder : files::join(folder, place.name);
}

std::wstring VSSItem::localPath(const std::wstring& argument) const
{
    const std::wstring path = argument.empty() ? localSpec() : argument;
    if (path.empty())
        throw failure(Code::noLocalFile, L"\"" + place.spec + L"\" has no working folder.");
    return files::fullPath(path);
}

int32_t VSSItem::versionNumber() const
{
    return version ? version : session->store.versionsOf(place).back().number;
}

variant itemVariant(const std::shared_ptr<OpenDatabase>& session, const Place& place, int32_t version)
{
    return asVariant(makeObject<VSSItem>(session, place, version).get());
}

} // namespace velk::devkit::vss
