#include "serverview/manyObjects.h"

#include "base/text.h"
#include "scc/VSSAPI.h"
#include "serverview/objectKeys.h"
#include "ui/messageBox.h"
#include "ui/ownTexts.h"

#include <utility>

namespace velk {
namespace {

using enum MenuItem;

// So many sources open without a question: each is a window of the editor.
constexpr size_t mostWindows = 10;

bool opensWindows(MenuItem item) noexcept
{
    return item == devObjViewSrcMnuItem || item == devObjEditSrcMnuItem;
}

bool isWanted(MenuItem item, size_t objects)
{
    if (!opensWindows(item) || objects <= mostWindows)
        return true;
    std::wstring question = ownTexts::openManySources;
    question.replace(question.find(L"%1"), 2, numberText(static_cast<int32_t>(objects)));
    return showMessage(question, MB_YESNO | MB_ICONQUESTION) == IDYES;
}

} // namespace

void doForMany(const MenuRow& row, Choice choice, Objects objects,
               const std::function<bool(const Choice::Object&)>& isThere)
{
    std::erase_if(objects, [&](const Choice::Object& object) { return !isThere(object); });
    if (objects.empty() || !isWanted(row.item, objects.size()))
        return;
    const bool isOfFiles = row.menu == PopupMenu::devObjScmMnuItem;
    const uint32_t cancelled = cancelledBoxes();
    bool isFileMissed = false;
    for (Choice::Object& object : objects) {
        if (choice.life.isOver() || cancelledBoxes() != cancelled)
            return;
        const bool hasNoFile = isOfFiles && fileOfTag(object.tag).empty();
        if (!isThere(object) || (hasNoFile && std::exchange(isFileMissed, true)))
            continue; // gone, or what there is to say was said of another one
        choice.object = std::move(object);
        row.command(choice);
        if (isOfFiles && !hasNoFile && !isSourceSafeOpen())
            return; // each of the others would say the same
    }
}

} // namespace velk
