#include "serverview/viewAPIs.h"

#include "base/boundary.h"
#include "base/never_destroyed.h"
#include "base/text.h"
#include "serverview/kinds.h"
#include "serverview/publishedView.h"

namespace velk {
namespace {

constexpr wchar_t where[] = L"viewAPIs";
constexpr wchar_t why[] = L"the view keeps what it shows";

constexpr wchar_t folderImage[] = L"RZFolder";
constexpr wchar_t filteredFolderImage[] = L"FilteredRZFolder";
constexpr wchar_t connectionTag[] = L"6";
constexpr int32_t nothingSelected = -1;

tree_view& tree()
{
    if (!publishedView().serverTreeView)
        throw Error(errorObjectNotSet);
    return *publishedView().serverTreeView;
}

int imageOf(const wchar_t* key)
{
    if (!publishedView().ImageList1)
        throw Error(errorObjectNotSet);
    return publishedView().ImageList1->indexOf(key);
}

const wchar_t* connectionImage(const trzConnection& connection)
{
    return connection.bConnected ? L"ConnectedConnection" : L"DisconnectedConnection";
}

int32_t selectedKind()
{
    const TreeNode* node = tree().selected();
    return node ? roundToLong(leadingNumber(node->tag)) : nothingSelected;
}

} // namespace

PublishedView& publishedView()
{
    static never_destroyed<PublishedView> view;
    return view.get();
}

std::wstring makeKey(int32_t handle)
{
    return L"K" + numberText(handle);
}

int32_t keyToHandle(const std::wstring& key)
{
    // The error for a corrupt key has always been raised with a text where its number belongs. Converting that text is
    // what fails, so callers get a type mismatch; they rely on it.
    if (!key.starts_with(L'K'))
        return textToLong(L"curreptud key");
    return roundToLong(leadingNumber(std::wstring_view(key).substr(1)));
}

void addFolderNode(const std::wstring& parentKey, const std::wstring& tag, const std::wstring& key,
                   const std::wstring& text, const std::wstring& isRoot) noexcept
{
    swallow(where, why, [&] {
        const bool asRoot = isRoot == booleanText(true);
        if (asRoot)
            tree().clear();
        TreeNode node{key, tag, text, imageOf(folderImage)};
        if (asRoot)
            tree().addRoot(std::move(node));
        else
            tree().add(parentKey, std::move(node));
    });
}

void addConnectionNode(const std::wstring& projectKey, const trzConnection& connection) noexcept
{
    swallow(where, why, [&] {
        tree().add(projectKey, {makeKey(connection.lHdl), connectionTag, connection.strDatabase,
                                imageOf(connectionImage(connection))});
    });
}

void removeNode(const std::wstring& key) noexcept
{
    swallow(where, why, [&] { tree().remove(key); });
}

void setFolderFiltered(const std::wstring& key, bool filtered) noexcept
{
    swallow(where, why, [&] { tree().setImage(key, imageOf(filtered ? filteredFolderImage : folderImage)); });
}

void updateProjectNode(const trzProject& project) noexcept
{
    swallow(where, why, [&] {
        const std::wstring key = makeKey(project.lHdl);
        if (!tree().has(key))
            return;
        if (tree().node(key).text != project.strName)
            tree().setText(key, project.strName);
        publishedView().IMgr.setRZFileName(project.strPath);
    });
}

void updateConnectionNode(const trzConnection& connection) noexcept
{
    swallow(where, why, [&] {
        const std::wstring key = makeKey(connection.lHdl);
        if (!tree().has(key))
            return;
        if (tree().node(key).text != connection.strDatabase)
            tree().setText(key, connection.strDatabase);
        tree().setImage(key, imageOf(connectionImage(connection)));
    });
}

void expandSelected() noexcept
{
    swallow(where, why, [] {
        if (const TreeNode* node = tree().selected())
            tree().expand(node->key);
    });
}

bool selectedNodeKindIs(int32_t kind) noexcept
{
    bool is = false;
    swallow(where, why, [&] { is = tree().selected() && selectedKind() == kind; });
    return is;
}

void removeListRow(const std::wstring& objectKind, const std::wstring& key) noexcept
{
    swallow(where, why, [&] {
        const FolderKindRow* folder = folderKindRow(selectedKind());
        if (folder && folder->objectKind == textToLong(objectKind) && publishedView().serverDetailsView)
            publishedView().serverDetailsView->remove(key);
    });
}

} // namespace velk
