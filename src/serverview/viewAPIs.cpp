#include "serverview/viewAPIs.h"

#include "base/boundary.h"
#include "base/text.h"
#include "serverview/folderKinds.h"
#include "serverview/publishedView.h"

namespace velk {
namespace {

constexpr wchar_t where[] = L"viewAPIs";
constexpr wchar_t why[] = L"the view keeps what it shows";

const wchar_t* pictureKeyOf(const trzConnection& connection)
{
    return connection.bConnected ? connectedPicture : disconnectedPicture;
}

bool areShown(int32_t objectKind)
{
    const FolderKindRow* folder = folderKindRow(kindOf(publishedTree().selected()));
    return folder && folder->objectKind() == objectKind;
}

// Of a row; no row has a key that is written in another way than makeKey's.
int32_t handleOfRow(const std::wstring& key)
{
    const int32_t handle = keyToHandle(key);
    if (makeKey(handle) != key)
        throw Error(errorElementNotFound);
    return handle;
}

} // namespace

int32_t kindOf(const TreeNode* node)
{
    return node ? kindOfTag(node->tag) : kindNone;
}

void addFolderNode(const std::wstring& parentKey, const std::wstring& tag, const std::wstring& key,
                   std::wstring_view text, const std::wstring& isRoot) noexcept
{
    swallow(where, why, [&] {
        const bool asRoot = isRoot == booleanText(true);
        if (asRoot)
            publishedTree().clear();
        TreeNode node{key, tag, std::wstring(text), pictureOf(folderPicture)};
        if (asRoot)
            publishedTree().addRoot(std::move(node));
        else
            publishedTree().add(parentKey, std::move(node));
    });
}

void addConnectionNode(const std::wstring& projectKey, const trzConnection& connection) noexcept
{
    swallow(where, why, [&] {
        publishedTree().add(projectKey, {makeKey(connection.lHdl), kindTag(kindConnection), connection.strDatabase,
                                         pictureOf(pictureKeyOf(connection))});
    });
}

void removeNode(const std::wstring& key) noexcept
{
    swallow(where, why, [&] { publishedTree().remove(key); });
}

void setFolderFiltered(const std::wstring& key, bool filtered) noexcept
{
    swallow(where, why,
            [&] { publishedTree().setImage(key, pictureOf(filtered ? filteredFolderPicture : folderPicture)); });
}

void updateProjectNode(const trzProject& project) noexcept
{
    swallow(where, why, [&] {
        const std::wstring key = makeKey(project.lHdl);
        if (!publishedTree().has(key))
            return;
        if (publishedTree().node(key).text != project.strName)
            publishedTree().setText(key, project.strName);
        publishedView().IMgr.setRZFileName(project.strPath);
    });
}

void updateConnectionNode(const trzConnection& connection) noexcept
{
    swallow(where, why, [&] {
        const std::wstring key = makeKey(connection.lHdl);
        if (!publishedTree().has(key))
            return;
        if (publishedTree().node(key).text != connection.strDatabase)
            publishedTree().setText(key, connection.strDatabase);
        publishedTree().setImage(key, pictureOf(pictureKeyOf(connection)));
        publishedView().notice->refresh();
    });
}

void expandSelected() noexcept
{
    swallow(where, why, [] {
        if (const TreeNode* node = publishedTree().selected())
            publishedTree().expand(node->key);
    });
}

bool selectedNodeKindIs(int32_t kind) noexcept
{
    bool is = false;
    swallow(where, why, [&] {
        const TreeNode* node = publishedTree().selected();
        is = node && kindOf(node) == kind;
    });
    return is;
}

void removeListRow(const std::wstring& objectKind, const std::wstring& key) noexcept
{
    swallow(where, why, [&] {
        if (areShown(kindOfTag(objectKind)))
            publishedList().remove(handleOfRow(key));
    });
}

void removeListRow(int32_t objectKind, int32_t handle) noexcept
{
    swallow(where, why, [&] {
        if (areShown(objectKind))
            publishedList().remove(handle);
    });
}

} // namespace velk
