#pragma once

#include "model/conLstCtl.h"
#include "support/fakeManager.h"
#include "support/shownMessages.h"
#include "ui/fileChooserForm.h"
#include "viewFixture.h"
#include "window/menu.h"

namespace velk::test {

// A server view with a manager and a project, whose menus, boxes and file dialogs are answered from what is set here.
class CommandsFixture : public ViewFixture {
protected:
    CommandsFixture()
    {
        setMenuPresenter([this](const std::vector<MenuLine>& lines, POINT place) {
            menu = lines;
            menuPlace = place;
            if (whileMenuIsOpen)
                whileMenuIsOpen();
            return chosen;
        });
        setFileDialogPresenter([this](OPENFILENAMEW& dialog, const FileQuestion&) {
            asked = dialog.lpstrInitialDir ? dialog.lpstrInitialDir : L"(none)";
            title = dialog.lpstrTitle;
            filter = std::wstring(dialog.lpstrFilter);
            lstrcpynW(dialog.lpstrFile, chosenFile.c_str(), static_cast<int>(dialog.nMaxFile));
            return !chosenFile.empty();
        });
        view.setIMgr(IntegrationMgr(com_ptr<_IntegrationMgr>(manager.get())));
        view.setupGUI();
        addProject();
        journal.clear();
        backend.calls.clear();
    }
    ~CommandsFixture() override
    {
        setMenuPresenter({});
        setFileDialogPresenter({});
        connectionDialog().terminate();
    }
    // A procedure in the list of the selected procedures folder.
    void showProcedure(const std::wstring& file = L"C:\\src\\raise.sql")
    {
        tree().select(L"K20");
        addProcedureRow({.lHdl = 100, .strName = L"raise", .strLanguage = L"SQL", .strFileName = file});
        list().view().selectRow(0);
        backend.calls.clear();
    }
    void rightClick(HWND window, POINT place)
    {
        ClientToScreen(window, &place);
        SendMessageW(window, WM_CONTEXTMENU, reinterpret_cast<WPARAM>(window), MAKELPARAM(place.x, place.y));
    }
    // The menu key, or Shift+F10.
    void askForMenuByKeyboard(HWND window)
    {
        SendMessageW(window, WM_CONTEXTMENU, reinterpret_cast<WPARAM>(window), -1);
    }
    void rightClickRow(int row)
    {
        const RECT place = list().view().placeOf(row);
        rightClick(list().view().hwnd(), {place.left + 3, place.top + 3});
    }
    POINT placeOfNode(const std::wstring& key)
    {
        tree().select(key);
        const RECT place = tree().placeOfSelected();
        return {place.left + 2, (place.top + place.bottom) / 2};
    }

    Lines journal;
    com_ptr<FakeManager> manager = makeObject<FakeManager>(journal);
    ShownMessages shownMessages{ShownMessages::textAndTitle};
    Lines& messages = shownMessages.lines;
    std::vector<MenuLine> menu;
    POINT menuPlace{}; // pixels of the screen
    int chosen = 0;
    std::function<void()> whileMenuIsOpen;
    std::wstring asked, title, filter, chosenFile;
};

} // namespace velk::test
