#include "devkit/sourcesafe/collection.h"

#include "devkit/sourcesafe/VSSItem.h"

#include <cwchar>

namespace velk::devkit::vss {
namespace {

class Collection : public WithMembers<Collection, VssObject> {
public:
    Collection(std::vector<variant> items, std::vector<std::wstring> names)
        : m_items(std::move(items)), m_names(std::move(names))
    {
    }
    static std::span<const Member<Collection>> members();

    const std::vector<variant>& items() const { return m_items; }
    variant named(const std::wstring& name) const
    {
        for (size_t index = 0; index < m_names.size(); ++index)
            if (_wcsicmp(m_names[index].c_str(), name.c_str()) == 0)
                return m_items[index];
        throw failure(Code::notFound, L"\"" + name + L"\" does not exist.");
    }
    variant numbered(int32_t number) const
    {
        if (number < 1 || static_cast<size_t>(number) > m_items.size())
            throw Error(errorSubscript);
        return m_items[static_cast<size_t>(number) - 1];
    }

private:
    std::vector<variant> m_items;
    std::vector<std::wstring> m_names;
};

variant count(Collection& collection, const CallArguments&)
{
    return variant(static_cast<int32_t>(collection.items().size()));
}

variant item(Collection& collection, const CallArguments& arguments)
{
    if (copyOf(arguments.raw(0)).type() == VT_BSTR)
        return collection.named(arguments.text(0));
    return collection.numbered(arguments.number(0, 0));
}

variant newEnum(Collection& collection, const CallArguments&)
{
    return enumerationOf(collection.items());
}

// clang-format off
constexpr Member<Collection> rows[] = {
    {L"Item",     item,    nullptr, L"sItem", DISPID_VALUE},
    {L"Count",    count,   nullptr, L"",      1},
    {L"_NewEnum", newEnum, nullptr, L"",      DISPID_NEWENUM},
};
// clang-format on

class VersionObject : public WithMembers<VersionObject, VssObject> {
public:
    VersionObject(std::shared_ptr<OpenDatabase> owner, Place where, Version one)
        : session(std::move(owner)), file(std::move(where)), version(std::move(one))
    {
    }
    static std::span<const Member<VersionObject>> members();

    const std::shared_ptr<OpenDatabase> session;
    const Place file;
    const Version version;
};

variant number(VersionObject& object, const CallArguments&)
{
    return variant(object.version.number);
}

variant user(VersionObject& object, const CallArguments&)
{
    return textVariant(object.version.user);
}

variant comment(VersionObject& object, const CallArguments&)
{
    return textVariant(object.version.comment);
}

variant fileThen(VersionObject& object, const CallArguments&)
{
    return itemVariant(object.session, object.file, object.version.number);
}

// clang-format off
constexpr Member<VersionObject> versionRows[] = {
    {L"VersionNumber", number},
    {L"Username",      user},
    {L"Comment",       comment},
    {L"VSSItem",       fileThen},
};
// clang-format on

std::span<const Member<Collection>> Collection::members()
{
    return rows;
}

std::span<const Member<VersionObject>> VersionObject::members()
{
    return versionRows;
}

} // namespace

variant collectionOf(std::vector<variant> items, std::vector<std::wstring> names)
{
    return asVariant(makeObject<Collection>(std::move(items), std::move(names)).get());
}

variant versionsOf(const std::shared_ptr<OpenDatabase>& session, const Place& file)
{
    std::vector<variant> versions;
    for (const Version& version : session->store.versionsOf(file))
        versions.insert(versions.begin(), asVariant(makeObject<VersionObject>(session, file, version).get()));
    return collectionOf(std::move(versions));
}

} // namespace velk::devkit::vss
