#pragma once

#include "serverview/viewParts.h"

#include <string>

namespace velk {

// Rows of the list are dragged out of the view as a text: the names of their objects.
class RowDrag {
public:
    explicit RowDrag(const ViewParts& parts) noexcept : m_parts(parts) {}

    // The message by which the owner carries a drag out.
    static constexpr UINT message = WM_APP + 1;

    // The list tells that the user has begun to drag a row: the names of the selected rows are copied in the order
    // shown, and the owner gets the message. The drag waits for it because its end may find the list gone, inside which
    // this is said.
    void begin(HWND owner, const NMLISTVIEW& pressed);
    // Comes back when the text is dropped or the drag ended; this object and all of the view may be gone then.
    void carryOut();

private:
    const ViewParts& m_parts;
    std::wstring m_text; // to be dragged
};

} // namespace velk
