#pragma once

#include "devkit/ide/shell.h"
#include "support/keptView.h"

#include <string>
#include <vector>

namespace velk::devkit {

// One run of a hidden stand-in IDE with the add-in, from its start to its end, all on the calling thread: each step is
// done as far as what is there allows, so that a life goes on whatever came in between. Message boxes and context menus
// are answered by a timer.
class Life {
public:
    // The server view begins as a new user's, or as somebody left it.
    explicit Life(std::wstring solution, const test::LeftView& left = {});
    Life(const Life&) = delete;
    Life& operator=(const Life&) = delete;
    ~Life();

    // Load, start, browse every folder, build, a question, a tool, a source text, disconnect and connect, unload.
    void whole();
    // The same with source control before the end.
    void wholeWithSourceSafe();
    // Load, start, one folder, unload; or the host lets go of the add-in without telling it.
    void brief(bool isLetGo = false);
    // Load, start, and what the view does by itself to be as it was left; unload.
    void back();
    // What is loaded still, second objects too, is unloaded.
    void end();

    Shell& shell() { return m_shell; }
    // What was seen: rows of folders, texts of boxes.
    const std::vector<std::wstring>& facts() const { return m_facts; }
    // What should not have been seen.
    const std::vector<std::wstring>& problems() const { return m_problems; }
    // What stood on the bars and which windows there were before the add-in came.
    const std::wstring& furnitureBefore() const { return m_furniture; }

private:
    static void CALLBACK answerOpen(HWND, UINT, UINT_PTR timer, DWORD) noexcept;
    void answer();
    void answerBox(HWND box);
    void logIn(HWND form);
    void chooseItem(HMENU menu);
    void load();
    void start();
    void work();
    void useSourceSafe();
    void reconnect();
    void browse(const wchar_t* folder);
    void choose(const wchar_t* row, const wchar_t* item);
    void chooseOfNode(const wchar_t* path, const wchar_t* item);
    void openMenuOf(HWND control, const wchar_t* item);
    void click(const wchar_t* bar, const wchar_t* entry);
    void settle();
    HWND control(const wchar_t* className) const;
    void see(const std::wstring& fact);

    const std::wstring m_solution;
    Shell m_shell{true};
    std::wstring m_furniture;
    std::vector<std::wstring> m_facts;
    std::vector<std::wstring> m_problems;
    UINT_PTR m_timer = 0;
    HWND m_answered = nullptr;
    HMENU m_chosenIn = nullptr;
    int m_looksAtMenu = 0;
    std::wstring m_item; // of the next context menu: captions, the outermost first
    HWND m_form = nullptr;
    int m_looksAtForm = 0;
};

} // namespace velk::devkit
