#include "devkit/ide/toolbars.h"

#include "devkit/ide/looks.h"

namespace velk::devkit {
namespace {

constexpr int faceSize = 16;
constexpr int gap = 6;

bool hasVisibleControls(const CommandBar& bar)
{
    for (const auto& control : bar.controls)
        if (control->visible)
            return true;
    return false;
}

} // namespace

void ToolbarRow::rebuild(HWND window, const std::vector<com_ptr<CommandBar>>& bars)
{
    for (Shown& shown : m_shown)
        shown.window.reset();
    m_shown.clear();
    m_controls.clear();
    int left = gap;
    for (const auto& bar : bars)
        if (bar->type == barTypeNormal && bar->visible && hasVisibleControls(*bar.get()))
            left = addBar(window, *bar.get(), left) + gap;
}

int ToolbarRow::addBar(HWND window, const CommandBar& bar, int left)
{
    Shown shown;
    shown.faces.reset(ImageList_Create(faceSize, faceSize, ILC_COLOR24 | ILC_MASK, 4, 4));
    const DWORD style = WS_CHILD | WS_VISIBLE | CCS_NOPARENTALIGN | CCS_NORESIZE | CCS_NODIVIDER | TBSTYLE_FLAT |
                        TBSTYLE_LIST | TBSTYLE_TOOLTIPS;
    shown.window.reset(CreateWindowExW(0, TOOLBARCLASSNAMEW, bar.name.c_str(), style, left, 2, 10, height - 4, window,
                                       nullptr, nullptr, nullptr));
    const HWND toolbar = shown.window.get();
    SendMessageW(toolbar, TB_BUTTONSTRUCTSIZE, sizeof(TBBUTTON), 0);
    SendMessageW(toolbar, TB_SETEXTENDEDSTYLE, 0, TBSTYLE_EX_MIXEDBUTTONS);
    SendMessageW(toolbar, WM_SETFONT, reinterpret_cast<WPARAM>(shellFont()), FALSE);
    SendMessageW(toolbar, TB_SETIMAGELIST, 0, reinterpret_cast<LPARAM>(shown.faces.get()));
    for (const auto& control : bar.controls)
        if (control->visible)
            addButton(toolbar, shown.faces.get(), control);
    SIZE size{};
    SendMessageW(toolbar, TB_GETMAXSIZE, 0, reinterpret_cast<LPARAM>(&size));
    MoveWindow(toolbar, left, 2, size.cx, height - 4, TRUE);
    m_shown.push_back(std::move(shown));
    return left + size.cx;
}

void ToolbarRow::addButton(HWND toolbar, HIMAGELIST faces, const com_ptr<CommandBarControl>& control)
{
    TBBUTTON button{};
    button.idCommand = static_cast<int>(first + m_controls.size());
    button.fsState = control->enabled ? TBSTATE_ENABLED : 0;
    button.fsStyle = BTNS_BUTTON | BTNS_AUTOSIZE;
    button.iBitmap = I_IMAGENONE;
    if (control->face) {
        // The list masks the colour of the picture's first pixel, on a copy: it changes the bitmap that it is given.
        const unique_bitmap copy(static_cast<HBITMAP>(CopyImage(control->face.get(), IMAGE_BITMAP, 0, 0, 0)));
        button.iBitmap = ImageList_AddMasked(faces, copy.get(), CLR_DEFAULT);
    } else
        button.fsStyle |= BTNS_SHOWTEXT;
    const std::wstring text = withoutMarks(control->caption);
    button.iString = reinterpret_cast<INT_PTR>(text.c_str());
    SendMessageW(toolbar, TB_ADDBUTTONSW, 1, reinterpret_cast<LPARAM>(&button));
    m_controls.push_back(control);
}

com_ptr<CommandBarControl> ToolbarRow::control(UINT command) const
{
    return command >= first && command - first < m_controls.size() ? m_controls[command - first] : nullptr;
}

} // namespace velk::devkit
