// Tested in tests/forms/ui/RZfrmAboutTest.cpp.
#include "ui/formFont.h"

#include "ui/uiFont.h"

namespace velk {

DialogFont formFont()
{
    const UiFont& font = uiFont();
    return font.name.empty() ? DialogFont() : DialogFont{font.name, font.size, font.charset};
}

} // namespace velk
