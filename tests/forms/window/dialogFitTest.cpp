#include "window/dialog_fit.h"

#include "base/unique_any.h"

#include <gtest/gtest.h>

namespace velk {
namespace {

// A form with one control of each kind that shows a text.
class TextForm : public Dialog {
public:
    enum Control : int { label = 100, note, field, button, group };
    TextForm()
    {
        static constexpr DialogRow rows[] = {
            {label, DialogControl::label, 0, 10, 10, 60, 9},   {field, DialogControl::edit, 0, 80, 10, 60, 13},
            {note, DialogControl::label, 0, 10, 30, 130, 18},  {button, DialogControl::button, 0, 90, 60, 50, 14},
            {group, DialogControl::group, 0, 10, 80, 130, 40},
        };
        load(nullptr, {150, 130, rows}, {});
    }

protected:
    void onCommand(int, int) override { hide(); }
};

class DialogFitTest : public testing::Test {
protected:
    static RECT innerOf(HWND window)
    {
        RECT inner{};
        GetClientRect(window, &inner);
        return inner;
    }
    int width() const { return innerOf(form.hwnd()).right; }
    SIZE sizeOf(int control) const
    {
        const RECT inner = innerOf(form.item(control));
        return {inner.right, inner.bottom};
    }
    int leftOf(int control) const
    {
        RECT place{};
        GetWindowRect(form.item(control), &place);
        MapWindowPoints(nullptr, form.hwnd(), reinterpret_cast<POINT*>(&place), 2);
        return place.left;
    }
    // What a text takes in a control, wrapped into the control's width or in one line.
    SIZE textIn(int control, UINT format = DT_WORDBREAK) const
    {
        const unique_screen_dc dc(GetDC(nullptr));
        const HGDIOBJ before =
            SelectObject(dc.get(), reinterpret_cast<HFONT>(SendMessageW(form.item(control), WM_GETFONT, 0, 0)));
        RECT size{0, 0, sizeOf(control).cx, 0};
        DrawTextW(dc.get(), form.text(control).c_str(), -1, &size, DT_CALCRECT | format);
        SelectObject(dc.get(), before);
        return {size.right, size.bottom};
    }
    int needed(int control) const { return static_cast<int>(textIn(control).cx); }
    bool isWhole(int control) const
    {
        return textIn(control).cx <= sizeOf(control).cx && textIn(control).cy <= sizeOf(control).cy;
    }
    // Sets a control's text, 0 being the form's title, and fits the form.
    void say(int control, const std::wstring& text)
    {
        SetWindowTextW(control == 0 ? form.hwnd() : form.item(control), text.c_str());
        form.fit();
    }

    TextForm form;
    const int widthBefore = width();
    const int fieldBefore = leftOf(TextForm::field);
};

TEST_F(DialogFitTest, textsWithRoom_leaveTheFormAsItIsLaidOut)
{
    say(TextForm::label, L"Name");
    say(TextForm::button, L"Close");
    EXPECT_EQ(width(), widthBefore);
    EXPECT_EQ(leftOf(TextForm::field), fieldBefore);
}

TEST_F(DialogFitTest, labelWithoutRoom_widensTheFormUntilItIsWhole)
{
    say(TextForm::label, L"A label that wants more room");
    EXPECT_TRUE(isWhole(TextForm::label));
    EXPECT_GT(width(), widthBefore);
    EXPECT_LE(sizeOf(TextForm::label).cx, needed(TextForm::label) * 2);
    EXPECT_GE(leftOf(TextForm::field), leftOf(TextForm::label) + sizeOf(TextForm::label).cx);
}

TEST_F(DialogFitTest, labelOfTwoLines_usesBothBeforeTheFormIsWidened)
{
    say(TextForm::note, L"A note that fits into the two lines that it has");
    EXPECT_EQ(width(), widthBefore);
    say(TextForm::note,
        L"A note that does not fit into the two lines, because it goes on and on and then on again, to no "
        L"end that anybody would want to wait for");
    EXPECT_GT(width(), widthBefore);
    EXPECT_TRUE(isWhole(TextForm::note));
}

TEST_F(DialogFitTest, buttonAndGroup_keepRoomBesideTheirTexts)
{
    say(TextForm::button, L"A long button's caption");
    EXPECT_GT(sizeOf(TextForm::button).cx, textIn(TextForm::button, DT_SINGLELINE).cx);
    say(TextForm::group, L"A long caption of a group, longer than the caption of the button in the same form");
    EXPECT_GT(sizeOf(TextForm::group).cx, textIn(TextForm::group, DT_SINGLELINE).cx);
}

TEST_F(DialogFitTest, titleWithoutRoom_widensTheForm)
{
    say(0, L"A title that is longer than anything that the form itself shows");
    EXPECT_GT(width(), widthBefore);
}

TEST_F(DialogFitTest, hiddenText_needsNoRoom)
{
    form.show(TextForm::label, false);
    say(TextForm::label, L"A label that would want more room");
    EXPECT_EQ(width(), widthBefore);
}

TEST_F(DialogFitTest, shorterTexts_bringTheLaidOutWidthBack)
{
    say(TextForm::label, L"A label that wants more room");
    say(TextForm::label, L"Name");
    EXPECT_EQ(width(), widthBefore);
    EXPECT_EQ(leftOf(TextForm::field), fieldBefore);
}

TEST_F(DialogFitTest, textWiderThanTheScreen_widensTheFormAsFarAsThatGoes)
{
    say(TextForm::label, std::wstring(3000, L'x'));
    RECT outer{};
    GetWindowRect(form.hwnd(), &outer);
    EXPECT_GT(width(), widthBefore);
    EXPECT_LE(outer.right - outer.left, GetSystemMetrics(SM_CXSCREEN));
}

TEST_F(DialogFitTest, formThatIsShown_isFitted)
{
    SetWindowTextW(form.item(TextForm::label), L"A label that wants more room");
    PostMessageW(form.hwnd(), WM_COMMAND, TextForm::button, 0);
    form.showModal();
    EXPECT_GT(width(), widthBefore);
}

} // namespace
} // namespace velk
