#include "ui/RZfrmAbout.h"

#include "backend/texts.h"
#include "ui/captions.h"
#include "ui/formFont.h"
#include "ui/messageBox.h"

namespace velk {
namespace {

using enum DialogControl;
using Form = RZfrmAbout;

// clang-format off
constexpr DialogRow rows[] = {
    {Form::lblTitle,       label,           0,  14,  12, 196,  28},
    {Form::lblVersion,     label,         604,  14,  46, 196,  10},
    {Form::lblDescription, label,           0,  14,  62, 196,  38},
    {Form::cmdClose,       defaultButton, 601,  84, 108,  56,  14},
};
// clang-format on
constexpr DialogLayout layout{224, 130, rows};
constexpr int iconResource = 117;

// Lines of a label, joined by a single line feed.
std::wstring lines(std::initializer_list<int32_t> numbers)
{
    std::wstring text;
    for (const int32_t number : numbers)
        text += (number == *numbers.begin() ? L"" : L"\n") + getRZString(number);
    return text;
}

} // namespace

void RZfrmAbout::Form_Load()
{
    load(dialogOwner(), layout, formFont());
    setCaption(getRZString(600));
    setIcon(iconResource);
    setCaptions(*this, rows);
    setText(lblTitle, lines({602, 603}));
    setText(lblDescription, lines({605, 606, 607}));
}

void RZfrmAbout::cmdClose_Click()
{
    unload();
}

void RZfrmAbout::onCommand(int id, int)
{
    // Enter on the default button says OK where the button itself is not pressed.
    if (id == cmdClose || id == IDOK)
        cmdClose_Click();
}

void showAboutBox()
{
    RZfrmAbout about;
    about.Form_Load();
    about.showModal();
}

} // namespace velk
