#include "serverview/RowDrag.h"

#include "base/boundary.h"
#include "com/drag_source.h"
#include "serverview/draggedNames.h"
#include "serverview/objectColumns.h"

#include <utility>

namespace velk {

// Not the pressed row counts but what is selected, as a press selects: other rows may have come under the pointer
// since.
void RowDrag::begin(HWND owner, const NMLISTVIEW& pressed)
{
    if (pressed.iItem < 0 || m_parts.life.isOver())
        return;
    DraggedNames names;
    for (const Row* row : m_parts.serverDetailsView->selectedRows())
        names.add(row->cell(schemaColumn), row->name());
    m_text = names.text();
    if (!m_text.empty())
        PostMessageW(owner, message, 0, 0);
}

void RowDrag::carryOut()
{
    const std::wstring text = std::exchange(m_text, {});
    // By now the button may be up again, without a message that would end the drag.
    if (text.empty() || m_parts.life.isOver() || GetKeyState(VK_LBUTTON) >= 0)
        return;
    swallow(L"row drag", L"nothing is dragged", [&] { dragText(text, Session(m_parts.life)); });
}

} // namespace velk
