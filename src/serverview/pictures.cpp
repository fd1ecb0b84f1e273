#include "serverview/pictures.h"

#include "serverview/folderKinds.h"

namespace velk {

std::vector<std::wstring> imageKeys()
{
    std::vector<std::wstring> keys{folderPicture, filteredFolderPicture, connectedPicture, disconnectedPicture};
    for (const FolderKindRow& row : folderKindRows())
        for (const wchar_t* key : {row.pictures.plain, row.pictures.dirty})
            if (key)
                keys.emplace_back(key);
    return keys;
}

} // namespace velk
