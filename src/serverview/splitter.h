#pragma once

#include "serverview/splitterRules.h"
#include "window/control.h"

namespace velk {

// The bar between the two panes of the server view, and with it the view's layout. Positions are twips of the owner's
// inner area, as the panes' limits are.
class Splitter {
public:
    // The bar becomes a child of the owner, as the panes are.
    Splitter(HWND owner, HWND leftPane, HWND rightPane);

    HWND bar() const noexcept { return m_bar.hwnd(); }
    // A line above the right pane, of a height in pixels; null for none.
    void setHead(HWND head, int height);
    // The width that the user gave the tree, in twips, however much of it is shown.
    int treeWidth() const noexcept { return m_treeWidth; }
    void setTreeWidth(int twips);
    // A line below the right pane, of a height in pixels; null for none.
    void setFoot(HWND foot, int height);
    // Puts the panes and the bar in their places.
    void resizeGUI();
    // Carries out a message of the owner if it is one of the mouse's; whether it is.
    bool useMouse(UINT message, WPARAM wParam, LPARAM lParam);
    // Ends a drag with the panes as they were; whether there was one.
    bool cancelDrag();

private:
    void press(int x, int y);
    void UserControl_MouseMove(bool isButtonDown, int x, int y);
    void UserControl_MouseUp(int x, int y);
    void loseCapture();
    void endDrag() noexcept;
    SplitterRules rules() const noexcept;

    HWND m_owner;
    HWND m_leftPane;
    HWND m_rightPane;
    Control m_bar;
    HWND m_head = nullptr;
    int m_headHeight = 0;
    HWND m_foot = nullptr;
    int m_footHeight = 0;
    int m_treeWidth;
    int m_barLeft; // while dragged elsewhere than the tree's edge
    bool m_isDragging = false;
};

} // namespace velk
