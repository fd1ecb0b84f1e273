// Tested in tests/forms/serverview/FolderReadingTest.cpp and filterStripTest.cpp.
#include "window/line_height.h"

#include "base/unique_any.h"

namespace velk {

int lineHeightOf(HFONT font) noexcept
{
    const unique_screen_dc screen(GetDC(nullptr));
    const HGDIOBJ before = SelectObject(screen.get(), font ? font : GetStockObject(SYSTEM_FONT));
    TEXTMETRICW metrics{};
    GetTextMetricsW(screen.get(), &metrics);
    SelectObject(screen.get(), before);
    return metrics.tmHeight;
}

int verticalUnits(int units, int lineHeight) noexcept
{
    constexpr int unitsOfALine = 8;
    return MulDiv(units, lineHeight, unitsOfALine);
}

} // namespace velk
