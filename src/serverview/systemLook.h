#pragma once

#include "base/unique_any.h"
#include "serverview/viewParts.h"
#include "window/image_list.h"

namespace velk {

// What the system's settings say of the look of the view's panes: pictures in the size of its small icons, the font
// where the tool names none, colours.
class SystemLook {
public:
    explicit SystemLook(ViewParts& parts) noexcept : m_parts(parts) {}

    // Gives both panes the pictures for small icons of a width in pixels.
    void setPictures(int smallIconWidth);
    // Gives both panes the UI font.
    void setFont();
    // The pictures; their place stays when they are exchanged for those of another size. Null before the first are set.
    const ImageList* ImageList1() const noexcept { return m_images.get(); }

    // The system's colours or measures are others: tells the windows in the view, and makes anew what was made from
    // them.
    void follow(HWND view, UINT message, WPARAM wParam, LPARAM lParam);

private:
    void useFont(unique_font font);

    ViewParts& m_parts;
    std::unique_ptr<ImageList> m_images;
    int m_pictureSize = 0;
    unique_font m_font; // null before the set-up
};

} // namespace velk
